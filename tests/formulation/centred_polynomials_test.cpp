#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "formulation/subregion1.hpp"
#include "formulation/subregion2_moments.hpp"
#include "formulation/subregion3_derivatives.hpp"

using namespace formulation;

namespace {

/// Coefficients in powers of x - centre, by repeated division.
template <std::size_t N>
std::array<long double, N> moved(std::array<long double, N> c, long double centre) {
  for (std::size_t done = 0; done + 1 < N; ++done) {
    for (std::size_t i = N - 1; i-- > done;) {
      c[i] += centre * c[i + 1];
    }
  }
  return c;
}

/// The same to the last bit where the machine has the precision in which the numbers were computed,
/// elsewhere within the rounding of the sums.
template <std::size_t N>
void expect_centred(const Centred<N>& polynomial) {
  std::array<long double, N> c{}, sizes{};
  for (std::size_t i = 0; i < N; ++i) {
    c[i] = static_cast<long double>(polynomial.published[i]);
    sizes[i] = std::abs(c[i]);
  }
  const auto centre = static_cast<long double>(polynomial.centre);
  c = moved(c, centre);
  sizes = moved(sizes, centre);
  using Limits = std::numeric_limits<long double>;
  constexpr auto rounding = std::max<long double>(Limits::epsilon(), 0x1p-63L) * N;
  for (std::size_t i = 0; i < N; ++i) {
    const double around = polynomial.around[i];
    if constexpr (Limits::digits == 64) {
      EXPECT_EQ(around, static_cast<double>(c[i])) << i;
    }
    EXPECT_NEAR(around, static_cast<double>(c[i]), static_cast<double>(sizes[i] * rounding)) << i;
  }
}

}  // namespace

TEST(CentredPolynomials, AreThePublishedOnes) {
  expect_centred(subregion1::h_polynomial);
  expect_centred(subregion1::s_polynomial);
  expect_centred(subregion1::cp_polynomial);
  expect_centred(subregion2::S);
  expect_centred(subregion3::C6_0);
  expect_centred(subregion3::C6_1);
  expect_centred(subregion3::C6_2);
}
