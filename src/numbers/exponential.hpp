#pragma once

#include "numbers/look_up.hpp"
#include "numbers/powers_of_2_table.hpp"

namespace numbers {

// The elementary functions are the engine's own: those of each platform's library round
// differently. These take additions, multiplications and bits alone, one after the other as
// written, and so have the same bits on every platform and in every lane.

/// Adding it rounds a double to a whole number, which then stands in its lowest bits.
constexpr double to_whole = 0x1.8p52;
constexpr int mantissa_bits = 52;

/// e to the power of x + low, as (scale + scale * rest) 2^k. `low` is below the rounding of x.
template <class Num>
struct Exponential {
  Num scale, rest;
  WholeOf<Num> k;  // where a double has its exponent

  [[gnu::always_inline]] explicit Exponential(Num x, Num low = 0) {
    constexpr int index_bits = 7;
    constexpr std::int64_t last_index = (1 << index_bits) - 1;
    constexpr double steps = 0x1.71547652b82fep+7;  // 128 / ln 2
    // ln 2 / 128. The upper part has 35 digits and n at most 18, so that their product is exact.
    constexpr double upper = 0x1.62e42fefcp-8, lower = -0x1.c610ca86c3899p-44;
    const Num shifted = x * steps + to_whole;
    const WholeOf<Num> whole = bits_of(shifted), index = whole & last_index;
    const Num n = shifted - to_whole;
    const Num r = ((x - n * upper) - n * lower) + low;
    const Num r2 = r * r;
    const auto [power, tail] = look_up_row(index, powers_of_2);
    scale = power;
    rest = (tail + r) + (r2 * (0.5 + r * (1.0 / 6)) + r2 * r2 * (1.0 / 24 + r * (1.0 / 120)));
    k = (whole - index) << (mantissa_bits - index_bits);
  }

  /// Where no intermediate result leaves the range of a double.
  [[gnu::always_inline]] Num value() const {
    const Num scaled = from_bits(bits_of(scale) + k);
    return scaled + scaled * rest;
  }
  /// For any k that a double has as its exponent, and half as many again.
  [[gnu::always_inline]] Num value_anywhere() const {
    constexpr std::int64_t half = std::int64_t{512} << mantissa_bits;
    const auto small = k < WholeOf<Num>(0);
    const Num scaled =
        from_bits(bits_of(scale) + k + select(small, WholeOf<Num>(half), WholeOf<Num>(-half)));
    return (scaled + scaled * rest) * select(small, Num(0x1p-512), Num(0x1p512));
  }
};

/// Beyond it the steps towards e^x overflow or underflow.
constexpr double exponential_plain = 600;

template <class Num>
[[gnu::noinline, gnu::cold]] Num exponential_anywhere(Num x, Num low) {
  constexpr double farthest = 800;  // 0 and infinity are reached
  const Num within = smaller(larger(x, Num(-farthest)), Num(farthest));
  const Num value = Exponential<Num>(within, low).value_anywhere();
  return select(x == x, value, x);
}

/// e to the power of x + low. `low` is below the rounding of x.
template <class Num>
[[gnu::always_inline]] inline Num exponential(Num x, Num low) {
  if (!all(abs(x) < Num(exponential_plain))) [[unlikely]] {
    return exponential_anywhere(x, low);
  }
  return Exponential<Num>(x, low).value();
}

/// e to the power of x, to 0.52 units in the last place (0.76 among the numbers below 2^-1022).
template <class Num>
[[gnu::always_inline]] inline Num exp(Num x) {
  return exponential(x, Num(0));
}

}  // namespace numbers
