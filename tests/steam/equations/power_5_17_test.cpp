#include "steam/equations/power_5_17.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

/// Of a computed power, in units of the last digit.
double error(double z, double power) {
  const long double exact = std::pow(static_cast<long double>(z), -5.0L / 17);
  const auto rounded = static_cast<double>(exact);
  const double unit = std::nextafter(rounded, HUGE_VAL) - rounded;
  return static_cast<double>(std::abs(static_cast<long double>(power) - exact)) / unit;
}

TEST(PowerM5Of17, IsTabulatedWithoutAnyErrorButOneRounding) {
  for (const auto& at : steam::power_5_17::points) {
    EXPECT_LE(error(at.z, at.power), 0.501) << at.z;
  }
}

/// At the sides of the cells and everywhere, within the table and on both sides of it.
TEST(PowerM5Of17, IsExactToItsLastDigit) {
  std::mt19937_64 random(1967);
  std::uniform_real_distribution logarithm(-3.5, 3.0);
  for (int i = 0; i < 200000; ++i) {
    const double side = std::ldexp(1 + i % 64 / 64.0, i / 64 % 9 - 5);
    for (const double z : {side, std::nextafter(side, 0), std::exp(logarithm(random))}) {
      ASSERT_LE(error(z, steam::to_minus_5_17(z)), 1.5) << z;
    }
  }
  EXPECT_TRUE(std::isnan(steam::to_minus_5_17(-1)));
  EXPECT_TRUE(std::isnan(steam::to_minus_5_17(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
