#pragma once

#include <algorithm>
#include <cmath>

#include "formulation/saturation.hpp"
#include "numbers/rows.hpp"
#include "steam/tables/saturation_tables.hpp"

namespace steam {

using numbers::MaskOf;

struct SaturationPressure {
  double p, over_t;  // bar, bar/K
};

template <class Num>
Num saturation_pressure(Num t) {
  return formulation::saturation_pressure<SharedDivisions<Num>>(formulation::saturation_terms(t));
}

inline SaturationPressure sloped_saturation_pressure(double t) {
  const auto terms = formulation::saturation_terms(t);
  const double p = formulation::saturation_pressure<SharedDivisions<>>(terms);
  return {p, p * formulation::saturation_log_slope(terms)};
}

/// The cell of a place on an axis in cells from 0 on, the first or the last one beyond its ends.
template <class Num>
[[gnu::always_inline]] inline Num cell_below(Num place, int cells) {
  return numbers::each_lane(place, [cells](double i) {
    return static_cast<double>(i > 0 ? (i < cells ? static_cast<int>(i) : cells - 1) : 0);
  });
}

/// Saturation pressure from the table, to a few 1e-5.
template <class Num>
[[gnu::always_inline]] inline Num tabulated_saturation_pressure(Num t) {
  constexpr Axis axis = SaturationLineTable::t;
  const Num i = (t - axis.origin) * axis.scale;
  const Num cell = cell_below(i, axis.cells);
  const auto row = numbers::rows_of<double>(cell, [](double number) {
    return saturation_line_table.root_of_p[static_cast<int>(number)].data();
  });
  const Num root = SharedDivisions<Num>::polynomial(row.template first<4>(), 2 * (i - cell) - 1);
  const Num square = root * root;
  return square * square;
}

/// Whether p is at or above the saturation pressure at t; the equation decides only where the table
/// cannot.
constexpr double table_doubt = 1e-4;
inline bool above_saturation(double p, double t) {
  const double about = tabulated_saturation_pressure(t);
  if (p > about * (1 + table_doubt)) {
    return true;
  }
  return !(p < about * (1 - table_doubt)) && p >= saturation_pressure(t);
}

/// Saturation temperature from the table, °C.
/// @param p  pressure, bar [0.0061, 221.2]
template <class Num>
[[gnu::always_inline]] inline Num tabulated_saturation_temperature(Num p) {
  const auto row = numbers::rows_of<double>(p, [](double of_p) {
    return saturation_line_table.temperature[SaturationLineTable::p(of_p).cell].data();
  });
  const Num place =
      numbers::each_lane(p, [](double of_p) { return SaturationLineTable::p(of_p).place; });
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
  constexpr double rounding = 1e-9;
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
