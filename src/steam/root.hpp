#pragma once

#include <cmath>

namespace steam {

/// Value of a function of one variable and its derivative.
struct Slope {
  double value, derivative;
};

/// Root between a and b, where f has opposite signs: Newton steps, halvings where they leave the
/// bracket or converge slowly. Ends after a step of the given relative size, if none at the
/// rounding of the variable.
template <class F>
double bracketed_root(F&& f, double a, double b, double f_a, double small_step = 3e-16) {
  double below = f_a < 0 ? a : b;
  double above = f_a < 0 ? b : a;
  double x = (a + b) / 2;
  double last_step = std::abs(b - a);
  constexpr int most_steps = 120;
  for (int n = 0; n < most_steps; ++n) {
    const auto [value, derivative] = f(x);
    if (value == 0) {
      return x;
    }
    (value < 0 ? below : above) = x;
    double next = x - value / derivative;
    const bool inside = (next - below) * (next - above) < 0;
    if (!inside || std::abs(next - x) > last_step / 2) {
      next = (below + above) / 2;
    }
    last_step = std::abs(next - x);
    x = next;
    if (last_step <= small_step * std::abs(x)) {
      return x;
    }
  }
  return x;
}

/// All roots of f between a and b: both beside an extremum too, when the derivative changes sign
/// between neighbouring points of a subdivision.
/// @param found  called with each root, in the order from a to b
/// @param touch  an extremum that misses zero by no more, the rounding of f, counts as a root
template <class F, class Found>
void all_roots(F&& f, double a, double b, Found&& found, int parts = 12, double touch = 0) {
  double left = a;
  Slope at_left = f(a);
  if (at_left.value == 0) {
    found(a);
  }
  for (int i = 1; i <= parts; ++i) {
    const double right = i == parts ? b : a + (b - a) * i / parts;
    const Slope at_right = f(right);
    if (at_right.value == 0) {
      found(right);
    } else if (at_left.value * at_right.value < 0) {
      found(bracketed_root(f, left, right, at_left.value));
    } else if (at_left.derivative * at_right.derivative < 0 && at_left.value != 0) {
      const auto derivative = [&](double x) { return Slope{f(x).derivative, 0}; };
      const double top = bracketed_root(derivative, left, right, at_left.derivative);
      const Slope at_top = f(top);
      if (at_top.value * at_left.value < 0) {
        found(bracketed_root(f, left, top, at_left.value));
        found(bracketed_root(f, top, right, at_top.value));
      } else if (std::abs(at_top.value) <= touch) {
        found(top);
      }
    }
    left = right;
    at_left = at_right;
  }
}

}  // namespace steam
