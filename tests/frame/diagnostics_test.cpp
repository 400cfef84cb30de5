#include "frame/diagnostics.hpp"

#include <gtest/gtest.h>

#include "api/vek.h"
#include "support/diagnostic_lines.hpp"

using namespace classic;

TEST(Report, IsOneNumberedLineAndRaisesTheFlag) {
  DiagnosticLines lines;
  const int code = 12;
  const double p = 250;
  const double t = 20;
  EXPECT_EQ(ReportError("COMT1", &code, &p, &t), 0);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 250,T= 20\n");
  EXPECT_EQ(VEKHasError(), 2);
}
