#include <gtest/gtest.h>

#include <cmath>

#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

// The corrections of the conductivity apply up to and including 150, 300 and 450 °C.
TEST(Transport, AgreesWithTheCorrelations) {
  constexpr double rows[][2] = {{0.001, 20},   {0.00109, 150}, {0.0014, 300},
                                {0.02, 450},   {0.0015, 450},  {0.00217, 360},
                                {0.0327, 500}, {0.494, 800},   {206.1628753, 0.01}};
  for (const auto& [v, start] : rows) {
    for (const double t : {start, up(start)}) {
      SCOPED_TRACE(testing::Message() << v << ' ' << t);
      EXPECT_NEAR(VISCOS(&v, &t) / canonical::viscosity(v, t), 1, 4e-15);
      EXPECT_NEAR(THCOND(&v, &t) / canonical::conductivity(v, t), 1, 4e-15);
    }
  }
}

TEST(Transport, NeitherChecksNorReports) {
  DiagnosticLines lines;
  const double v = 0.001, absolute_zero = -273.15, below_zero = -300;
  EXPECT_EQ(VISCOS(&v, &absolute_zero), 0);  // and is not 0 times infinity
  VISCOS(&v, &below_zero);
  EXPECT_EQ(VEKHasError(), 1);  // from the guarded root of a negative temperature
  EXPECT_EQ(lines.take(), "");
  EXPECT_TRUE(std::isnan(THCOND(&v, &not_a_number)));
}
