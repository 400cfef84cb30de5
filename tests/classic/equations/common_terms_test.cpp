#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

using Routine = int (*)(const double*, const double*);

/// A routine with a state inside its range, and the limits of both inputs, which it widens.
struct Limits {
  const char* name;
  Routine routine;
  double first, second, first_low, first_high, second_low, second_high;
};
constexpr Limits limits[] = {
    {"COMT1", COMT1, 10, 100, 0.006112444, 1000, 0.01, 350},
    {"COMT2", COMT2, 10, 300, 0.006112444, 1000, 0.01, 800},
    {"COMT3", COMT3, 0.003, 380, 0.001314782578, 0.008799105448, 350, 590},
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
    const auto check = [](const auto& reports_at, double low, double high) {
      low *= 0.99999;
      high *= 1.00001;
      EXPECT_EQ(reports_at(low) + reports_at(high) + reports_at(not_a_number), 0);
      EXPECT_EQ(reports_at(down(low)), 1);
      EXPECT_EQ(reports_at(up(high)), 1);
    };
    check(first, row.first_low, row.first_high);
    check(second, row.second_low, row.second_high);
  }
}

TEST(CommonTerms, ReportEachInputAndComputeAllTheSame) {
  DiagnosticLines lines;
  EXPECT_EQ(reports(COMT1, 2000, 400), 2);
  EXPECT_EQ(lines.take(),
            "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 2000,T= 400\n"
            "** VEK-ERROR: 2  OUT OF RANGE IN COMT1,P= 2000,T= 400\n");
  EXPECT_EQ(common1.terms.beta, 2000 / 221.2);
  reports(COMT2, 0.001, 20);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 3  OUT OF RANGE IN COMT2,P= 0.001,T= 20\n");
  reports(COMT3, 0.01, 400);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 4  OUT OF RANGE IN COMT3,V= 0.01,T= 400\n");
  reports(COMT3, -0.003, 380);  // reaches the guarded logarithm
  EXPECT_EQ(VEKHasError(), 1);
  EXPECT_EQ(common3.terms.log_chi, 1);
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

// At the critical temperature or volume exactly the group is left out already.
TEST(Subregion3, DropsTheConditionalGroupFromTheCriticalPointOn) {
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
    EXPECT_EQ(ENTHA3X(&row.v, &row.t) != ENTHA3(&row.v, &row.t), row.dropped && row.t != 374.15);
    const double group = 221.2 * formulation::conditional_pressure(common3.terms);
    EXPECT_EQ(PRESS3X(&row.v, &row.t), p + (row.dropped ? group : 0));
    const double s = canonical::subregion3(row.v, row.t).s;
    EXPECT_NEAR(ENTRO3(&row.v, &row.t), s, 1e-10 * s);
  }
}
