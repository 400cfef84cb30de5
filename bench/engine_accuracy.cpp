#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "differences.hpp"
#include "round_trips.hpp"

// Writes how exactly the engine gives back states, as Markdown: first random states of every pair
// and region, then the states that the classic module's finders are surveyed with.
//   engine_accuracy [states per pair]

namespace {

using steam::Pair;
using steam::Region;

bool applies(Pair pair, Region region) {
  const bool is_wet = region == Region::wet || region == Region::wet_above_350;
  return round_trips::name(pair)[1] == 'x' ? is_wet : !(pair == Pair::pt && is_wet);
}

struct Row {
  long states = 0, found = 0, others = 0;
  double pair_error = 0, t_error = 0;
};

Row survey_region(Pair pair, Region region, long count) {
  std::mt19937_64 random(1967);
  Row row;
  for (; row.states < count; ++row.states) {
    const auto trip = round_trips::round_trip(pair, round_trips::random_state(region, random));
    row.found += trip.found ? 1 : 0;
    row.others += trip.found && !trip.preferred ? 1 : 0;
    row.pair_error = std::max(row.pair_error, trip.pair_error);
    row.t_error = std::max(row.t_error, trip.same ? trip.t_error : 0);
  }
  return row;
}

void write_random(long per_pair) {
  std::printf(
      "\n# Accuracy of the engine\n\n"
      "Random states of each region, forwards to the pair and back, %ld for each pair. "
      "**found**: the state, or another one of the same pair in an overlap of two subregions. "
      "**other first**: found by `states`, while `state` prefers another one. **pair**: largest "
      "deviation of the state's own properties from the given pair, as a share of their size (of "
      "at least 40 kJ/kg, 0.1 kJ/(kg K), 1 °C). **t**: largest deviation of the temperature, K.\n\n"
      "| pair | region | states | not found | other first | pair | t |\n"
      "|---|---|---|---|---|---|---|\n",
      per_pair);
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    const auto pair = static_cast<Pair>(i);
    const long regions = round_trips::name(pair)[1] == 'x' ? 2 : pair == Pair::pt ? 4 : 6;
    for (const Region region : round_trips::regions) {
      if (applies(pair, region)) {
        const Row row = survey_region(pair, region, per_pair / regions + 1);
        std::printf("| %s | %d | %ld | %ld | %ld | %.0e | %.0e |\n", round_trips::name(pair),
                    static_cast<int>(region), row.states, row.states - row.found, row.others,
                    row.pair_error, row.t_error);
      }
    }
  }
}

Pair pair_of(const survey::Finder& finder) {
  std::size_t i = 0;
  while (finder.name != round_trips::name(static_cast<Pair>(i))) {
    ++i;
  }
  return static_cast<Pair>(i);
}

/// Share of the module's states that the engine gives back.
double share_recovered(const survey::Finder& finder, const survey::Band& band, int count) {
  int recovered = 0;
  for (int k = 0; k < count; ++k) {
    const survey::State state = survey::state_in(band, k);
    steam::State original;
    original.p = state.p;
    original.t = state.t;
    original.v = state.v;
    original.h = state.h;
    original.s = state.s;
    original.u = state.u;
    original.x = state.x;
    original.region = static_cast<Region>(state.region);
    recovered += round_trips::round_trip(pair_of(finder), original).found ? 1 : 0;
  }
  return static_cast<double>(recovered) / count;
}

/// A finder in a band, and how its states differ.
struct Comparison {
  const survey::Finder* finder;
  const survey::Band* band;
  survey::Differences module;
};

std::string error(double e) {
  char text[16];
  std::snprintf(text, sizeof text, "%.0e", e);
  return e < 0 ? "-" : text;
}

std::vector<Comparison> write_shares() {
  constexpr int count = 500;
  std::printf(
      "\n## Beside the classic module\n\n"
      "The states of the survey above: the share that the module's finder places in the right "
      "region, **within** its tolerance of 1e-8 (of the given pair or of the pair it leaves) or "
      "further **off**; that it places in **another region**; and that it **refuses** or leaves "
      "without a finite value. **largest error**: of the pair it leaves, where the region is "
      "right. "
      "**engine**: the share that the engine gives back.\n\n"
      "| pair | states | within | off | another region | refused | largest error | engine |\n"
      "|---|---|---|---|---|---|---|---|\n");
  std::vector<Comparison> all;
  for (const survey::Finder& finder : survey::finders()) {
    for (const survey::Band& band : survey::bands()) {
      if (!finder.applies_to(band)) {
        continue;
      }
      all.push_back({&finder, &band, survey::compare(finder, band, count)});
      const survey::Differences& module = all.back().module;
      std::printf("| %s | %s |", finder.name.c_str(), band.name.c_str());
      for (const double share : module.share) {
        std::printf(" %.1f %% |", 100 * share);
      }
      std::printf(" %s | %.1f %% |\n", error(module.largest_error).c_str(),
                  100 * share_recovered(finder, band, count));
    }
  }
  return all;
}

double unsigned_nan(double x) { return std::isnan(x) ? steam::missing : x; }

/// A state by its region and what that region is evaluated with.
std::string described(int region, double first, double t) {
  constexpr std::array names{"p", "p", "v", "v", "x", "x"};
  const auto number = static_cast<std::size_t>(region);
  char text[80];
  if (number < 1 || number > names.size()) {
    std::snprintf(text, sizeof text, "code %d", region);
  } else {
    std::snprintf(text, sizeof text, "region %d, %s = %.8g, t = %.8g", region, names[number - 1],
                  unsigned_nan(first), unsigned_nan(t));
  }
  return text;
}

std::string described(const steam::Result& result) {
  if (!result) {
    return steam::text(result.refusal());
  }
  const auto region = static_cast<int>(result->region);
  const double first = region <= 2 ? result->p : region <= 4 ? result->v : result->x;
  return described(region, first, result->t);
}

void write_example(const Comparison& c, const char* kind, const survey::Example& e) {
  const double first = e.state.*c.finder->first;
  const double second = e.state.*c.finder->second;
  const std::string module = described(e.answer.region, e.answer.first, e.answer.t);
  const std::string engine = described(steam::state(pair_of(*c.finder), first, second));
  std::printf("| %s | %s | %s | %.17g | %.17g | %s | %s |\n", c.finder->name.c_str(),
              c.band->name.c_str(), kind, first, second, module.c_str(), engine.c_str());
}

void write_examples(const std::vector<Comparison>& all) {
  std::printf(
      "\n### One state of each difference\n\n"
      "For each pair and part of the range, and each kind of difference that occurs there, the "
      "state whose answer is furthest from the pair. Beside a boundary of two regions, where their "
      "equations overlap, another region may have the pair too; and where several states have it, "
      "the engine's answer is its first.\n\n"
      "| pair | states | difference | first value | second value | module | engine |\n"
      "|---|---|---|---|---|---|---|\n");
  constexpr std::array kinds{"", "off", "another region", "refused"};
  for (const Comparison& c : all) {
    for (std::size_t kind = 1; kind < kinds.size(); ++kind) {
      if (c.module.worst[kind]) {
        write_example(c, kinds[kind], *c.module.worst[kind]);
      }
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  constexpr long usual = 1'000'000;
  write_random(argc > 1 ? std::strtol(argv[1], nullptr, 10) : usual);
  write_examples(write_shares());
}
