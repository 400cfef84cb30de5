#pragma once

#include <rapidcheck.h>

#include <cmath>

/// A random number in [low, high].
inline double between(double low, double high) {
  constexpr int steps = 1 << 30;
  return low + (high - low) * *rc::gen::inRange(0, steps + 1) / steps;
}

/// The same, evenly spread over the orders of magnitude.
inline double by_magnitude(double low, double high) {
  return std::exp(between(std::log(low), std::log(high)));
}
