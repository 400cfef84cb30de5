#include "solve/root_solvers.hpp"

#include <gtest/gtest.h>

using namespace classic;

TEST(RootSolvers, FindTheRootOfALine) {
  const double target = 3;
  const double eps = 1e-8;
  double x1 = 0;
  double x2 = 5;
  const auto line = [](const double*, const double* x) { return 2 * *x - 1; };
  EXPECT_DOUBLE_EQ(VEKQI1(line, &target, &target, &x1, &x2, &eps), 2);
}
