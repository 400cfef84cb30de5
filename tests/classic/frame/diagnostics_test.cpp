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
  struct Row {
    int code;
    const char* text;
  };
  constexpr Row rows[] = {
      {12, " OUT OF RANGE IN COMT1,P= 250,T= 20"},
      {42, " OUT OF RANGE IN COMT1,V= 250,T= 20"},
      {35, " OUT OF RANGE IN COMT1,H= 250,S= 20"},
      {-12, " NON CONVERGENT IN COMT1,P= 250,T= 20"},
      {2, " OUT OF RANGE IN COMT1,T= 250"},
      {1, " OUT OF RANGE IN COMT1,P= 250"},
      {-1, " NON CONVERGENT IN COMT1,P= 250"},
      {10, " OUT OF RANGE IN COMT1,P= 250 NON CONVERGENT IN 20"},
      {20, " OUT OF RANGE IN COMT1,T= 250 NON CONVERGENT IN 20"},
  };
  DiagnosticLines lines;
  int number = 0;
  for (const Row& row : rows) {
    set_error_flag(0);
    EXPECT_EQ(report(row.code, 250, 20), 0);
    ++number;
    EXPECT_EQ(lines.take(), "** VEK-ERROR: " + std::to_string(number) + " " + row.text + "\n");
    EXPECT_EQ(VEKHasError(), 2);
  }
}

TEST(Report, DoesNotReadASecondValueWithoutATensDigit) {
  DiagnosticLines lines;
  const int code = 2;
  const double value = 1234567.89;
  ReportError("VEKQPT", &code, &value, nullptr);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN VEKQPT,T= 1.23457e+06\n");
}

TEST(Report, IsWrittenUpToNumber32000AndInhibitedFromThenOn) {
  DiagnosticLines lines;
  ErrorCount = 31999;
  EXPECT_EQ(report(12, 250, 20), 0);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 32000  OUT OF RANGE IN COMT1,P= 250,T= 20\n");
  for (const int number : {32001, 32002}) {
    set_error_flag(1);
    EXPECT_EQ(report(12, 250, 20), -1);
    EXPECT_EQ(lines.take(),
              "\n EXECUTION INHIBITED DUE TO VEK-ERROR COUNT\n"
              " NUMBER OF DIAGNOSED ERRORS = " +
                  std::to_string(number) + " ******************************************\n");
    EXPECT_EQ(VEKHasError(), 1) << "the closing block leaves the flag";
  }
}

TEST(Writer, RaisesTheFlagAndLeavesTheLineOpen) {
  DiagnosticLines lines;
  set_error_flag(1);
  WriteDiagnostic(ErrorStream, "begun ") << 3;
  EXPECT_EQ(lines.take(), "begun 3");
  EXPECT_EQ(VEKHasError(), 2);
  EXPECT_EQ(VEKHasError(), 2) << "reading the flag does not clear it";
  EXPECT_EQ(ErrorCount, 0);
}

TEST(Writer, RaisesTheFlagOnTheUnopenedStreamToo) {
  report(12, 250, 20);
  EXPECT_TRUE(ErrorStream.fail());
  set_error_flag(0);
  report(12, 250, 20);
  EXPECT_EQ(VEKHasError(), 2);
}
