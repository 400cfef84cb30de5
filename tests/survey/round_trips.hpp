#pragma once

#include <array>
#include <random>

#include "vek/steam.hpp"

/// States all over the formulation, and pairs of their properties.
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

}  // namespace round_trips
