#pragma once

#include <bit>
#include <cstdint>

#include "numbers/lanes.hpp"

namespace steam {

/// A place on one axis: the cell, and from -1 to 1 the place in it.
template <class Num>
struct CoordinateOf {
  numbers::WholeOf<Num> cell;
  Num place;
};
using Coordinate = CoordinateOf<double>;

/// One axis of a table. Volumes and pressures of many decades are divided by octaves: every factor
/// of two has the same number of equal cells, so that a number's leading bits are its cell and the
/// rest of them its place. Other quantities have equal cells all over.
struct Axis {
  int cells;
  int shift;           // bits below those that count cells; 0 for equal cells
  std::int64_t first;  // those that count, of the first cell
  double origin, scale;

  /// @return  a cell outside 0 … cells - 1 for values outside the axis and what is no number
  template <class Num>
  [[nodiscard, gnu::always_inline]] CoordinateOf<Num> operator()(Num value) const {
    using Whole = numbers::WholeOf<Num>;
    if (shift > 0) {
      const Whole bits = numbers::bits_of(value);
      const Whole rest = bits & Whole((std::int64_t{1} << shift) - 1);
      const Whole one = numbers::bits_of(Num(1));
      const Num beyond_1 = numbers::from_bits(Whole(rest << (52 - shift)) | one);  // below 2
      return {numbers::shifted_right(bits, shift) - Whole(first), 2 * beyond_1 - 3};
    }
    const Num i = (value - origin) * scale;
    const auto inside = numbers::both(i >= 0, i < cells);
    const Num on = numbers::select(inside, i, Num(0));
    return {numbers::select(inside, numbers::whole_below(on), Whole(-1)),
            2 * (on - numbers::below(on)) - 1};
  }

  template <class Whole>
  [[nodiscard, gnu::always_inline]] auto has(Whole cell) const {
    return numbers::both(cell >= Whole(0), cell < Whole(cells));
  }

  /// The value at the lower side of a cell.
  [[nodiscard]] double lower_side(int cell) const {
    return shift > 0 ? side(first + cell) : origin + cell / scale;
  }

 private:
  [[nodiscard]] double side(std::int64_t cell) const {
    return std::bit_cast<double>(cell << shift);
  }
};

struct Interval {
  double low, high;
};

constexpr Axis equal_cells(Interval range, int cells) {
  return {cells, 0, 0, range.low, cells / (range.high - range.low)};
}

/// @param power  of two: the number of cells per octave
constexpr Axis octaves(Interval range, int power) {
  const int shift = 52 - power;
  const auto first = std::bit_cast<std::int64_t>(range.low) >> shift;
  const auto last = std::bit_cast<std::int64_t>(range.high) >> shift;
  return {static_cast<int>(last - first) + 1, shift, first, 0, 0};
}

}  // namespace steam
