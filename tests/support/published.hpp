#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

/// Expects a value that agrees with a printed number to half a unit of its last printed digit.
inline void expect_printed(const char* name, double value, const std::string& printed) {
  const auto point = printed.find('.');
  const auto decimals = point == std::string::npos ? 0 : printed.size() - point - 1;
  const double half_unit = 0.5 * std::pow(10.0, -static_cast<double>(decimals));
  // The comparison itself rounds, and so does the printed number on its way into a double.
  const double rounding = 4e-16 * std::abs(value);
  EXPECT_NEAR(value, std::atof(printed.c_str()), half_unit + rounding) << name;
}
