#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <iterator>
#include <utility>

#include "numbers/rows.hpp"
#include "steam/equations/arithmetic.hpp"
#include "steam/tables/chart_layout.hpp"

namespace steam {

// Where a search starts. The plane of a pair is divided into cells; a cell has polynomials of
// degree five for each region that reaches into it. tools/write_tables fits them to the equations;
// they decide how many iterations a state takes, never what it is.

/// What one region has in one cell: the number of its first polynomial.
struct Patch {
  Region region;
  std::uint16_t polynomials;
};

/// Numbers of polynomials by region, four bits each.
constexpr std::uint32_t packed_unknowns(Pair pair) {
  std::uint32_t all = 0;
  for (unsigned region = 1; region <= static_cast<unsigned>(Region::wet); ++region) {
    all |= static_cast<std::uint32_t>(unknowns(pair, Region{static_cast<std::uint8_t>(region)}))
           << 4 * region;
  }
  return all;
}

/// The regions of a cell in the order in which they are tried. A cell is one word: in the lower
/// half the number of its first polynomial, in the upper half up to four regions, four bits each.
class Patches {
 public:
  static constexpr std::size_t most = 4;

  Patches() = default;
  /// @param unknowns  those of the chart
  Patches(std::uint32_t cell, std::uint32_t unknowns) : cell_(cell), unknowns_(unknowns) {}

  class Iterator {
   public:
    Iterator(std::uint32_t cell, std::uint32_t unknowns)
        : regions_(cell >> 16), polynomials_(cell & 0xffff), unknowns_(unknowns) {}
    Patch operator*() const {
      return {Region{static_cast<std::uint8_t>(regions_ & 15)},
              static_cast<std::uint16_t>(polynomials_)};
    }
    Iterator& operator++() {
      polynomials_ += unknowns_ >> 4 * (regions_ & 15) & 15;
      regions_ >>= 4;
      return *this;
    }
    bool operator==(std::default_sentinel_t /*end*/) const { return regions_ == 0; }

   private:
    std::uint32_t regions_, polynomials_, unknowns_;
  };

  [[nodiscard]] Iterator begin() const { return {cell_, unknowns_}; }
  static std::default_sentinel_t end() { return {}; }
  [[nodiscard]] std::size_t size() const {
    return (static_cast<std::size_t>(std::bit_width(cell_ >> 16)) + 3) / 4;
  }
  Patch operator[](std::size_t number) const {
    Iterator patch = begin();
    for (; number > 0; --number) {
      ++patch;
    }
    return *patch;
  }

 private:
  std::uint32_t cell_ = 0, unknowns_ = 0;
};

constexpr std::uint32_t divided_cell(std::uint32_t place, int divisions) {
  return 0x80000000 | static_cast<std::uint32_t>(divisions) << 16 | place;
}
constexpr bool is_divided(std::uint32_t cell) { return cell >= 0x80000000; }

/// A cell or a part of one, and the place in it, -1 to 1.
struct PartOf {
  std::uint32_t word;
  double x, y;
};

struct Chart {
  Axes axes;
  std::uint32_t unknowns;
  const float* words;  // the cells, row by row, and the polynomials

  [[nodiscard]] std::uint32_t word(std::int64_t cell) const {
    return std::bit_cast<std::uint32_t>(words[cell]);
  }
  [[nodiscard]] const float* polynomials() const {
    return words + static_cast<std::ptrdiff_t>(axes.first.cells) * axes.second.cells;
  }

  /// An undivided part of a cell, or all of it.
  /// @param word  of the cell
  [[nodiscard]] PartOf part_of(std::uint32_t word, double x, double y) const {
    while (is_divided(word)) {
      const int divisions = static_cast<int>(word >> 16 & 0xff);
      const double from_left = (x + 1) * 0.5 * divisions, from_below = (y + 1) * 0.5 * divisions;
      const int column = std::min(static_cast<int>(from_left), divisions - 1);
      const int row = std::min(static_cast<int>(from_below), divisions - 1);
      x = 2 * (from_left - column) - 1;
      y = 2 * (from_below - row) - 1;
      const float* parts = polynomials() + chart_stride * (word & 0xffff);
      word = std::bit_cast<std::uint32_t>(parts[row * divisions + column]);
    }
    return {word, x, y};
  }
};

// The words of each chart, from its data file. The names are the assembler's, since platforms
// differ in how they decorate the compiler's.
namespace chart_data {
extern const float pt[] asm("vek_chart_pt");
extern const float pv[] asm("vek_chart_pv");
extern const float ph[] asm("vek_chart_ph");
extern const float ps[] asm("vek_chart_ps");
extern const float pu[] asm("vek_chart_pu");
extern const float tv[] asm("vek_chart_tv");
extern const float th[] asm("vek_chart_th");
extern const float tu[] asm("vek_chart_tu");
extern const float ts[] asm("vek_chart_ts");
extern const float hs[] asm("vek_chart_hs");
extern const float us[] asm("vek_chart_us");
extern const float vh[] asm("vek_chart_vh");
extern const float vs[] asm("vek_chart_vs");
extern const float vu[] asm("vek_chart_vu");
/// In the order of the layouts.
inline constexpr std::array all{pt, pv, ph, ps, pu, tv, th, tu, ts, hs, us, vh, vs, vu};
}  // namespace chart_data

/// Charts by pair; those with x have none.
inline constexpr std::array<Chart, pair_count> charts = [] {
  std::array<Chart, pair_count> by_pair{};
  for (std::size_t i = 0; i < chart_layouts.size(); ++i) {
    const ChartLayout& layout = chart_layouts[i];
    by_pair[static_cast<std::size_t>(layout.pair)] = {
        chart_axes(layout), packed_unknowns(layout.pair), chart_data::all[i]};
  }
  return by_pair;
}();
static_assert(chart_data::all.size() == chart_layouts.size());

/// The value of a cell's polynomial.
/// @param c     its coefficients: what single precision leaves of the first, then by powers of y
/// @param x, y  the place in the cell, -1 to 1
template <class Num>
[[gnu::always_inline]] inline Num chart_value(const numbers::Rows<Num, float>& c, Num x, Num y) {
  std::array<Num, chart_degree + 1> over_x;
  std::size_t next = 1;
  const auto add = [&]<std::size_t power>() __attribute__((always_inline)) {
    std::array<Num, chart_degree + 1 - power> row;
    for (Num& coefficient : row) {
      coefficient = c[next++];
    }
    over_x[power] = SharedDivisions<Num>::polynomial(row, x);
  };
  [&]<std::size_t... power>(std::index_sequence<power...>) __attribute__((always_inline)) {
    (add.template operator()<power>(), ...);
  }
  (std::make_index_sequence<chart_degree + 1>{});
  return SharedDivisions<Num>::polynomial(over_x, y) + c[0];
}

/// Position in a chart: the patches of the cell and the place in it, -1 to 1.
struct Place {
  Patches patches;
  const float* coefficients = nullptr;
  double x = 0, y = 0;

  /// Coefficients of polynomial number `index` of a patch.
  [[nodiscard]] const float* polynomial(const Patch& patch, std::size_t index) const {
    return coefficients + chart_stride * (patch.polynomials + index);
  }
  /// The value of that polynomial.
  [[nodiscard]] double operator()(const Patch& patch, std::size_t index) const {
    return chart_value<double>({{polynomial(patch, index)}}, x, y);
  }
};

/// The cell of two values, and the place in it, -1 to 1.
template <class Num>
struct CellOf {
  numbers::WholeOf<Num> number;
  Num x, y;
  numbers::MaskOf<Num> is_on;  ///< else the values are outside the chart
};
template <class Num>
[[gnu::always_inline]] inline CellOf<Num> cell_of(const Axes& axes, Num first, Num second) {
  const auto x = axes.first(first), y = axes.second(second);
  return {y.cell * numbers::WholeOf<Num>(axes.first.cells) + x.cell, x.place, y.place,
          numbers::both(axes.first.has(x.cell), axes.second.has(y.cell))};
}

/// No patches outside the chart and in cells without states.
[[gnu::always_inline]] inline Place place(const Chart& chart, double first, double second) {
  const CellOf<double> cell = cell_of(chart.axes, first, second);
  if (!cell.is_on) {
    return {};
  }
  const PartOf part = chart.part_of(chart.word(cell.number), cell.x, cell.y);
  return {{part.word, chart.unknowns}, chart.polynomials(), part.x, part.y};
}

}  // namespace steam
