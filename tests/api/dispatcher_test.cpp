#include <gtest/gtest.h>

#include <array>

#include "api/vek.h"

TEST(Dispatcher, FillsOneSlotPerItem) {
  const double p = 10;
  const double t = 100;
  std::array<double, 2> r{};
  vek(vekrpt_, &p, &t, "H,S ", r.data());
  EXPECT_NEAR(r[0], 419.738642, 5e-7);
  EXPECT_NEAR(r[1], 1.306163754, 5e-10);
  EXPECT_EQ(VEKHasError(), 0);
}
