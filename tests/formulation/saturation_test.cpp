#include <gtest/gtest.h>

#include "formulation/routines.hpp"

using namespace classic;

TEST(SaturationPressure, IsTheCriticalPressureAtTheCriticalTemperature) {
  const double t = 374.15;
  EXPECT_EQ(VEKQPT(&t), 221.2);
}
