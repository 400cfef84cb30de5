#pragma once

#include "numbers/exponential.hpp"
#include "numbers/logarithm.hpp"

namespace numbers {

/// The sum of two numbers, of which the second is below the rounding of the first.
template <class Num>
struct Sum {
  Num high, low;
};

/// The upper half of the digits; that of two numbers have an exact product.
template <class Num>
[[gnu::always_inline]] inline Num upper_half(Num x) {
  constexpr std::int64_t upper_bits = ~((std::int64_t{1} << 27) - 1);
  return from_bits(bits_of(x) & WholeOf<Num>(upper_bits));
}

/// The natural logarithm with some fifteen digits more.
template <class Num>
[[gnu::always_inline]] inline Sum<Num> exact_logarithm(const LogarithmParts<Num>& s) {
  const Num r = s.r, r_upper = upper_half(r);
  const Num sum = s.high + r, lost = (s.high - sum) + r;
  const Num square = r_upper * r_upper * -0.5, high = sum + square;  // exact, but for the last sum
  const Num rest_of_square = (r - r_upper) * (r + r_upper) * -0.5;
  const Num low = ((lost + s.low) + ((sum - high) + square)) +
                  (rest_of_square + r * r * r * logarithm_series(r));
  const Num all = high + low;
  return {all, (high - all) + low};
}

template <class Num>
[[gnu::always_inline]] inline Sum<Num> product(Sum<Num> a, double b) {
  const Num a_upper = upper_half(a.high);
  const double b_upper = upper_half(b);
  return {a_upper * b_upper, (a.high - a_upper) * b_upper + (a.high * (b - b_upper) + a.low * b)};
}

template <class Num>
[[gnu::noinline, gnu::cold]] Num power_anywhere(Num x, double exponent) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const auto at = product(exact_logarithm(logarithm_parts_anywhere(x)), exponent);
  const Num finite = exponential(at.high, at.low);
  const Num of_0 = exponent > 0 ? 0 : infinity, of_infinity = exponent > 0 ? infinity : 0;
  const Num beyond = select(
      x == Num(0), of_0,
      select(x == Num(infinity), of_infinity, Num(std::numeric_limits<double>::quiet_NaN())));
  return select(both(x > Num(0), x < Num(infinity)), finite, beyond);
}

/// x to a power between -20 and 20 but 0, to 0.54 units in the last place (0.77 among the results
/// below 2^-1022); not a number for x < 0.
template <class Num>
[[gnu::always_inline]] inline Num power(Num x, double exponent) {
  if (!all(is_plain(x))) [[unlikely]] {
    return power_anywhere(x, exponent);
  }
  const auto at = product(exact_logarithm(LogarithmParts<Num>(x)), exponent);
  return exponential(at.high, at.low);
}

}  // namespace numbers
