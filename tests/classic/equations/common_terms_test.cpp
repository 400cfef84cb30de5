#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "classic/equations/routines.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

using Routine = int (*)(const double*, const double*);

/// A routine with a state inside its range, and the widened limits of both inputs.
struct Limits {
  const char* name;
  Routine routine;
  double first, second;
  double first_low, first_high, second_low, second_high;
};
const Limits limits[] = {
    {"COMT1", COMT1, 10, 100, 0.006112444 * 0.99999, 1000 * 1.00001, 0.01 * 0.99999, 350 * 1.00001},
    {"COMT2", COMT2, 10, 300, 0.006112444 * 0.99999, 1000 * 1.00001, 0.01 * 0.99999, 800 * 1.00001},
    {"COMT3", COMT3, 0.003, 380, 0.001314782578 * 0.99999, 0.008799105448 * 1.00001, 350 * 0.99999,
     590 * 1.00001},
};

/// How many reports a call makes; the routine must return 0.
int reports(Routine routine, double first, double second) {
  const int before = ErrorCount;
  EXPECT_EQ(routine(&first, &second), 0);
  return ErrorCount - before;
}

}  // namespace

TEST(CommonTerms, AcceptTheirWidenedLimitsAndReportJustBeyond) {
  for (const Limits& row : limits) {
    SCOPED_TRACE(row.name);
    const auto first = [&](double x) { return reports(row.routine, x, row.second); };
    const auto second = [&](double x) { return reports(row.routine, row.first, x); };
    EXPECT_EQ(first(row.first_low), 0);
    EXPECT_EQ(first(down(row.first_low)), 1);
    EXPECT_EQ(first(row.first_high), 0);
    EXPECT_EQ(first(up(row.first_high)), 1);
    EXPECT_EQ(second(row.second_low), 0);
    EXPECT_EQ(second(down(row.second_low)), 1);
    EXPECT_EQ(second(row.second_high), 0);
    EXPECT_EQ(second(up(row.second_high)), 1);
    EXPECT_EQ(first(inf), 1);
    EXPECT_EQ(second(-inf), 1);
    EXPECT_EQ(first(not_a_number), 0);
    EXPECT_EQ(second(not_a_number), 0);
  }
}

TEST(CommonTerms, ReportEachInputAndComputeAllTheSame) {
  DiagnosticLines lines;
  EXPECT_EQ(reports(COMT1, 2000, 400), 2);
  EXPECT_EQ(lines.take(),
            "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 2000,T= 400\n"
            "** VEK-ERROR: 2  OUT OF RANGE IN COMT1,P= 2000,T= 400\n");
  EXPECT_EQ(common1.terms.beta, 2000 / 221.2);
  EXPECT_EQ(reports(COMT2, 0.001, 20), 1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 3  OUT OF RANGE IN COMT2,P= 0.001,T= 20\n");
  EXPECT_EQ(reports(COMT3, 0.01, 400), 1);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 4  OUT OF RANGE IN COMT3,V= 0.01,T= 400\n");
}

TEST(CommonTerms, KeepTheLastStateByExactComparison) {
  for (const Limits& row : limits) {
    SCOPED_TRACE(row.name);
    const double hot = 1000;
    EXPECT_EQ(reports(row.routine, row.first, hot), 1);
    EXPECT_EQ(reports(row.routine, row.first, hot), 0);
    EXPECT_EQ(reports(row.routine, row.first, up(hot)), 1);
    EXPECT_EQ(reports(row.routine, up(row.first), up(hot)), 1);
    EXPECT_EQ(reports(row.routine, row.first, up(hot)), 1);
  }
}

TEST(CommonTerms, OfWaterAndSteamHaveCachesOfTheirOwnButShareTheCurrentPair) {
  EXPECT_EQ(reports(COMT2, 10, 900), 1);
  EXPECT_EQ(current_pt.t, 900);
  EXPECT_EQ(reports(COMT1, 20, 100), 0);
  EXPECT_EQ(current_pt.p, 20);
  EXPECT_EQ(reports(COMT2, 10, 900), 0);
  EXPECT_EQ(current_pt.p, 20) << "a cached evaluation does not make its pair current";
  EXPECT_EQ(reports(COMT3, 0.003, 380), 0);
  EXPECT_EQ(current_pt.t, 100);
}

TEST(CommonTerms, ANonPositiveReducedInputReachesTheGuardedLogarithm) {
  EXPECT_EQ(reports(COMT3, -0.003, 380), 1);
  EXPECT_EQ(VEKHasError(), 1);
  EXPECT_EQ(common3.terms.log_chi, 1);
}

TEST(CommonTerms, OfSubregion3AtTheEndsOfTheirHighPowers) {
  const auto y30_at = [](double t) {
    const double v = 0.003;
    COMT3(&v, &t);
    return common3.terms.y30;
  };
  EXPECT_EQ(y30_at(350), 1);
  EXPECT_EQ(common3.terms.y31, 1);
  EXPECT_EQ(y30_at(374.15), 0);
  EXPECT_EQ(y30_at(400), 0);
  const double threshold = 374.15 - 0.01 * (374.15 - 350);
  EXPECT_GT(y30_at(threshold - 1e-9), 0);
  EXPECT_EQ(y30_at(threshold + 1e-9), 0);
}

TEST(Pressure3, DropsTheConditionalGroupFromTheCriticalPointOn) {
  struct Row {
    double v, t;
    bool dropped;
  };
  const Row rows[] = {
      {0.002, 370, false},     {down(0.00317), 370, false}, {0.00317, 370, true},
      {0.002, 374.149, false}, {0.002, 374.15, true},       {0.004, 360, true},
      {0.002, 400, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.v << ' ' << row.t);
    const double p = PRESS3(&row.v, &row.t);
    EXPECT_EQ(conditional_G == 0, row.dropped);
    const double expected =
        p + (row.dropped ? 221.2 * formulation::conditional_pressure(common3.terms) : 0.0);
    EXPECT_EQ(PRESS3X(&row.v, &row.t), expected);
  }
}
