#pragma once

#include "steam/equations/site.hpp"
#include "steam/tables/axis.hpp"

namespace steam {

// How the plane of a pair is divided into cells, and what the polynomials of a cell give. The
// generator and the engine read the charts by it.

struct Axes {
  Axis first, second;
};

/// A little wider than a quantity's values.
constexpr Interval charted(Quantity q) {
  switch (q) {
    case Quantity::p:
      return {0.0061, 1000.1};
    case Quantity::t:
      return {0, 800.1};
    case Quantity::v:
      return {0.00094, 815};
    case Quantity::h:
      return {-5, 4165};
    case Quantity::s:
      return {-0.02, 11.95};
    default:
      return {-5, 3670};
  }
}

/// Resolution of the first and the second axis: cells, or a power of two of cells per octave.
struct ChartLayout {
  Pair pair;
  int first, second;
};

/// The pairs that have a chart: all but those with x.
inline constexpr std::array chart_layouts{
    ChartLayout{Pair::pt, 24, 24}, ChartLayout{Pair::pv, 1, 3},   ChartLayout{Pair::ph, 1, 24},
    ChartLayout{Pair::ps, 1, 28},  ChartLayout{Pair::pu, 1, 24},  ChartLayout{Pair::tv, 20, 1},
    ChartLayout{Pair::th, 32, 32}, ChartLayout{Pair::tu, 32, 32}, ChartLayout{Pair::ts, 24, 24},
    ChartLayout{Pair::hs, 24, 24}, ChartLayout{Pair::us, 24, 24}, ChartLayout{Pair::vh, 1, 18},
    ChartLayout{Pair::vs, 1, 18},  ChartLayout{Pair::vu, 1, 18},
};

constexpr Axis chart_axis(Quantity q, int resolution) {
  const bool many_decades = q == Quantity::p || q == Quantity::v;
  return many_decades ? octaves(charted(q), resolution) : equal_cells(charted(q), resolution);
}

constexpr Axes chart_axes(const ChartLayout& layout) {
  if (layout.pair == Pair::pt) {  // subregion 3 alone
    return {equal_cells({165.3, 1000.1}, layout.first), equal_cells({350, 590.1}, layout.second)};
  }
  const Known& k = known_of(layout.pair);
  return {chart_axis(k.first, layout.first), chart_axis(k.second, layout.second)};
}

/// Whether a pair gives a pressure or a temperature, and leaves one variable open in most regions.
constexpr bool is_line(Pair pair) {
  const Quantity first = known_of(pair).first;
  return first == Quantity::p || first == Quantity::t;
}

/// Number of polynomials in subregion 3, whose equation takes v and t.
constexpr int unknowns_3(Pair pair) {
  const auto is_given = [k = known_of(pair)](Quantity q) { return k.first == q || k.second == q; };
  return (is_given(Quantity::v) ? 0 : 1) + (is_given(Quantity::t) ? 0 : 1);
}

/// Number of polynomials that a region has in each cell: one for each variable of its equation that
/// the pair does not give. In wet cells the temperature, unless it follows from the pair.
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

/// Polynomials of two variables between -1 and 1, by powers of y and then of x, to this degree.
constexpr std::size_t chart_degree = 5;
constexpr std::size_t chart_coefficients = (chart_degree + 1) * (chart_degree + 2) / 2;
/// In single precision, and before them what that leaves of the first.
constexpr std::size_t chart_stride = chart_coefficients + 1;

}  // namespace steam
