#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <string>

#include "api/vek.h"
#include "survey.hpp"

// The state of one pair is the state of every other pair, as requests through the dispatcher see
// it.

namespace {

using survey::Band;
using survey::Finder;
using survey::State;

/// Where a finder is known not to find the state, or not to its tolerance (see docs/accuracy.md).
bool is_excepted(const Finder& finder, const Band& band) {
  static const std::set<std::string> caloric_by_temperature{"th", "tu"};
  static const std::set<std::string> poor{"us", "sx", "vx", "pt"};
  const bool dense_or_cold = band.region == 1 || band.name == "steam, below 0.0611 bar";
  return poor.count(finder.name) + caloric_by_temperature.count(finder.name) > 0 || dense_or_cold;
}

/// P, T, V, H, S as a request gives them.
std::array<double, 5> request(const Finder& finder, const State& state) {
  std::array<double, 5> values{};
  vek(finder.find, &(state.*finder.first), &(state.*finder.second), "P,T,V,H,S ", values.data());
  return values;
}

double largest_difference(const State& state, const std::array<double, 5>& found) {
  const std::array<double, 5> made{state.p, state.t, state.v, state.h, state.s};
  double largest = 0;
  for (std::size_t i = 0; i < made.size(); ++i) {
    largest = std::fmax(largest, std::abs(found[i] / made[i] - 1));
  }
  return largest;
}

/// Between two boundary lines a state belongs to either subregion; the equations differ there by
/// 5.5e-4. Elsewhere a state is found to some 1e-7, near the critical point its volume to 1e-5.
double bound(const Band& band) {
  if (band.name == "wet, denser than 0.00317 m³/kg") {
    return 1e-3;  // the quality is small, and what it does to enthalpy and entropy too
  }
  switch (band.region) {
    case 3:
    case 4:
      return 6e-4;
    case 5:
      return 1e-5;
    default:
      return 1e-6;
  }
}

TEST(Agreement, OfAllFindersThatPlaceAState) {
  for (const Band& band : survey::bands()) {
    for (const Finder& finder : survey::finders()) {
      if (!finder.applies_to(band) || is_excepted(finder, band) ||
          (finder.name == "vu" && band.region == 5)) {
        continue;
      }
      int far = 0;
      for (int k = 0; k < 100; ++k) {
        const State state = survey::state_in(band, k);
        far += largest_difference(state, request(finder, state)) > bound(band) ? 1 : 0;
      }
      EXPECT_LE(far, finder.name == "hs" || finder.name == "vu" ? 20 : 1)
          << finder.name << ", " << band.name;
    }
  }
}

}  // namespace
