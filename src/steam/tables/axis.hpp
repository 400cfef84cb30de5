#pragma once

#include <bit>
#include <cstdint>

namespace steam {

/// A place on one axis: the cell, and from -1 to 1 the place in it.
struct Coordinate {
  int cell;
  double place;
};

/// One axis of a table. Volumes and pressures of many decades are divided by octaves: every factor
/// of two has the same number of equal cells, so that a number's leading bits are its cell and the
/// rest of them its place. Other quantities have equal cells all over.
struct Axis {
  int cells;
  int shift;           // bits below those that count cells; 0 for equal cells
  std::int64_t first;  // those that count, of the first cell
  double origin, scale;

  /// @return  a cell outside 0 … cells - 1 for values outside the axis and what is no number
  [[nodiscard, gnu::always_inline]] Coordinate operator()(double value) const {
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
