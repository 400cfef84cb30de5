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
    case 1:
      return 1e-4;  // of the pressure, on which water hardly depends
    case 3:
    case 4:
      return 6e-4;
    case 5:
      return 1e-5;
    default:
      return 1e-6;
  }
}

/// By their definition these find most states only roughly (see docs/accuracy.md).
const std::set<std::string> rough_finders{"th", "tu", "us", "sx"};

/// And these fail in a part of the range.
const std::set<std::string> rough_parts{"pv water, to 10 °C",
                                        "ts water, to 10 °C",
                                        "hs water, to 10 °C",
                                        "vh water, to 10 °C",
                                        "vs water, to 10 °C",
                                        "vu water, to 10 °C",
                                        "tv steam, below 0.0611 bar",
                                        "vu wet, to 350 °C",
                                        "vu wet, above 350 °C",
                                        "vu wet, denser than 0.00317 m³/kg",
                                        "vx wet, above 350 °C",
                                        "vx wet, denser than 0.00317 m³/kg",
                                        "hs wet, denser than 0.00317 m³/kg"};

bool takes_part(const Finder& finder, const Band& band) {
  return finder.applies_to(band) && rough_finders.count(finder.name) == 0 &&
         rough_parts.count(finder.name + ' ' + band.name) == 0;
}

int count_far(const Finder& finder, const Band& band) {
  int far = 0;
  for (int k = 0; k < 100; ++k) {
    const State state = survey::state_in(band, k);
    far += largest_difference(state, request(finder, state)) > bound(band) ? 1 : 0;
  }
  return far;
}

TEST(Agreement, OfAllFindersThatPlaceAState) {
  constexpr int single_states = 5;  // beside a boundary, or at the lowest pressures
  for (const Band& band : survey::bands()) {
    for (const Finder& finder : survey::finders()) {
      if (takes_part(finder, band)) {
        EXPECT_LE(count_far(finder, band), single_states) << finder.name << ", " << band.name;
      }
    }
  }
}

}  // namespace
