#include <gtest/gtest.h>

#include <span>

#include "classic/equations/routines.hpp"
#include "classic/solve/root_solvers.hpp"
#include "classic/solve/saturation_temperature.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

/// One call of a finder: the values that it gets, its code, and the values that it leaves.
struct Call {
  double a, b;
  int code;
  double a_after, b_after;
  const char* text = "";
};

void expect_calls(VekFinder finder, double* tol, std::span<const Call> calls) {
  for (const Call& call : calls) {
    SCOPED_TRACE(testing::Message() << call.a << ' ' << call.b);
    DiagnosticLines lines;
    double a = call.a;
    double b = call.b;
    EXPECT_EQ(finder(&a, &b, tol), call.code);
    EXPECT_TRUE(same(a, call.a_after)) << a;
    EXPECT_TRUE(same(b, call.b_after)) << b;
    EXPECT_EQ(lines.take(), call.text);
  }
}

/// A call that leaves its values as they are.
constexpr Call kept(double a, double b, int code, const char* text = "") {
  return {a, b, code, a, b, text};
}

double saturation_pressure(double t) { return VEKQPT(&t); }

}  // namespace

TEST(FromPressureAndTemperature, KeepsThePairOutsideSubregion3) {
  double tol = 1e-8;
  const double ps100 = saturation_pressure(100);
  const double ps350 = saturation_pressure(350);
  const double ps360 = saturation_pressure(360);
  const Call calls[] = {
      kept(10, 100, 1),
      kept(0.5, 100, 2),
      kept(ps100 * (1 + 0.9e-8), 100, 6),
      kept(ps100 * (1 - 0.9e-8), 100, 6),
      kept(ps100 * (1 + 1.1e-8), 100, 1),
      kept(ps100 * (1 - 1.1e-8), 100, 2),
      kept(ps350, 350, 6),
      kept(165, up(350), 2),
      kept(saturation_pressure(up(350)), up(350), 5),
      kept(ps360 * (1 - 0.9e-8), 360, 5),
      kept(221.2, 374.15, 5),
      kept(100, up(374.15), 2),
      kept(100, 2000, 2),  // above 350 °C steam is neither evaluated nor reported
      kept(-1, 20, 2, "** VEK-ERROR: 1  OUT OF RANGE IN COMT2,P= -1,T= 20\n"),
      kept(inf, 20, 1, "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= inf,T= 20\n"),
      kept(not_a_number, 100, 2),
      kept(not_a_number, 400, 2),
      kept(10, not_a_number, 2),
      kept(10, -1, 1, "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 10,T= -1\n"),
  };
  expect_calls(vekrpt_, &tol, calls);
}

TEST(FromPressureAndTemperature, TakesADifferenceOfJustTheToleranceAsNotSaturated) {
  const double ps = saturation_pressure(200);
  for (double tol : {0.5, up(0.5)}) {
    const Call call[] = {kept(2 * ps, 200, tol > 0.5 ? 6 : 1)};
    expect_calls(vekrpt_, &tol, call);
  }
}

// The finder's own digits of the line lie some 0.7 bar above those of the equations.
TEST(FromPressureAndTemperature, HasItsOwnBoundaryLine) {
  const std::pair<double, double> rows[] = {{360, 177.3827867503},
                                            {374.15, 196.8887102924},
                                            {400, 243.0659285112},
                                            {590, 1000.628496958}};
  for (auto [t, p_line] : rows) {
    for (const double deviation : {-1e-9, 1e-9}) {
      double p = p_line * (1 + deviation), tol = 1e-8;
      EXPECT_EQ(vekrpt_(&p, &t, &tol), deviation < 0 ? 2 : 3) << t;
    }
  }
}

TEST(FromPressureAndQuality, GivesQualityAndSaturationTemperature) {
  const char* const too_low = "** VEK-ERROR: 1  OUT OF RANGE IN VEKQIT,P= 0.001\n";
  const Call of_no_number{not_a_number, 0.3,  5,
                          0.3,          0.01, "** VEK-ERROR: 1  OUT OF RANGE IN VEKQIT,P= nan\n"};
  const Call calls[] = {
      of_no_number,
      {221.2, 0.3, 5, 0.3, 374.15},
      {165.3512406, 0.3, 6, 0.3, VEKQIT(165.3512406)},
      {up(165.3512406), 0.3, 5, 0.3, VEKQIT(up(165.3512406))},
      {1, not_a_number, 6, not_a_number, VEKQIT(1)},  // the quality is not looked at
      {0.001, 0.3, 6, 0.3, 0.01, too_low},
      {-inf, 0.3, 6, 0.3, 0.01, "** VEK-ERROR: 1  OUT OF RANGE IN VEKQIT,P= -inf\n"},
      kept(up(221.2), 0.3, 7),
      kept(inf, 0.3, 7),
      of_no_number,  // whatever came before
  };
  expect_calls(vekrpx_, nullptr, calls);  // the tolerance is not read
}

TEST(FromTemperatureAndQuality, ExchangesTheTwo) {
  const Call calls[] = {
      {100, 0.3, 6, 0.3, 100},         {350, 0.3, 6, 0.3, 350},
      {up(350), 0.3, 5, 0.3, up(350)}, {374.15, 0.3, 5, 0.3, 374.15},
      {-inf, 0.3, 6, 0.3, -inf},       {100, not_a_number, 6, not_a_number, 100},
      kept(up(374.15), 0.3, 7),        kept(inf, 0.3, 7),
      kept(not_a_number, 0.3, 7),
  };
  expect_calls(vekrtx_, nullptr, calls);
}
