#include <gtest/gtest.h>

#include <cmath>

#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "support/published.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

double pressure_at(double t) { return VEKQPT(&t); }

}  // namespace

TEST(SaturationPressure, HasThePrintedValues) {
  struct Row {
    double t;
    const char* p;
  };
  constexpr Row rows[] = {{0, "0.0061080"},       {0.01, "0.006112444002"}, {100, "1.01325262"},
                          {200, "15.54880245"},   {300, "85.92691998"},     {350, "165.3512406"},
                          {374.15, "221.2000000"}};
  for (const Row& row : rows) {
    expect_printed("p", pressure_at(row.t), row.p);
  }
  EXPECT_EQ(pressure_at(374.15), 221.2);
}

TEST(SaturationPressure, AgreesWithTheEquationInManyDigits) {
  for (double t = 0; t < 374.15; t += 1.87) {
    const auto expected = canonical::saturation(t);
    EXPECT_NEAR(pressure_at(t) / expected.p, 1, 2e-14) << t;
    EXPECT_EQ(VEKQPT_with_slope(&t), pressure_at(t));
    // Nine-digit copies of the coefficients, and the factor 1/80.3334 in the place of 1/647.3.
    EXPECT_NEAR(saturation_slope / (expected.dp_dt * 647.3 / 80.3334), 1, 2e-9) << t;
  }
}

TEST(SaturationPressure, IsRefusedAboveTheCriticalTemperatureOnly) {
  DiagnosticLines lines;
  const double t = 300;
  VEKQPT_with_slope(&t);
  const double slope = saturation_slope;
  EXPECT_EQ(pressure_at(up(374.15)), -1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN VEKQPT,T= 374.15\n");
  const double hot = 400;
  EXPECT_EQ(VEKQPT_with_slope(&hot), -1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 2  OUT OF RANGE IN VEKQPT,T= 400\n");
  EXPECT_EQ(saturation_slope, slope);
  EXPECT_EQ(pressure_at(inf), -1);
  lines.take();
  EXPECT_TRUE(std::isnan(pressure_at(not_a_number)));
  EXPECT_GT(pressure_at(-40), 0);
  EXPECT_EQ(pressure_at(-273), 0);
  EXPECT_EQ(lines.take(), "");
}

TEST(NewtonSaturationTemperature, FindsTheCriticalPointAtOnceAndRefusesWhatIsAbove) {
  DiagnosticLines lines;
  const double p = 221.2;
  EXPECT_EQ(VEKQTP(&p), 374.15);
  EXPECT_EQ(lines.take(), "");
  const double above = up(221.2);
  EXPECT_TRUE(std::isnan(VEKQTP(&above)));
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN VEKQTP,P= 221.2\n");
}

// The start value lies at absolute zero: the pressure and the slope vanish there, the first step is
// infinite, and each of the 29 other evaluations is refused.
TEST(NewtonSaturationTemperature, DoesNotConvergeBelowTheCriticalPressure) {
  for (const double p : {0.01, down(221.2)}) {
    SCOPED_TRACE(p);
    DiagnosticLines lines;
    EXPECT_EQ(VEKQTP(&p), inf);
    EXPECT_EQ(saturation_slope, 0);
    EXPECT_EQ(ErrorCount, 30);
    const std::string text = lines.take();
    EXPECT_NE(text.find("OUT OF RANGE IN VEKQPT,T= inf\n"), std::string::npos);
    EXPECT_NE(text.find("NON CONVERGENT IN VEKQTP,P= "), std::string::npos);
    EXPECT_EQ(text.find("OUT OF RANGE IN VEKQTP"), std::string::npos);
  }
}
