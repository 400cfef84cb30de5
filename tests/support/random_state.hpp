#pragma once

#include <rapidcheck.h>

#include <algorithm>
#include <cmath>

/// A random number in [low, high].
inline double between(double low, double high) {
  constexpr int steps = 1 << 30;
  // At its nominal size the generator covers its whole range from the first case on.
  const int step = *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, steps + 1));
  return low + (high - low) * step / steps;
}

/// The same, evenly spread over the orders of magnitude.
inline double by_magnitude(double low, double high) {
  return std::clamp(std::exp(between(std::log(low), std::log(high))), low, high);
}
