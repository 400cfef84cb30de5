#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace steam {

// z^(-5/17) is the costliest step of subregion 1, and everything after it waits for its result. The
// power function of the library takes any base and exponent; with this one exponent and a base
// between 1/8 and 4 a power series beside the nearest of some hundred points is as exact and three
// times as fast.
namespace power_5_17 {

constexpr std::size_t points_per_octave = 64, octaves = 5;
constexpr int mantissa_bits = 46;
constexpr double lowest = 0.125;
constexpr std::uint64_t first = std::bit_cast<std::uint64_t>(lowest) >> mantissa_bits;

struct Point {
  double z, inverse, power;
};

/// z^(-5/17), from a neighbour's: Newton's iteration on y¹⁷ z⁵ = 1.
constexpr long double from(long double y, long double z) {
  constexpr int steps = 6;
  for (int n = 0; n < steps; ++n) {
    const long double y2 = y * y, y4 = y2 * y2, y8 = y4 * y4, z2 = z * z;
    y += y * (1 - y8 * y8 * y * (z2 * z2 * z)) / 17;
  }
  return y;
}

constexpr auto points = [] {
  std::array<Point, points_per_octave * octaves> all{};
  long double y = 1.84L;  // next to that of 1/8
  for (std::size_t i = 0; i < all.size(); ++i) {
    constexpr std::uint64_t half = std::uint64_t{1} << (mantissa_bits - 1);
    const auto z = std::bit_cast<double>(((first + i) << mantissa_bits) + half);
    y = from(y, static_cast<long double>(z));
    all[i] = {z, 1 / z, static_cast<double>(y)};
  }
  return all;
}();

/// Coefficients of (1 + r)^(-5/17).
constexpr auto series = [] {
  std::array<double, 8> c{1};
  for (std::size_t k = 1; k < c.size(); ++k) {
    const auto n = static_cast<double>(k);
    c[k] = c[k - 1] * (-5.0 / 17 - (n - 1)) / n;
  }
  return c;
}();

}  // namespace power_5_17

/// z^(-5/17), to one unit in the last place.
inline double to_minus_5_17(double z) {
  using namespace power_5_17;
  const std::uint64_t index = (std::bit_cast<std::uint64_t>(z) >> mantissa_bits) - first;
  if (index >= points.size()) {
    return std::pow(z, -5.0 / 17);
  }
  const Point& at = points[static_cast<std::size_t>(index)];
  const auto& c = series;
  const double r = (z - at.z) * at.inverse;
  const double r2 = r * r;
  const double sum =
      ((c[1] + c[2] * r) + r2 * (c[3] + c[4] * r)) + r2 * r2 * ((c[5] + c[6] * r) + r2 * c[7]);
  return at.power + at.power * r * sum;
}

}  // namespace steam
