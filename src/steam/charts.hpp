#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <span>

#include "steam/site.hpp"

namespace steam {

// Starting values. The plane of a pair is divided into square cells; a cell holds a cubic
// polynomial for each region that reaches into it. The numbers are in tables.cpp, which
// tools/starting_tables writes from the equations; they decide how many iterations a state takes,
// never what it is.

/// How a quantity is spread: volumes and pressures of many decades as their fourth roots, volumes
/// inverted, so that water has its share.
enum class Spread : std::uint8_t { even, fourth_root, inverse_fourth_root };

inline double spread(Spread how, double value) {
  if (how == Spread::even) {
    return value;
  }
  const double root = std::sqrt(std::sqrt(value));
  return how == Spread::fourth_root ? root : 1 / root;
}

/// One coordinate of a chart, in cells from 0 to `cells`.
struct Axis {
  Spread how;
  double origin, scale;
  [[nodiscard]] double operator()(double value) const {
    return (spread(how, value) - origin) * scale;
  }
  /// Derivative of the place in a cell, -1 to 1, over the quantity.
  [[nodiscard]] double slope(double value) const {
    if (how == Spread::even) {
      return 2 * scale;
    }
    const double exponent = how == Spread::fourth_root ? 0.25 : -0.25;
    return 2 * scale * exponent * spread(how, value) / value;
  }
};

/// What one region has in one cell: the number where its coefficients begin.
struct Patch {
  Region region;
  std::uint16_t polynomials;  // ten coefficients each
};

struct Chart {
  int cells;  // per side
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

  /// The coefficients of polynomial number `index` of a patch.
  [[nodiscard]] auto of(const Patch& patch, int index) const {
    const auto number =
        static_cast<std::size_t>(patch.polynomials) + static_cast<std::size_t>(index);
    return [begin = coefficients + 10 * number](std::size_t i) {
      // A place without coefficients has no patches to ask for.
      return static_cast<double>(begin[i]);  // NOLINT(clang-analyzer-core.NullDereference)
    };
  }

  /// Its value.
  [[nodiscard]] double operator()(const Patch& patch, int index) const {
    const auto c = of(patch, index);
    return c(0) + x * (c(1) + x * (c(3) + x * c(6))) +
           y * ((c(2) + x * (c(4) + x * c(7))) + y * ((c(5) + x * c(8)) + y * c(9)));
  }

  /// Its derivative over y.
  [[nodiscard]] double over_y(const Patch& patch, int index) const {
    const auto c = of(patch, index);
    return (c(2) + x * (c(4) + x * c(7))) + y * (2 * (c(5) + x * c(8)) + y * 3 * c(9));
  }
};

/// No patches outside the chart and in cells without states.
inline Place place(const Chart& chart, double first, double second) {
  const double i = chart.first(first);
  const double j = chart.second(second);
  if (!(i >= 0 && i < chart.cells && j >= 0 && j < chart.cells)) {
    return {};
  }
  const int column = static_cast<int>(i);
  const int row = static_cast<int>(j);
  const int cell = row * chart.cells + column;
  const std::uint16_t begin = cell == 0 ? std::uint16_t{0} : chart.ends[cell - 1];
  return {{chart.patches + begin, chart.patches + chart.ends[cell]},
          chart.coefficients,
          2 * (i - column) - 1,
          2 * (j - row) - 1};
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
    const double z2 = z * z;
    // Even and odd powers apart: two short chains in place of a long one.
    double even = 0, odd = 0;
    for (std::size_t k = N; k > 0; k -= 2) {
      odd = odd * z2 + c[k - 1];
      even = even * z2 + c[k - 2];
    }
    return even + z * odd;
  }
};

/// Saturation temperature, °C, over the fourth root of p; to the rounding below `p_fitted`.
extern const Spline<8> saturation_t;
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
