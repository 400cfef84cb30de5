#pragma once

namespace classic {

// Saturated volumes above 350 °C: the roots of `PRESS3`(v, t) = p that `VEKQI2` finds from start
// values linear in t. Which second value is used, and which of the two is solved first, differs by
// caller.

/// First start value of the liquid side; not a number stays.
constexpr double liquid_volume_start(double t) {
  const double linear = 6e-05 * t - 0.01899;
  return linear > 0.00317 ? 0.00317 : linear;
}

/// First start value of the vapour side; not a number gives the critical volume.
constexpr double vapour_volume_start(double t) {
  const double linear = 0.08611 - 0.000222 * t;
  return linear >= 0.00317 ? linear : 0.00317;
}

/// A property of a wet state from its saturated values.
/// @param x  quality
constexpr double mixed(double water, double x, double steam) { return water + x * (steam - water); }

/// Volume at which `PRESS3` gives p at t, from two start values (left unchanged).
double volume3(const double* t, const double* p, double start, double second, const double* tol);

/// v' from the start above and 0.00174.
double liquid_volume3(const double* t, const double* p, const double* tol);

/// v'' from the start above and 0.008799105448.
double vapour_volume3(const double* t, const double* p, const double* tol);

}  // namespace classic
