#pragma once

#include "numbers/power.hpp"
#include "numbers/powers_m5_17_table.hpp"

namespace numbers {

// z^(-5/17) is the costliest step of subregion 1, and everything after it waits for its result.
// With this one exponent and a base between 1/8 and 4 a power series beside the nearest of some
// hundred points is as exact as the power function and several times as fast.
namespace power_5_17 {

constexpr double lowest = 0.125, beyond = 4, exponent = -5.0 / 17;

/// Coefficients of (1 + r)^(-5/17).
constexpr auto series = [] {
  std::array<double, 8> c{1};
  for (std::size_t k = 1; k < c.size(); ++k) {
    const auto n = static_cast<double>(k);
    c[k] = c[k - 1] * (exponent - (n - 1)) / n;
  }
  return c;
}();

template <class Num>
[[gnu::always_inline]] inline auto is_tabulated(Num z) {
  return both(z >= Num(lowest), z < Num(beyond));
}

/// @param z  from 1/8 to 4
template <class Num>
[[gnu::always_inline]] inline Num tabulated(Num z) {
  constexpr int cell_bits = 46;
  constexpr std::int64_t first = std::bit_cast<std::int64_t>(lowest);
  const auto index = shifted_right(bits_of(z) - WholeOf<Num>(first), cell_bits);
  const auto [at, inverse, power] = look_up_row(index, powers_m5_17);
  const auto& c = series;
  const Num r = (z - at) * inverse;
  const Num r2 = r * r;
  const Num sum =
      ((c[1] + c[2] * r) + r2 * (c[3] + c[4] * r)) + r2 * r2 * ((c[5] + c[6] * r) + r2 * c[7]);
  return power + power * r * sum;
}

template <class Num>
[[gnu::noinline, gnu::cold]] Num anywhere(Num z) {
  const auto inside = is_tabulated(z);
  return select(inside, tabulated(select(inside, z, Num(1))), power(z, exponent));
}

}  // namespace power_5_17

/// z^(-5/17), to 0.52 units in the last place; not a number for z < 0.
template <class Num>
[[gnu::always_inline]] inline Num to_minus_5_17(Num z) {
  if (!all(power_5_17::is_tabulated(z))) [[unlikely]] {
    return power_5_17::anywhere(z);
  }
  return power_5_17::tabulated(z);
}

}  // namespace numbers
