#include <gtest/gtest.h>

#include <cmath>

#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

double pressure_at(double t) { return VEKQPT(&t); }

}  // namespace

TEST(SaturationPressure, AgreesWithTheEquationInManyDigits) {
  for (double t = 0; t < 374.15; t += 1.87) {
    const auto expected = canonical::saturation(t);
    EXPECT_NEAR(pressure_at(t) / expected.p, 1, 2e-14) << t;
    EXPECT_EQ(VEKQPT_with_slope(&t), pressure_at(t));
    // Nine-digit copies of the coefficients, and the factor 1/80.3334 in the place of 1/647.3.
    EXPECT_NEAR(saturation_slope / (expected.dp_dt * 647.3 / 80.3334), 1, 2e-9) << t;
  }
  EXPECT_EQ(pressure_at(374.15), 221.2);
}

TEST(SaturationPressure, IsRefusedAboveTheCriticalTemperatureOnly) {
  DiagnosticLines lines;
  const double t = 300, hot = 400;
  VEKQPT_with_slope(&t);
  const double slope = saturation_slope;
  EXPECT_EQ(pressure_at(up(374.15)), -1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN VEKQPT,T= 374.15\n");
  EXPECT_EQ(VEKQPT_with_slope(&hot), -1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 2  OUT OF RANGE IN VEKQPT,T= 400\n");
  EXPECT_EQ(saturation_slope, slope);
  EXPECT_TRUE(std::isnan(pressure_at(not_a_number)));
  EXPECT_EQ(pressure_at(-273), 0);
  EXPECT_EQ(lines.take(), "");
}

// Below the critical pressure the start value lies at absolute zero: the pressure and the slope
// vanish there, the first step is infinite, and each of the 29 other evaluations is refused.
TEST(NewtonSaturationTemperature, FindsTheCriticalPointAtOnceAndNothingElse) {
  DiagnosticLines lines;
  const double critical = 221.2, above = up(221.2);
  EXPECT_EQ(VEKQTP(&critical), 374.15);
  EXPECT_EQ(lines.take(), "");
  EXPECT_TRUE(std::isnan(VEKQTP(&above)));
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN VEKQTP,P= 221.2\n");
  for (const double p : {0.01, down(221.2)}) {
    ErrorCount = 0;
    EXPECT_EQ(VEKQTP(&p), inf);
    EXPECT_EQ(saturation_slope, 0);
    EXPECT_EQ(ErrorCount, 30);
    const std::string text = lines.take();
    EXPECT_NE(text.find("OUT OF RANGE IN VEKQPT,T= inf\n"), std::string::npos);
    EXPECT_NE(text.find("NON CONVERGENT IN VEKQTP,P= "), std::string::npos);
  }
}
