#pragma once

#include <limits>

#include "numbers/exponential.hpp"
#include "numbers/logarithms_table.hpp"
#include "numbers/look_up.hpp"

namespace numbers {

/// The natural logarithm of x as (high + r) + low + ln(1 + r) - r, where high + r is exact but for
/// the sum itself: next to 1 high and low are 0.
template <class Num>
struct LogarithmParts {
  Num high, r, low;

  /// @param x  positive, normal, finite
  /// @param k  what the exponent of x is too large by
  [[gnu::always_inline]] explicit LogarithmParts(Num x, Num k = 0) {
    constexpr int cell_bits = 45;
    constexpr std::int64_t cells = 128, exponent = ~((std::int64_t{1} << mantissa_bits) - 1);
    // Cells of the bits, of which one has 1 in its middle.
    constexpr std::int64_t first = 0x3fe6100000000000;
    constexpr double upper_ln2 = 0x1.62e42fefa38p-1, lower_ln2 = 0x1.ef35793c7673p-45;
    constexpr std::int64_t upper_half = ~((std::int64_t{1} << 27) - 1);

    const WholeOf<Num> from_first = bits_of(x) - first;
    const WholeOf<Num> index = shifted_right(from_first, cell_bits) & (cells - 1);
    // The power of 2 becomes a double by standing in the lowest bits of a large one.
    constexpr std::int64_t positive = std::int64_t{1023} << mantissa_bits;
    constexpr double large = 0x1p52;
    const Num n = from_bits(shifted_right(from_first + positive, mantissa_bits) |
                            WholeOf<Num>(bits_of(large))) -
                  (large + 1023) - k;
    const Num z = from_bits(bits_of(x) - (from_first & exponent));
    const auto [inverse, value, rest] = look_up_row(index, logarithms);

    // inverse has 12 digits: both products are exact, and so is the first difference.
    const Num z_upper = from_bits(bits_of(z) & upper_half);
    const Num a = z_upper * inverse - 1, b = (z - z_upper) * inverse;
    r = a + b;
    const Num r_low = b - (r - a);
    high = n * upper_ln2 + value;
    low = (n * lower_ln2 + rest) + (r_low - r_low * r);
  }
};

/// (ln(1 + r) - r + r²/2) / r³, |r| < 0.0042.
template <class Num>
[[gnu::always_inline]] inline Num logarithm_series(Num r) {
  const Num r2 = r * r;
  return (1.0 / 3 - r * (1.0 / 4)) + r2 * ((1.0 / 5 - r * (1.0 / 6)) + r2 * (1.0 / 7));
}

template <class Num>
[[gnu::always_inline]] inline Num logarithm(const LogarithmParts<Num>& s) {
  const Num sum = s.high + s.r, lost = (s.high - sum) + s.r;
  return sum + ((lost + s.low) + s.r * s.r * (s.r * logarithm_series(s.r) - 0.5));
}

template <class Num>
[[gnu::always_inline]] inline auto is_plain(Num x) {  // positive, normal, finite
  using Limits = std::numeric_limits<double>;
  return both(x >= Num(Limits::min()), x <= Num(Limits::max()));
}

/// The parts of a positive finite number, be it below the normal ones; those of 1 for any other.
template <class Num>
[[gnu::always_inline]] inline LogarithmParts<Num> logarithm_parts_anywhere(Num x) {
  using Limits = std::numeric_limits<double>;
  const auto small = both(x > Num(0), x < Num(Limits::min()));
  const Num up = select(small, x * 0x1p54, select(is_plain(x), x, Num(1)));
  return LogarithmParts<Num>(up, select(small, Num(54), Num(0)));
}

template <class Num>
[[gnu::noinline, gnu::cold]] Num logarithm_anywhere(Num x) {
  using Limits = std::numeric_limits<double>;
  const Num finite = logarithm(logarithm_parts_anywhere(x));
  const Num beyond = select(x == Num(0), Num(-Limits::infinity()),
                            select(x > Num(0), x, Num(Limits::quiet_NaN())));
  return select(both(x > Num(0), x <= Num(Limits::max())), finite, beyond);
}

/// The natural logarithm, to 0.52 units in the last place; not a number below 0, -∞ of 0.
template <class Num>
[[gnu::always_inline]] inline Num log(Num x) {
  if (!all(is_plain(x))) [[unlikely]] {
    return logarithm_anywhere(x);
  }
  return logarithm(LogarithmParts<Num>(x));
}

}  // namespace numbers
