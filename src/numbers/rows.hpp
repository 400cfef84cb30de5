#pragma once

#include <array>
#include <cstddef>

#include "numbers/lanes.hpp"

namespace numbers {

/// The row of a table that belongs to each lane.
template <class Num, class Element>
struct Rows {
  std::array<const Element*, static_cast<std::size_t>(width_of<Num>)> of;

  /// Element number i of each row.
  [[gnu::always_inline]] Num operator[](std::size_t i) const {
    if constexpr (width_of<Num> == 1) {
      return static_cast<double>(of[0][i]);
    } else {
      Num all;
      for (std::size_t lane = 0; lane < of.size(); ++lane) {
        all.v[lane] = static_cast<double>(of[lane][i]);
      }
      return all;
    }
  }
  /// The first elements of each row.
  template <std::size_t count>
  [[gnu::always_inline]] std::array<Num, count> first() const {
    std::array<Num, count> all;
    for (std::size_t i = 0; i < count; ++i) {
      all[i] = (*this)[i];
    }
    return all;
  }
};

/// Rows by what row(x) points to for the whole number in each lane.
template <class Element, class Num, class Row>
[[gnu::always_inline]] inline Rows<Num, Element> rows_of(WholeOf<Num> x, const Row& row) {
  Rows<Num, Element> rows;
  for (std::size_t lane = 0; lane < rows.of.size(); ++lane) {
    rows.of[lane] = row(lane_of(x, lane));
  }
  return rows;
}

}  // namespace numbers
