#pragma once

#include <limits>

#include "steam/search/root.hpp"

namespace steam {

/// All roots of f between a and b: both beside an extremum too, when the derivative changes sign
/// between neighbouring points of a subdivision.
/// @param found   called with each root, in the order from a to b; with one at the border of two
/// parts
///                perhaps twice
/// @param enough  ends each iteration; an end and an extremum that miss zero by the noise are roots
template <class F, class Found>
void all_roots(F&& f, double a, double b, Found&& found, int parts = 12, Enough enough = {}) {
  const auto between = [&](double left, double right, double at_left, double at_right) {
    const double start = left + (right - left) * (at_left / (at_left - at_right));
    return root(f, left, right, start, (at_left < 0) == (left < right), enough).x;
  };
  const auto is_root = [&](Slope y) { return std::abs(y.value) <= enough.noise; };
  double left = a;
  Slope at_left = f(a);
  if (is_root(at_left)) {
    found(a);
  }
  for (int i = 1; i <= parts; ++i) {
    const double right = i == parts ? b : a + (b - a) * i / parts;
    const Slope at_right = f(right);
    if (at_left.value * at_right.value < 0) {
      found(between(left, right, at_left.value, at_right.value));
    } else if (at_left.derivative * at_right.derivative < 0 && at_left.value != 0) {
      const auto slope = [&](double x) {
        return Slope{f(x).derivative, std::numeric_limits<double>::quiet_NaN()};
      };
      const bool rises = (at_left.derivative < 0) == (left < right);
      const double turn = root(slope, left, right, HUGE_VAL, rises).x;
      const Slope at_turn = f(turn);
      if (at_turn.value * at_left.value < 0) {
        found(between(left, turn, at_left.value, at_turn.value));
        found(between(turn, right, at_turn.value, at_right.value));
      } else if (is_root(at_turn)) {
        found(turn);
      }
    }
    if (is_root(at_right)) {
      found(right);
    }
    left = right;
    at_left = at_right;
  }
}

}  // namespace steam
