#pragma once

#include "formulation/boundary_line.hpp"

namespace steam {

// Where the formulation holds and where its subregions meet.
constexpr double p_lowest = 0.006112444, p_highest = 1000;  // bar
constexpr double t_lowest = 0.01, t_highest = 800;          // °C
constexpr double p_critical = formulation::reducing_pressure;
constexpr double v_critical = formulation::reducing_volume;
constexpr double t_critical = formulation::critical_temperature;
constexpr double t_350 = 350;              // °C: subregion 3 begins above it
constexpr double t_line_end = 590;         // °C: the boundary line ends, only steam above
constexpr double p_350 = 165.35124056379;  // bar: saturation pressure at 350 °C
/// Share by which a computed pressure or temperature may pass a limit of the range and still count
/// as that limit: the rounding of the pair that it comes from.
constexpr double limit_slack = 1e-9;

template <class Num>
constexpr Num kelvin(Num t) {
  return t + formulation::celsius_offset;
}

/// Between subregions 2 and 3.
using formulation::line_pressure, formulation::line_temperature;

}  // namespace steam
