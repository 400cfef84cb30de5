#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <utility>

#include "steam/arithmetic.hpp"
#include "steam/site.hpp"

namespace steam {

// Starting values. The plane of a pair is divided into cells; a cell holds a cubic
// polynomial for each region that reaches into it. The numbers are in tables.cpp, which
// tools/starting_tables writes from the equations; they decide how many iterations a state takes,
// never what it is.

/// A place on one axis: the cell, and from -1 to 1 the place in it.
struct Coordinate {
  int cell;
  double place;
};

/// One axis of a chart. Volumes and pressures of many decades are divided by octaves: every factor
/// of two has the same number of equal cells, so that a number's leading bits are its cell and the
/// rest of them its place. Other quantities have equal cells all over.
struct Axis {
  int cells;
  int shift;           // bits below those that count cells; 0 for equal cells
  std::int64_t first;  // those that count, of the first cell
  double origin, scale;

  /// @return  a cell outside 0 … cells - 1 for values outside the axis and what is no number
  [[nodiscard]] Coordinate operator()(double value) const {
    if (shift > 0) {
      const auto bits = std::bit_cast<std::int64_t>(value);
      const std::int64_t cell = (bits >> shift) - first;
      return {static_cast<int>(cell), place_of(bits & ((std::int64_t{1} << shift) - 1))};
    }
    const double i = (value - origin) * scale;
    const int cell = i >= 0 && i < cells ? static_cast<int>(i) : -1;
    return {cell, 2 * (i - cell) - 1};
  }

  /// The value at the lower side of a cell.
  [[nodiscard]] double lower_side(int cell) const {
    return shift > 0 ? side(first + cell) : origin + cell / scale;
  }

 private:
  [[nodiscard]] double side(std::int64_t cell) const {
    return std::bit_cast<double>(cell << shift);
  }
  [[nodiscard]] double place_of(std::int64_t rest) const {
    const double unit = std::bit_cast<double>(std::int64_t{1024 - shift} << 52);  // 2^(1 - shift)
    return static_cast<double>(rest) * unit - 1;
  }
};

/// Polynomials of two variables between -1 and 1, by powers of y and then of x, to this degree.
constexpr std::size_t chart_degree = 5;
constexpr std::size_t chart_coefficients = (chart_degree + 1) * (chart_degree + 2) / 2;
/// In single precision, and before them what that leaves of the first.
constexpr std::size_t chart_stride = chart_coefficients + 1;

/// What one region has in one cell: the number of its first polynomial.
struct Patch {
  Region region;
  std::uint16_t polynomials;
};

struct Chart {
  Axis first, second;
  const std::uint16_t* ends;  // by cell, row by row: end of its patches
  const Patch* patches;
  const float* coefficients;
};

/// Position in a chart: the patches of the cell and the place in it, -1 to 1.
struct Place {
  std::span<const Patch> patches;
  const float* coefficients = nullptr;
  double x = 0, y = 0;

  /// The value of polynomial number `index` of a patch.
  [[nodiscard]] double operator()(const Patch& patch, std::size_t index) const {
    const float* c = coefficients + chart_stride * (patch.polynomials + index);
    // A place without coefficients has no patches to ask for.
    const auto rest = static_cast<double>(*c++);  // NOLINT(clang-analyzer-core.NullDereference)
    std::array<double, chart_degree + 1> over_x{};
    const auto add = [&]<std::size_t power>() {
      constexpr std::size_t count = chart_degree + 1 - power;
      std::array<double, count> row{};
      for (std::size_t i = 0; i < count; ++i) {
        row[i] = static_cast<double>(*c++);
      }
      over_x[power] = SharedDivisions::polynomial(row, x);
    };
    [&]<std::size_t... power>(std::index_sequence<power...>) {
      (add.template operator()<power>(), ...);
    }
    (std::make_index_sequence<chart_degree + 1>{});
    return SharedDivisions::polynomial(over_x, y) + rest;
  }
};

/// No patches outside the chart and in cells without states.
inline Place place(const Chart& chart, double first, double second) {
  const Coordinate x = chart.first(first);
  const Coordinate y = chart.second(second);
  const auto is_on = [](const Axis& axis, int cell) {
    return static_cast<unsigned>(cell) < static_cast<unsigned>(axis.cells);
  };
  if (!is_on(chart.first, x.cell) || !is_on(chart.second, y.cell)) {
    return {};
  }
  const int cell = y.cell * chart.first.cells + x.cell;
  const std::uint16_t begin = cell == 0 ? std::uint16_t{0} : chart.ends[cell - 1];
  return {{chart.patches + begin, chart.patches + chart.ends[cell]},
          chart.coefficients,
          x.place,
          y.place};
}

/// Whether a pair gives a pressure or a temperature, and leaves one variable open in most regions.
constexpr bool is_line(Pair pair) {
  const Quantity first = known_of(pair).first;
  return first == Quantity::p || first == Quantity::t;
}

/// Number of polynomials in subregion 3, whose equation takes v and t.
constexpr int unknowns_3(Pair pair) {
  const Known& k = known_of(pair);
  if (k.first == Quantity::t || pair == Pair::pt) {
    return k.second == Quantity::v ? 0 : 1;
  }
  return k.second == Quantity::v ? 1 : 2;
}

/// Number of polynomials a patch has: one for each variable of the region's equation that the pair
/// does not give. In wet cells the temperature, unless it follows from the pair.
constexpr int unknowns(Pair pair, Region region) {
  if (is_3(region)) {
    return unknowns_3(pair);
  }
  if (is_wet(region)) {
    return is_line(pair) ? 0 : 1;
  }
  return pair == Pair::pt ? 0 : is_line(pair) ? 1 : 2;
}

// What the polynomials give, in this order where there are two.
//   water: p as it is; steam: fourth root of p, but p itself where the other value tends to that of
//   the ideal gas in proportion to p; subregion 3: density; then t, always as it is.
constexpr bool gives_root_of_p(Pair pair) { return pair != Pair::th && pair != Pair::tu; }

/// Charts by pair; those with x have none.
extern const std::array<Chart, pair_count> charts;

/// Polynomials over equal cells of one variable.
template <std::size_t N>
struct Spline {
  double origin, scale;
  int cells;
  const std::array<double, N>* coefficients;
  [[nodiscard]] double operator()(double x) const {
    const double i = (x - origin) * scale;
    const int cell = i > 0 ? (i < cells ? static_cast<int>(i) : cells - 1) : 0;
    const auto& c = coefficients[cell];
    const double z = 2 * (i - cell) - 1;
    return SharedDivisions::polynomial(c, z);
  }
};

/// Saturation temperature, °C, over p; to the rounding below `p_fitted`.
struct SaturationTemperatureTable {
  Axis axis;
  const std::array<double, 10>* coefficients;
};
extern const SaturationTemperatureTable saturation_t_table;
constexpr double p_fitted = 190;
/// Fourth root of the saturation pressure over t.
extern const Spline<4> saturation_root_p;

// Saturated states over r = √(374.15 °C - t), in which they are smooth up to the critical point: a
// band of equal cells above 350 °C, on the equation of subregion 3, and one below. In a cell a
// polynomial is about as good as the equations' rounding, but for the last tenth of a kelvin.

constexpr std::size_t saturated_terms = 8;
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
  const double *liquid, *vapour;  // at the sides of the cells
  /// By cell, the qualities with which the mixed quantity may turn in it.
  const double *least_turning, *most_turning;
};

struct SaturatedBand {
  double origin, scale;
  int cells;
  const SaturatedCell* polynomials;
  SaturatedProfile v, s;
};
extern const SaturatedBand saturated_above_350, saturated_to_350;

}  // namespace steam
