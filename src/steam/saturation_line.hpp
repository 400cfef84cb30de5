#pragma once

#include <algorithm>
#include <cmath>

#include "formulation/saturation.hpp"
#include "steam/arithmetic.hpp"
#include "steam/charts.hpp"
#include "steam/domain.hpp"

namespace steam {

struct SaturationPressure {
  double p, over_t;  // bar, bar/K
};

inline double saturation_pressure(double t) {
  return formulation::saturation_pressure<formulation::Elementary>(
      formulation::saturation_terms(t));
}

inline SaturationPressure sloped_saturation_pressure(double t) {
  const auto terms = formulation::saturation_terms(t);
  const double p = formulation::saturation_pressure<formulation::Elementary>(terms);
  return {p, p * formulation::saturation_log_slope(terms)};
}

/// Saturation pressure from the table, to a few 1e-5.
inline double tabulated_saturation_pressure(double t) {
  const double root = saturation_root_p(t);
  const double square = root * root;
  return square * square;
}

/// Whether p is at or above the saturation pressure at t; the equation decides only where the table
/// cannot.
inline bool above_saturation(double p, double t) {
  const double about = tabulated_saturation_pressure(t);
  constexpr double doubt = 1e-4;
  if (p > about * (1 + doubt)) {
    return true;
  }
  return !(p < about * (1 - doubt)) && p >= saturation_pressure(t);
}

/// Saturation temperature from the table, °C.
/// @param p  pressure, bar [0.0061, 221.2]
inline double tabulated_saturation_temperature(double p) {
  const Coordinate at = saturation_t_table.axis(p);
  return SharedDivisions::polynomial(saturation_t_table.coefficients[at.cell], at.place);
}

/// Saturation temperature, °C.
/// @param p  pressure, bar [0.006112444, 221.2]
inline double saturation_temperature(double p) {
  double t = tabulated_saturation_temperature(p);
  if (p < p_fitted) {
    return std::max(t, t_lowest);
  }
  // The last term of the line bends it too sharply for the table; but that is so close that a step
  // or two in ln p, with ln(1 + e) = e - e²/2, reach the rounding.
  constexpr double enough = 1e-7;
  constexpr int most_steps = 4;
  double e = 1;
  for (int n = 0; n < most_steps && std::abs(e) > enough; ++n) {
    const auto terms = formulation::saturation_terms(t);
    e = p / formulation::saturation_pressure<formulation::Elementary>(terms) - 1;
    t += (e - e * e / 2) / formulation::saturation_log_slope(terms);
  }
  return std::min(t, t_critical);
}

}  // namespace steam
