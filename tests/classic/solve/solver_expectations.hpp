#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

/// The line that says that a solver reached its limit.
inline std::string warning(const std::string& code) {
  return "*** VEKFTN-WARNING: Maximum number of iterations exceeded (code: " + code + ") ***\n";
}

/// Equal, or both not a number.
inline bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

inline void expect_same(const std::vector<double>& values, const std::vector<double>& expected) {
  ASSERT_EQ(values.size(), expected.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_TRUE(same(values[i], expected[i])) << "number " << i << " is " << values[i];
  }
}
