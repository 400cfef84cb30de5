#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

/// The Chebyshev points of a cell, from -1 to 1.
template <std::size_t N>
std::array<double, N> chebyshev_points() {
  std::array<double, N> points{};
  for (std::size_t i = 0; i < N; ++i) {
    points[i] = std::cos((2 * static_cast<double>(i) + 1) * std::numbers::pi / (2.0 * N));
  }
  return points;
}

/// The polynomial through values at the Chebyshev points of a cell, in powers of the place.
template <std::size_t N>
std::array<double, N> interpolated(const std::array<double, N>& at_points) {
  const std::array<double, N> points = chebyshev_points<N>();
  std::array<long double, N> values{}, c{};
  std::copy(at_points.begin(), at_points.end(), values.begin());
  for (std::size_t order = 1; order < N; ++order) {  // divided differences
    for (std::size_t i = N - 1; i >= order; --i) {
      values[i] =
          (values[i] - values[i - 1]) / (static_cast<long double>(points[i]) - points[i - order]);
    }
  }
  c[0] = values[N - 1];
  for (std::size_t i = N - 1; i-- > 0;) {  // from Newton's form to powers
    for (std::size_t k = N - 1; k > 0; --k) {
      c[k] = c[k - 1] - points[i] * c[k];
    }
    c[0] = values[i] - points[i] * c[0];
  }
  std::array<double, N> result{};
  for (std::size_t i = 0; i < N; ++i) {
    result[i] = static_cast<double>(c[i]);
  }
  return result;
}
