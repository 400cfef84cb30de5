#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "boundary_states.hpp"
#include "differences.hpp"
#include "round_trips.hpp"

// Writes, as Markdown, how the engine gives back the states that the classic module's finders are
// surveyed with. The engine's own survey is boundary_survey.

namespace {

using steam::Pair;

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
    original.region = static_cast<steam::Region>(state.region);
    const auto answer = boundary_states::asked_back(pair_of(finder), original);
    recovered += answer.faults[answers::refused] || answer.faults[answers::lost] ? 0 : 1;
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

int main() { write_examples(write_shares()); }
