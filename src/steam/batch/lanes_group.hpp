#pragma once

#include <algorithm>
#include <bit>

#include "steam/batch/block.hpp"

namespace steam {

/// Calls f(lane) with those of a set of lanes, as bits.
template <class F>
[[gnu::always_inline]] inline void each_lane_of(unsigned lanes, const F& f) {
  for (; lanes != 0; lanes &= lanes - 1) {
    f(static_cast<std::size_t>(std::countr_zero(lanes)));
  }
}

/// Of values by row those of rows that follow each other.
template <class Num>
[[gnu::always_inline]] inline Num loaded(const std::array<double, Block::most>& values,
                                         std::size_t first) {
  Num all;
  std::memcpy(&all, &values[first], sizeof all);
  return all;
}
template <class Num>
[[gnu::always_inline]] inline void store(std::array<double, Block::most>& values, std::size_t first,
                                         Num all) {
  std::memcpy(&values[first], &all, sizeof all);
}

/// Rows of a block that begin in one subregion.
template <class Num>
struct Group {
  static constexpr int width = numbers::width_of<Num>;
  std::array<std::uint16_t, static_cast<std::size_t>(width)> row;
  unsigned lanes;  ///< those that hold a row of their own, as bits
  bool are_next;   ///< whether all do, of rows that follow each other

  [[nodiscard]] Num of(const std::array<double, Block::most>& values) const {
    if (are_next) {
      return loaded<Num>(values, row[0]);
    }
    Num all;
    for (int lane = 0; lane < width; ++lane) {
      all.set(lane, values[row[static_cast<std::size_t>(lane)]]);
    }
    return all;
  }
};

/// Calls f(group) with all rows of a list; the last group repeats its last row in lanes that have
/// none.
template <class Num, class F>
void each_group(const RowList& list, const F& f) {
  constexpr auto width = static_cast<std::size_t>(Group<Num>::width);
  for (std::size_t begin = 0; begin < list.count; begin += width) {
    Group<Num> group;
    const std::size_t own = std::min(width, list.count - begin);
    group.lanes = (1U << own) - 1;
    group.are_next = own == width;
    for (std::size_t lane = 0; lane < width; ++lane) {
      group.row[lane] = list.row[begin + std::min(lane, own - 1)];
      group.are_next &= group.row[lane] == group.row[0] + lane;
    }
    f(group);
  }
}

/// What becomes of the lanes of a group.
template <class Num>
struct Fate {
  MaskOf<Num> found;  ///< the state that counts
  MaskOf<Num> next;   ///< surely not in this subregion: the next patch of the cell is tried
};

}  // namespace steam
