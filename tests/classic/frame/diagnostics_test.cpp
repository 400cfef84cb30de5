#include "classic/frame/diagnostics.hpp"

#include <gtest/gtest.h>

#include <string>

#include "classic/frame/error_flag.hpp"
#include "support/diagnostic_lines.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

int report(int code, double value1, double value2) {
  return ReportError("COMT1", &code, &value1, &value2);
}

}  // namespace

TEST(Report, LabelsItsValuesByTheDigitsOfTheCode) {
  const std::pair<int, const char*> rows[] = {
      {12, " OUT OF RANGE IN COMT1,P= 250,T= 20"},
      {42, " OUT OF RANGE IN COMT1,V= 250,T= 20"},
      {35, " OUT OF RANGE IN COMT1,H= 250,S= 20"},
      {-12, " NON CONVERGENT IN COMT1,P= 250,T= 20"},
      {-1, " NON CONVERGENT IN COMT1,P= 250"},
      {10, " OUT OF RANGE IN COMT1,P= 250 NON CONVERGENT IN 20"},
      {20, " OUT OF RANGE IN COMT1,T= 250 NON CONVERGENT IN 20"},
  };
  DiagnosticLines lines;
  int number = 0;
  for (const auto& [code, text] : rows) {
    set_error_flag(0);
    EXPECT_EQ(report(code, 250, 20), 0);
    ++number;
    EXPECT_EQ(lines.take(), "** VEK-ERROR: " + std::to_string(number) + " " + text + "\n");
    EXPECT_EQ(VEKHasError(), 2);
  }
  // Without a tens digit there is no second value.
  const int code = 2;
  const double value = 1234567.89;
  ReportError("VEKQPT", &code, &value, nullptr);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 8  OUT OF RANGE IN VEKQPT,T= 1.23457e+06\n");
}

TEST(Report, IsWrittenUpToNumber32000AndInhibitedFromThenOn) {
  DiagnosticLines lines;
  ErrorCount = 31999;
  EXPECT_EQ(report(12, 250, 20), 0);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 32000  OUT OF RANGE IN COMT1,P= 250,T= 20\n");
  for (const char* number : {"32001", "32002"}) {
    set_error_flag(1);
    EXPECT_EQ(report(12, 250, 20), -1);
    EXPECT_EQ(lines.take(), std::string("\n EXECUTION INHIBITED DUE TO VEK-ERROR COUNT\n") +
                                " NUMBER OF DIAGNOSED ERRORS = " + number +
                                " ******************************************\n");
    EXPECT_EQ(VEKHasError(), 1) << "the closing block leaves the flag";
  }
}

TEST(Writer, RaisesTheFlagAndLeavesTheLineOpen) {
  report(12, 250, 20);
  EXPECT_TRUE(ErrorStream.fail()) << "the stream is not open";
  EXPECT_EQ(VEKHasError(), 2);
  DiagnosticLines lines;
  set_error_flag(1);
  WriteDiagnostic(ErrorStream, "begun ") << 3;
  EXPECT_EQ(lines.take(), "begun 3");
  EXPECT_EQ(VEKHasError(), 2);
  EXPECT_EQ(VEKHasError(), 2) << "reading the flag does not clear it";
  EXPECT_EQ(ErrorCount, 0);
}
