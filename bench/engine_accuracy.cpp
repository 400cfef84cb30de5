#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "round_trips.hpp"
#include "survey.hpp"

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

void write_beside_module() {
  constexpr int count = 500;
  std::printf(
      "\n## Beside the classic module\n\n"
      "The states of the survey above: the share that the module's finder places in the right "
      "region, and its largest error there, and the share that the engine gives back.\n\n"
      "| pair | states | module | its largest error | engine |\n|---|---|---|---|---|\n");
  for (const survey::Finder& finder : survey::finders()) {
    for (const survey::Band& band : survey::bands()) {
      if (!finder.applies_to(band)) {
        continue;
      }
      const survey::Result module = survey::place_all(finder, band, count);
      std::printf("| %s | %s | %.1f %% | %.0e | %.1f %% |\n", finder.name.c_str(),
                  band.name.c_str(), 100 * module.placed_right, module.largest_error,
                  100 * share_recovered(finder, band, count));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  constexpr long usual = 1'000'000;
  write_random(argc > 1 ? std::strtol(argv[1], nullptr, 10) : usual);
  write_beside_module();
}
