#include <gtest/gtest.h>

#include "api/vek.h"

TEST(FromPressureAndTemperature, PlacesWater) {
  double p = 10;
  double t = 100;
  double tol = 1e-8;
  EXPECT_EQ(vekrpt_(&p, &t, &tol), 1);
  EXPECT_EQ(p, 10);
  EXPECT_EQ(t, 100);
}
