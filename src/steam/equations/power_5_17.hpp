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

/// The sum of two numbers, of which the second is below the rounding of the first: a product has
/// all its digits, on every platform.
struct Exact {
  double high, low = 0;
};
constexpr Exact operator*(Exact a, Exact b) {
  const auto upper_half = [](double x) {
    constexpr double splitter = 0x1p27 + 1;
    return splitter * x - (splitter * x - x);
  };
  const double a1 = upper_half(a.high), a2 = a.high - a1;
  const double b1 = upper_half(b.high), b2 = b.high - b1;
  const double high = a.high * b.high;
  const double lost = ((a1 * b1 - high) + a1 * b2 + a2 * b1) + a2 * b2;
  const double low = lost + (a.high * b.low + a.low * b.high);
  const double sum = high + low;
  return {sum, low - (sum - high)};
}

/// z^(-5/17), from a neighbour's: Newton's iteration on y¹⁷ z⁵ = 1, the last step in `Exact`.
constexpr double from(double y, double z) {
  const auto y17_z5 = [z]<class Num>(Num of_y) {
    const Num y2 = of_y * of_y, y4 = y2 * y2, y8 = y4 * y4, of_z{z}, z2 = of_z * of_z;
    return y8 * y8 * of_y * (z2 * z2 * of_z);
  };
  constexpr int rough_steps = 3;
  for (int n = 0; n < rough_steps; ++n) {
    y += y * (1 - y17_z5(y)) / 17;
  }
  const Exact one = y17_z5(Exact{y});
  return y + y * ((1 - one.high) - one.low) / 17;
}

constexpr auto points = [] {
  std::array<Point, points_per_octave * octaves> all{};
  double y = 1.84;  // next to that of 1/8
  for (std::size_t i = 0; i < all.size(); ++i) {
    constexpr std::uint64_t half = std::uint64_t{1} << (mantissa_bits - 1);
    const auto z = std::bit_cast<double>(((first + i) << mantissa_bits) + half);
    y = from(y, z);
    all[i] = {z, 1 / z, y};
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
