#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "steam/equations/arithmetic.hpp"
#include "steam/equations/domain.hpp"
#include "steam/tables/axis.hpp"

namespace steam {

// ---- The saturation line ----------------------------------------------------------------------

/// Saturation temperature, °C, over p; to the rounding below `p_fitted`. Fourth root of the
/// saturation pressure over t. Polynomials of the place in a cell, -1 to 1.
struct SaturationLineTable {
  static constexpr Axis p = octaves({0.0061, 221.21}, 3);
  static constexpr Axis t = equal_cells({0, t_critical}, 128);
  std::array<double, 10> temperature[p.cells];
  std::array<double, 4> root_of_p[t.cells];
};
extern const SaturationLineTable saturation_line_table asm("vek_saturation_line");
constexpr double p_fitted = 190;

// ---- Saturated states -------------------------------------------------------------------------

// Saturated states over r = √(374.15 °C - t), in which they are smooth up to the critical point: a
// band of equal cells above 350 °C, on the equation of subregion 3, and one below. In a cell a
// polynomial is about as good as the equations' rounding, but for the last tenth of a kelvin.

constexpr std::size_t saturated_terms = 8;
constexpr int saturated_cells = 48;  // of a band
/// Closer to the critical point the table is continued from below. There the two saturated volumes
/// of the equation fall together, with a jump at `t_jump`.
constexpr double r_merging = 0.036;
constexpr double t_jump = 374.149411705;  // °C

/// One quantity in one cell: coefficients of liquid and vapour beside each other, by power of the
/// place from -1 to 1.
using SaturatedPolynomial = std::array<std::array<double, 2>, saturated_terms>;

struct SaturatedCell {
  SaturatedPolynomial v, h, s, u;
};

/// A quantity along a band, from the highest temperature down.
struct SaturatedProfile {
  double liquid[saturated_cells + 1], vapour[saturated_cells + 1];  // at the sides of the cells
  /// By cell, the qualities with which the mixed quantity may turn in it.
  double least_turning[saturated_cells], most_turning[saturated_cells];
};

struct SaturatedTable {
  SaturatedCell cells[saturated_cells];
  SaturatedProfile v, h, s, u;
};
struct SaturatedTables {
  SaturatedTable above_350, to_350;
};
extern const SaturatedTables saturated_tables asm("vek_saturated_states");

constexpr double r_350 = 4.9142649501222433;     // √(374.15 - 350)
constexpr double r_lowest = 19.342698880973153;  // √(374.15 - 0.01)

/// A band of the table, from the root of its highest temperature on.
struct SaturatedBand {
  double origin, scale;
  int cells;
  const SaturatedCell* polynomials;
  const SaturatedProfile &v, &h, &s, &u;
};

/// The width of a cell of the band between two roots.
constexpr double saturated_width(Interval r) { return (r.high - r.low) / saturated_cells; }

constexpr SaturatedBand saturated_band(Interval r, const SaturatedTable& table) {
  return {r.low,  1 / saturated_width(r), saturated_cells, table.cells, table.v, table.h, table.s,
          table.u};
}
inline constexpr SaturatedBand saturated_above_350 =
    saturated_band({0, r_350}, saturated_tables.above_350);
inline constexpr SaturatedBand saturated_to_350 =
    saturated_band({r_350, r_lowest}, saturated_tables.to_350);

}  // namespace steam
