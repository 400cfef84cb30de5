#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

#include "formulation/subregion1.hpp"
#include "formulation/subregion2_moments.hpp"
#include "formulation/subregion3_derivatives.hpp"

using namespace formulation;

namespace {

/// Coefficients in powers of x - centre, by repeated division: the same to the last bit, in the
/// precision in which the numbers were computed.
template <std::size_t N>
void expect_centred(const Centred<N>& polynomial) {
  std::array<long double, N> c{};
  std::copy(polynomial.published.begin(), polynomial.published.end(), c.begin());
  for (std::size_t done = 0; done + 1 < N; ++done) {
    for (std::size_t i = N - 1; i-- > done;) {
      c[i] += static_cast<long double>(polynomial.centre) * c[i + 1];
    }
  }
  for (std::size_t i = 0; i < N; ++i) {
    EXPECT_EQ(polynomial.around[i], static_cast<double>(c[i])) << i;
  }
}

}  // namespace

TEST(CentredPolynomials, AreThePublishedOnes) {
  if (std::numeric_limits<long double>::digits != 64) {
    GTEST_SKIP() << "another precision rounds some last digits differently";
  }
  expect_centred(subregion1::h_polynomial);
  expect_centred(subregion1::s_polynomial);
  expect_centred(subregion1::cp_polynomial);
  expect_centred(subregion2::S);
  expect_centred(subregion3::C6_0);
  expect_centred(subregion3::C6_1);
  expect_centred(subregion3::C6_2);
}
