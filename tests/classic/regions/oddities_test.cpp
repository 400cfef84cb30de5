#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/solve/root_solvers.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"
#include "formulation/boundary_line.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "survey.hpp"

// What the finders do deliberately and what somebody might want to correct.

namespace {

using namespace classic;

double tol = 1e-8;

int region_of(VekFinder finder, double a, double b) { return finder(&a, &b, &tol); }

long evaluations(VekFinder finder, double a, double b) {
  const long before = survey::evaluations();
  region_of(finder, a, b);
  return survey::evaluations() - before;
}

// The finder from volume takes it into the supercritical band, which needs no saturation
// temperature; the caloric ones, as their edges tell, do not.
TEST(Bands, CountTheCriticalPressureDifferently) {
  EXPECT_EQ(evaluations(vekrpv_, 221.2, 0.0029), evaluations(vekrpv_, up(221.2), 0.0029));
  EXPECT_EQ(evaluations(vekrpv_, down(221.2), 0.0029), evaluations(vekrpv_, 221.2, 0.0029) + 2);
}

TEST(BoundaryLine, HasAnInverseThatIsNotItsOwn) {
  EXPECT_NEAR(line_temperature(formulation::line_pressure(400)), 399.997086, 1e-6);
  EXPECT_NEAR(line_temperature(1000), 589.997246, 1e-6);
}

TEST(SaturatedWater, KeepsTheConditionalGroupByEnthalpyOnly) {
  // From a start at the critical volume the two pressures of subregion 3 lead to saturated volumes
  // that differ in their last digits.
  const double p = 210, ts = VEKQIT(p);
  const auto saturated = [&](Function pressure) {
    double v1 = liquid_volume_start(ts), v2 = 0.00174;
    return VEKQI2(pressure, &ts, &p, &v1, &v2, &tol);
  };
  const double v_always = saturated(PRESS3X), v = saturated(PRESS3);
  EXPECT_EQ(region_of(vekrph_, p, 0.5 * (ENTHA3(&v_always, &ts) + ENTHA3(&v, &ts))), 5);
  EXPECT_EQ(region_of(vekrps_, p, 0.5 * (ENTRO3(&v_always, &ts) + ENTRO3(&v, &ts))), 4);
  EXPECT_EQ(region_of(vekrpu_, p, 0.5 * (ENERG3(&v_always, &ts) + ENERG3(&v, &ts))), 4);
}

TEST(StartPressure, OfDenseWaterIsLimitedByEntropyOnly) {
  const auto lines = [](VekFinder finder, double v, double y) {
    DiagnosticLines diagnostics;
    region_of(finder, v, y);
    return diagnostics.take();
  };
  EXPECT_NE(lines(vekrvh_, 0.00095, 100).find("COMT1,P= 1147.66"), std::string::npos);
  EXPECT_NE(lines(vekrvu_, 0.00095, 0).find("COMT1,P= 1147.66"), std::string::npos);
  EXPECT_EQ(lines(vekrvs_, 0.00095, 0).find("P= 1147"), std::string::npos);
  // At the edge it is the lowest pressure, and not the zero of denser water.
  EXPECT_EQ(lines(vekrvh_, 0.001000223493, 0).find("P= 0,"), std::string::npos);
}

TEST(EntropyAndQuality, RefusesOneEntropyExactly) {
  DiagnosticLines diagnostics;
  EXPECT_EQ(region_of(vekrsx_, 4.44286488, 0.3), 7);
  EXPECT_EQ(diagnostics.take(), " POINT IS BELOW CRITICAL POINT  S = 4.44286\n");
  EXPECT_NE(region_of(vekrsx_, up(4.44286488), 0.3), 7);
}

TEST(EntropyAndQuality, GoesOnAfterItsMessage) {
  const double t = 360, ps = VEKQPT(&t);
  const double v_water = liquid_volume3(&t, &ps, &tol), v_steam = vapour_volume3(&t, &ps, &tol);
  DiagnosticLines diagnostics;
  double s = mixed(ENTRO3(&v_water, &t), 0.5, ENTRO3(&v_steam, &t)), x = 0.5;
  EXPECT_EQ(vekrsx_(&s, &x, &tol), 5);
  EXPECT_NE(diagnostics.take().find(" POINT IS NOT IN WET-REGIONINT  S = 4.49052, X = 0.5\n"),
            std::string::npos);
  EXPECT_EQ(s, 0.5);
  EXPECT_NEAR(x, 360, 1e-4);
}

TEST(EntropyAndQuality, GivesUpInACycleAndAfterItsWork) {
  const double t = 5, ps = VEKQPT(&t);
  const std::tuple<double, double, long> rows[] = {
      // and the evaluations, at most
      {ENTRO2(&ps, &t), 1, 100'000},
      {not_a_number, 0.5, 10},
      {4.7161860884250171, 0.55550150314562896, 6'100'000},
      {5.2501161465669766, 0.33951200771765033, 6'100'000}};
  for (const auto& [s, x, most] : rows) {
    SCOPED_TRACE(testing::Message() << s << ' ' << x);
    DiagnosticLines diagnostics;
    const long before = survey::evaluations();
    double a = s, b = x;
    EXPECT_EQ(vekrsx_(&a, &b, &tol), 7);
    EXPECT_LE(survey::evaluations() - before, most);
    EXPECT_TRUE(diagnostics.take().ends_with(
        "*** VEKFTN-WARNING: Maximum number of iterations exceeded (code: VEKRSX) ***\n"));
    EXPECT_TRUE(same(a, s) && b == x);
  }
}

}  // namespace
