#pragma once

#include <algorithm>
#include <cmath>

#include "formulation/saturation.hpp"
#include "steam/tables/saturation_tables.hpp"

namespace steam {

struct SaturationPressure {
  double p, over_t;  // bar, bar/K
};

inline double saturation_pressure(double t) {
  return formulation::saturation_pressure<SharedDivisions<>>(formulation::saturation_terms(t));
}

inline SaturationPressure sloped_saturation_pressure(double t) {
  const auto terms = formulation::saturation_terms(t);
  const double p = formulation::saturation_pressure<SharedDivisions<>>(terms);
  return {p, p * formulation::saturation_log_slope(terms)};
}

/// Saturation pressure from the table, to a few 1e-5.
inline double tabulated_saturation_pressure(double t) {
  constexpr Axis axis = SaturationLineTable::t;
  const double i = (t - axis.origin) * axis.scale;
  const int cell = i > 0 ? (i < axis.cells ? static_cast<int>(i) : axis.cells - 1) : 0;
  const double root =
      SharedDivisions<>::polynomial(saturation_line_table.root_of_p[cell], 2 * (i - cell) - 1);
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
  const Coordinate at = SaturationLineTable::p(p);
  return SharedDivisions<>::polynomial(saturation_line_table.temperature[at.cell], at.place);
}

/// Pressure of saturated states that are asked for by p: the range begins 2e-12 bar below the
/// saturation pressure of its lowest temperature.
inline double saturated_pressure(double p) {
  constexpr double p_doubtful = p_lowest * (1 + 1e-9);
  return p < p_doubtful ? std::max(p, saturation_pressure(t_lowest)) : p;
}

/// Saturation temperature, °C.
/// @param p  pressure, bar [0.006112444, 221.2]
inline double saturation_temperature(double p) {
  double t = tabulated_saturation_temperature(p);
  if (p < p_fitted) {
    constexpr double rounding = 1e-9;
    if (std::abs(t - t_350) < rounding) {  // on the side that the pressure is
      return p <= saturation_pressure(t_350) ? std::min(t, t_350)
                                             : std::max(t, std::nextafter(t_350, t_highest));
    }
    return std::max(t, t_lowest);
  }
  // The last term of the line bends it too sharply for the table; but that is so close that a step
  // or two in ln p, with ln(1 + e) = e - e²/2, reach the rounding.
  constexpr double enough = 1e-7;
  constexpr int most_steps = 4;
  double e = 1;
  for (int n = 0; n < most_steps && std::abs(e) > enough; ++n) {
    const auto terms = formulation::saturation_terms(t);
    e = p / formulation::saturation_pressure<SharedDivisions<>>(terms) - 1;
    t += (e - e * e / 2) / formulation::saturation_log_slope(terms);
  }
  return std::min(t, t_critical);
}

}  // namespace steam
