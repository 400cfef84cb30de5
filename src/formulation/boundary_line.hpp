#pragma once

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"

namespace formulation {

/// A parabola βL = L0 + L1 θ + L2 θ².
struct Line {
  double L0, L1, L2;

  template <class Num>
  Num operator()(Num theta) const {
    return (L2 * theta + L1) * theta + L0;
  }
  template <class Num>
  Num slope(Num theta) const {
    return 2 * L2 * theta + L1;
  }
  double curvature() const { return 2 * L2; }
};

/// Boundary line between subregions 2 and 3, 350 to 590 °C.
/// @source IFC-67 (1967), L-function
constexpr Line boundary_line{15.74373327, -34.17061978, 19.31380707};

/// Pressure, bar, of the line at a temperature (°C).
/// @param line  the published one, or a variant of its digits
template <class Math = Elementary>
auto line_pressure(typename Math::Number t, const Line& line = boundary_line) {
  return reducing_pressure * line(reduced_temperature(t));
}

/// Temperature, °C, of the line at a pressure (bar).
template <class Math = Elementary>
auto line_temperature(typename Math::Number p) {
  const auto& [L0, L1, L2] = boundary_line;
  const auto root = Math::sqrt(L1 * L1 - 4 * L2 * (L0 - p / reducing_pressure));
  return (root - L1) / (2 * L2) * reducing_temperature - celsius_offset;
}

}  // namespace formulation
