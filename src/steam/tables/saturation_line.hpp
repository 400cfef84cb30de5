#pragma once

#include <algorithm>
#include <cmath>

#include "formulation/saturation.hpp"
#include "numbers/rows.hpp"
#include "steam/tables/saturation_tables.hpp"

namespace steam {

using numbers::MaskOf;

template <class Num>
struct SaturationPressureOf {
  Num p, over_t;  // bar, bar/K
};
using SaturationPressure = SaturationPressureOf<double>;

template <class Num>
Num saturation_pressure(Num t) {
  return formulation::saturation_pressure<SharedDivisions<Num>>(formulation::saturation_terms(t));
}

template <class Num>
SaturationPressureOf<Num> sloped_saturation_pressure(Num t) {
  const auto terms = formulation::saturation_terms(t);
  const Num p = formulation::saturation_pressure<SharedDivisions<Num>>(terms);
  return {p, p * formulation::saturation_log_slope(terms)};
}

/// The place on an axis that counts cells from 0 on, in the first or the last one beyond its ends.
template <class Num>
[[gnu::always_inline]] inline CoordinateOf<Num> in_cells(Num i, int cells) {
  const Num within = numbers::smaller(numbers::larger(Num(0), i), Num(cells - 1));
  return {numbers::whole_below(within), 2 * (i - numbers::below(within)) - 1};
}

/// Saturation pressure from the table.
/// @accuracy  6e-6, measured at 1e6 states
template <class Num>
[[gnu::always_inline]] inline Num tabulated_saturation_pressure(Num t) {
  constexpr Axis axis = SaturationLineTable::t;
  const auto [cell, place] = in_cells((t - axis.origin) * axis.scale, axis.cells);
  const auto row = numbers::rows_of<double, Num>(
      cell, [](auto number) { return saturation_line_table.root_of_p[number].data(); });
  const Num root = SharedDivisions<Num>::polynomial(row.template first<4>(), place);
  const Num square = root * root;
  return square * square;
}

/// Within this share the equation decides, not the table: well above the error of the table.
constexpr double table_doubt = 1e-4;
/// Whether p is at or above the saturation pressure at t.
inline bool above_saturation(double p, double t) {
  const double about = tabulated_saturation_pressure(t);
  if (p > about * (1 + table_doubt)) {
    return true;
  }
  return !(p < about * (1 - table_doubt)) && p >= saturation_pressure(t);
}

/// Saturation temperature from the table, °C.
/// @param p  pressure, bar [0.0061, 221.2]; beyond that, as a lane may be, the value means nothing
template <class Num>
[[gnu::always_inline]] inline Num tabulated_saturation_temperature(Num p) {
  const Num tabulated = numbers::smaller(Num(p_critical), numbers::larger(Num(p_lowest), p));
  const auto [cell, place] = SaturationLineTable::p(tabulated);
  const auto row = numbers::rows_of<double, Num>(
      cell, [](auto number) { return saturation_line_table.temperature[number].data(); });
  return SharedDivisions<Num>::polynomial(row.template first<10>(), place);
}

/// Pressure of saturated states that are asked for by p: the range begins 2e-12 bar below the
/// saturation pressure of its lowest temperature.
constexpr double p_lowest_clear = p_lowest * (1 + 1e-9);
inline double saturated_pressure(double p) {
  return p < p_lowest_clear ? std::max(p, saturation_pressure(t_lowest)) : p;
}

/// What the table says of it, and whether that is it to the rounding: below `p_fitted`, but not
/// where the side of 350 °C is open.
template <class Num>
struct FittedTemperature {
  Num t;
  MaskOf<Num> is_exact;
};
template <class Num>
[[gnu::always_inline]] inline FittedTemperature<Num> fitted_saturation_temperature(Num p) {
  constexpr double rounding = 1e-9;  // K: the table is good to 3e-13
  const Num t = numbers::larger(tabulated_saturation_temperature(p), Num(t_lowest));
  return {t, MaskOf<Num>((p < p_fitted) & (numbers::abs(t - t_350) >= rounding))};
}

/// Saturation temperature, °C.
/// @param p  pressure, bar [0.006112444, 221.2]
inline double saturation_temperature(double p) {
  auto [t, is_exact] = fitted_saturation_temperature(p);
  if (is_exact) {
    return t;
  }
  if (p < p_fitted) {  // on the side that the pressure is
    return p <= saturation_pressure(t_350) ? std::min(t, t_350)
                                           : std::max(t, std::nextafter(t_350, t_highest));
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
