#pragma once

#include <array>
#include <cstring>
#include <utility>

#include "numbers/lanes.hpp"

namespace numbers {

// Numbers of small tables, for an index in each lane.

/// table(index), such as an element of an array, for the index of each lane.
template <class Table>
[[gnu::always_inline]] inline double look_up(std::int64_t index, const Table& table) {
  return table(index);
}
template <int n, class Table>
[[gnu::always_inline]] inline Lanes<double, n> look_up(Lanes<std::int64_t, n> index,
                                                       const Table& table) {
  return [&]<int... lane>(std::integer_sequence<int, lane...>) __attribute__((always_inline)) {
    return Lanes<double, n>(typename Lanes<double, n>::All{table(index.v[lane])...});
  }
  (std::make_integer_sequence<int, n>{});
}

/// The first of each lane's two numbers, and the second.
template <int n, class Pair>
[[gnu::always_inline]] inline auto transposed(const Pair& of_lane) {
  using All = typename Vector<double, n>::Type;
  if constexpr (n == 2) {
    const All a = of_lane(0), b = of_lane(1);
    return std::pair(All(__builtin_shufflevector(a, b, 0, 2)),
                     All(__builtin_shufflevector(a, b, 1, 3)));
  } else if constexpr (n == 4) {
    const All a = __builtin_shufflevector(of_lane(0), of_lane(2), 0, 1, 2, 3);
    const All b = __builtin_shufflevector(of_lane(1), of_lane(3), 0, 1, 2, 3);
    return std::pair(All(__builtin_shufflevector(a, b, 0, 4, 2, 6)),
                     All(__builtin_shufflevector(a, b, 1, 5, 3, 7)));
  } else {
    const auto low = transposed<n / 2>(of_lane);
    const auto high = transposed<n / 2>([&](int lane) __attribute__((always_inline)) {
      return of_lane(n / 2 + lane);
    });
    return std::pair(All(__builtin_shufflevector(low.first, high.first, 0, 1, 2, 3, 4, 5, 6, 7)),
                     All(__builtin_shufflevector(low.second, high.second, 0, 1, 2, 3, 4, 5, 6, 7)));
  }
}

/// The numbers of a table's row, for the index of each lane.
template <std::size_t columns, std::size_t rows>
[[gnu::always_inline]] inline std::array<double, columns> look_up_row(
    std::int64_t index, const std::array<std::array<double, columns>, rows>& table) {
  const double* row = table[static_cast<std::size_t>(index)].data();
  return [&]<std::size_t... column>(std::index_sequence<column...>) __attribute__((always_inline)) {
    return std::array<double, columns>{row[column]...};
  }
  (std::make_index_sequence<columns>{});
}
template <int n, std::size_t columns, std::size_t rows>
[[gnu::always_inline]] inline std::array<Lanes<double, n>, columns> look_up_row(
    Lanes<std::int64_t, n> index, const std::array<std::array<double, columns>, rows>& table) {
  static_assert(columns == 2 || columns == 3);
  const auto row = [&](std::int64_t i) __attribute__((always_inline)) {
    return table[static_cast<std::size_t>(i)].data();
  };
  const auto [first, second] = transposed<n>([&](int lane) __attribute__((always_inline)) {
    typename Vector<double, 2>::Type two;
    std::memcpy(&two, row(index.v[lane]), sizeof two);
    return two;
  });
  if constexpr (columns == 2) {
    return {Lanes<double, n>(first), Lanes<double, n>(second)};
  } else {
    const auto third = look_up(index, [&](std::int64_t i) { return row(i)[2]; });
    return {Lanes<double, n>(first), Lanes<double, n>(second), third};
  }
}

}  // namespace numbers
