#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <random>

#include "vek/steam.hpp"

/// Round trips: states all over the formulation, forwards to a pair of properties and back.
namespace round_trips {

inline constexpr std::array regions{steam::Region::water,         steam::Region::steam,
                                    steam::Region::dense_steam,   steam::Region::hot_water,
                                    steam::Region::wet_above_350, steam::Region::wet};

/// A random state of a region, by (p, t) or (t, x).
steam::State random_state(steam::Region region, std::mt19937_64& random);

/// The two values of a pair.
struct Given {
  double first, second;
};
Given given(steam::Pair pair, const steam::State& state);

/// Letters of a pair, such as "ph".
const char* name(steam::Pair pair);

/// What `value` is compared with when an error is given as a share: its own size, but for the
/// quantities with an arbitrary zero at least 1 % of their range.
double scale(char letter, double value);

/// One round trip.
struct Trip {
  bool found = false;      ///< there is a state that is the original one
  bool preferred = false;  ///< and `steam::state` returns it
  bool same = false;       ///< and it is not one from the other side of an overlap
  double pair_error = 0;   ///< of the given two values, by their scales
  double t_error = 0;      ///< K
  double p_error = 0;      ///< share
};
Trip round_trip(steam::Pair pair, const steam::State& original);

}  // namespace round_trips
