#include "classic/solve/saturation_temperature.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "classic/equations/routines.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"

using namespace classic;

namespace {

constexpr double lowest = 0.006112444;

}  // namespace

TEST(SaturationTemperature, HasInclusiveLimits) {
  // The pressure as it is reported; empty: within the limits.
  const std::pair<double, std::string> rows[] = {
      {221.2, ""},  {up(221.2), "221.2"}, {lowest, ""},          {down(lowest), "0.00611244"},
      {inf, "inf"}, {-inf, "-inf"},       {not_a_number, "nan"},
  };
  for (const auto& [p, text] : rows) {
    SCOPED_TRACE(p);
    DiagnosticLines lines;
    const double t = VEKQIT(p);
    EXPECT_EQ(lines.take(),
              text.empty() ? "" : "** VEK-ERROR: 1  OUT OF RANGE IN VEKQIT,P= " + text + "\n");
    EXPECT_TRUE(text.empty() || t == 0.01);
  }
}

// The residual is tested to 1e-12 of the pressure; the width of the bracket to 1e-12 of its end.
TEST(SaturationTemperature, InvertsThePressure) {
  DiagnosticLines lines;
  for (double p = lowest; p < 221.2; p *= 1.07) {
    const double t = VEKQIT(p);
    EXPECT_NEAR(VEKQPT(&t) / p, 1, 2e-12 * (1 + t / 10));
  }
  EXPECT_EQ(lines.take(), "");
  EXPECT_EQ(VEKQIT(221.2), 374.15);
  const double t = 0.01;
  EXPECT_EQ(VEKQIT(VEKQPT(&t)), 0.01);
}
