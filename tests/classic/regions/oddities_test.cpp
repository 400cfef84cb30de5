#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/regions/region.hpp"
#include "classic/regions/residuals.hpp"
#include "classic/solve/root_solvers.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"
#include "formulation/boundary_line.hpp"
#include "support/diagnostic_lines.hpp"
#include "survey.hpp"

// What the finders do deliberately and what somebody might want to correct.

namespace {

using namespace classic;

double tol = 1e-8;

int region_of(VekFinder finder, double a, double b) { return finder(&a, &b, &tol); }

double next_up(double x) { return std::nextafter(x, HUGE_VAL); }

TEST(Margins, DifferInSizeAndSignOnTheSteamSide) {
  const double p = 200;
  const double t_single = line_temperature_single(p);
  const double h = ENTHA2(&p, &t_single);
  const double s = ENTRO2(&p, &t_single);
  const double u = ENERG2(&p, &t_single);
  EXPECT_EQ(region_of(vekrph_, p, h - 0.199), 2);
  EXPECT_EQ(region_of(vekrph_, p, h - 0.201), 3);
  EXPECT_EQ(region_of(vekrps_, p, s + 0.000201), 2);
  EXPECT_EQ(region_of(vekrps_, p, s + 0.000199), 3);
  EXPECT_EQ(region_of(vekrpu_, p, u + 0.201), 2);
  EXPECT_EQ(region_of(vekrpu_, p, u + 0.199), 3);
  const double t = line_temperature(p);
  const double v = SPVOL2(&p, &t);
  EXPECT_EQ(region_of(vekrpv_, p, v * (1 - 4.9e-4)), 2);
  EXPECT_EQ(region_of(vekrpv_, p, v * (1 - 5.1e-4)), 3);
}

TEST(Margins, DifferOnTheWaterSide) {
  const double p = 200;
  const double t = 350;
  const double h = ENTHA1(&p, &t);
  const double s = ENTRO1(&p, &t);
  const double u = ENERG1(&p, &t);
  const double v = SPVOL1(&p, &t);
  EXPECT_EQ(region_of(vekrph_, p, h + 0.199), 1);
  EXPECT_EQ(region_of(vekrph_, p, h + 0.201), 4);
  EXPECT_EQ(region_of(vekrps_, p, s + 0.000199), 1);
  EXPECT_EQ(region_of(vekrps_, p, s + 0.000201), 4);
  EXPECT_EQ(region_of(vekrpu_, p, u + 0.199), 1);
  EXPECT_EQ(region_of(vekrpu_, p, u + 0.201), 4);
  EXPECT_EQ(region_of(vekrpv_, p, v * (1 + 4.9e-4)), 1);
  EXPECT_EQ(region_of(vekrpv_, p, v * (1 + 5.1e-4)), 4);
}

TEST(Margins, TakeTheToleranceAsAbsoluteInEntropy) {
  const double p = 10;
  const double ts = VEKQIT(p);
  const double s_water = ENTRO1(&p, &ts);
  double wide = 1e-3;
  const auto region = [&](double s) {
    double a = p;
    return vekrps_(&a, &s, &wide);
  };
  EXPECT_EQ(region(s_water + 0.9e-3), 1);
  EXPECT_EQ(region(s_water + 1.1e-3), 6);
}

TEST(LowBand, TakesSaturatedSteamAsSteamExceptByEnergy) {
  const double p = 10;
  const double ts = VEKQIT(p);
  EXPECT_EQ(region_of(vekrpv_, p, SPVOL2(&p, &ts)), 2);
  EXPECT_EQ(region_of(vekrph_, p, ENTHA2(&p, &ts)), 2);
  EXPECT_EQ(region_of(vekrps_, p, ENTRO2(&p, &ts)), 2);
  EXPECT_EQ(region_of(vekrpu_, p, ENERG2(&p, &ts)), 6);
  EXPECT_EQ(region_of(vekrpu_, p, next_up(ENERG2(&p, &ts))), 2);
}

TEST(Bands, EndAtTheSaturationPressureOf350) {
  constexpr double p = 165.3512406;
  const double t = 350;
  const double h = ENTHA1(&p, &t) + 0.1;  // wet in the low band, inside the margin above it
  EXPECT_EQ(region_of(vekrph_, p, h), 6);
  EXPECT_EQ(region_of(vekrph_, next_up(p), h), 1);
  const double v = SPVOL1(&p, &t) * (1 + 4e-4);
  EXPECT_EQ(region_of(vekrpv_, p, v), 6);
  EXPECT_EQ(region_of(vekrpv_, next_up(p), v), 1);
}

TEST(Bands, CountTheCriticalPressureDifferently) {
  // The caloric finders take it into the middle band, where critical enthalpy is steam.
  const double v = 0.00317;
  const double t = 374.15;
  const double h = ENTHA3(&v, &t);
  EXPECT_EQ(region_of(vekrph_, 221.2, h), 3);
  EXPECT_EQ(region_of(vekrph_, next_up(221.2), h), 4);
  // The finder from volume takes it into the supercritical band, which needs no saturation
  // temperature.
  const auto evaluations = [](double p) {
    const long before = survey::evaluations();
    region_of(vekrpv_, p, 0.0029);
    return survey::evaluations() - before;
  };
  EXPECT_EQ(evaluations(221.2), evaluations(next_up(221.2)));
  EXPECT_EQ(evaluations(std::nextafter(221.2, 0.0)), evaluations(221.2) + 2);
}

TEST(BoundaryLine, HasOtherDigitsInEachFinder) {
  // Between the line of most finders and those with transposed digits, some 0.7 bar higher.
  const double t = 365;
  const double p = formulation::line_pressure(t) + 0.4;
  const double v = volume3(&t, &p, 5.6e-6 * t - 0.00073, 0.01545 - 2.18e-5 * t, &tol);
  EXPECT_EQ(region_of(vekrpt_, p, t), 2);
  EXPECT_EQ(region_of(vekrtv_, t, v), 3);
  EXPECT_EQ(region_of(vekrth_, t, ENTHA3(&v, &t)), 3);
  EXPECT_EQ(region_of(vekrts_, t, ENTRO3(&v, &t)), 3);
  EXPECT_EQ(region_of(vekrtu_, t, ENERG3(&v, &t)), 2);
}

TEST(BoundaryLine, IsInvertedInSinglePrecisionByTheCaloricFindersBelowTheCriticalPressure) {
  for (const double p : {200.0, 230.0}) {
    const double t_single = line_temperature_single(p);
    const double t_double = line_temperature(p);
    const double threshold =
        0.5 * (ENTHA2(&p, &t_single) + ENTHA2(&p, &t_double)) - 0.2;  // between the two margins
    EXPECT_EQ(region_of(vekrph_, p, threshold), p < 221.2 ? 2 : 3);
  }
}

TEST(BoundaryLine, HasAnInverseThatIsNotItsOwn) {
  EXPECT_NEAR(line_temperature(formulation::line_pressure(400)), 399.997086, 1e-6);
  EXPECT_NEAR(line_temperature(1000), 589.997246, 1e-6);
}

TEST(StartValues, AreTriedInTheirOrder) {
  // A root at the start value that is tried first saves the evaluation at the other one.
  const auto evaluations = [](VekFinder finder, double a, double b) {
    const long before = survey::evaluations();
    region_of(finder, a, b);
    return survey::evaluations() - before;
  };
  const double p = 200;
  const double t = 350;
  EXPECT_EQ(evaluations(vekrph_, p, ENTHA1(&p, &t)), 2);  // 350 first
  EXPECT_EQ(evaluations(vekrps_, p, ENTRO1(&p, &t)), 2);
  EXPECT_EQ(evaluations(vekrpu_, p, ENERG1(&p, &t)), 4);  // two each
  EXPECT_EQ(evaluations(vekrpv_, p, SPVOL1(&p, &t)), 3);  // 0.01 first
  // At the critical point one of the two start volumes of the supercritical band is a root, and on
  // the boundary line the start temperature of steam: by enthalpy the volume is tried first.
  const double v_critical = 0.00317;
  const double t_critical = 374.15;
  const double p_critical = PRESS3(&v_critical, &t_critical);
  ASSERT_GT(p_critical, 221.2);
  const double t_line = line_temperature(p_critical);
  EXPECT_EQ(evaluations(vekrph_, p_critical, ENTHA2(&p_critical, &t_line)), 5);
  EXPECT_EQ(evaluations(vekrpv_, p_critical, SPVOL2(&p_critical, &t_line)), 5);  // second
}

TEST(SaturatedWater, KeepsTheConditionalGroupByEnthalpyOnly) {
  // From a start at the critical volume the two pressures of subregion 3 lead to saturated volumes
  // that differ in their last digits.
  const double p = 210;
  const double ts = VEKQIT(p);
  const auto saturated = [&](Function pressure) {
    double v1 = liquid_volume_start(ts);
    double v2 = 0.00174;
    return VEKQI2(pressure, &ts, &p, &v1, &v2, &tol);
  };
  const double v_always = saturated(PRESS3X);
  const double v = saturated(PRESS3);
  EXPECT_EQ(region_of(vekrph_, p, 0.5 * (ENTHA3(&v_always, &ts) + ENTHA3(&v, &ts))), 5);
  EXPECT_EQ(region_of(vekrps_, p, 0.5 * (ENTRO3(&v_always, &ts) + ENTRO3(&v, &ts))), 4);
  EXPECT_EQ(region_of(vekrpu_, p, 0.5 * (ENERG3(&v_always, &ts) + ENERG3(&v, &ts))), 4);
}

TEST(StartPressure, OfDenseWaterIsLimitedByEntropyOnly) {
  const auto lines = [](VekFinder finder, double y) {
    DiagnosticLines diagnostics;
    region_of(finder, 0.00095, y);
    return diagnostics.take();
  };
  const std::string unlimited = "COMT1,P= 1147.66";
  EXPECT_NE(lines(vekrvh_, 100).find(unlimited), std::string::npos);
  EXPECT_NE(lines(vekrvu_, 0).find(unlimited), std::string::npos);
  EXPECT_EQ(lines(vekrvs_, 0).find("P= 1147"), std::string::npos);
}

TEST(Residuals, OfEnergyGiveAVolumeInWetSteamAbove350) {
  const double p = 200;
  const double v = 0.004;
  // The start value that the vapour leaves for the liquid leads to the vapour again.
  const double ts = VEKQIT(p);
  EXPECT_NEAR(UOFPV(&p, &v, &tol), vapour_volume3(&ts, &p, &tol), 1e-7);
  EXPECT_GT(HOFPV(&p, &v, &tol), 2000);
}

TEST(Residuals, OfEnergyAndEntropyWeightWetStatesByTheTemperature) {
  const double t = 300;
  const double ps = VEKQPT(&t);
  const double s = 0.5 * (ENTRO1(&ps, &t) + ENTRO2(&ps, &t));
  const double h = mixed(ENTHA1(&ps, &t), t, ENTHA2(&ps, &t));
  const double v = mixed(SPVOL1(&ps, &t), t, SPVOL2(&ps, &t));
  EXPECT_DOUBLE_EQ(UOFTS(&t, &s, &tol), h - ps * v * 100);
  EXPECT_NEAR(HOFTS(&t, &s, &tol), mixed(ENTHA1(&ps, &t), 0.5, ENTHA2(&ps, &t)), 1e-6);
}

TEST(Residuals, OfVolumeAndQualityAreNotANumberOutsideTheWetRegion) {
  const double t = 380;
  const double x = 0.5;
  EXPECT_TRUE(std::isnan(VOFTX(&t, &x, &tol)));
}

TEST(EntropyAndQuality, RefusesOneEntropyExactly) {
  DiagnosticLines diagnostics;
  EXPECT_EQ(region_of(vekrsx_, 4.44286488, 0.3), 7);
  EXPECT_EQ(diagnostics.take(), " POINT IS BELOW CRITICAL POINT  S = 4.44286\n");
  EXPECT_NE(region_of(vekrsx_, next_up(4.44286488), 0.3), 7);
}

TEST(EntropyAndQuality, GoesOnAfterItsMessage) {
  const double t = 360;
  const double ps = VEKQPT(&t);
  const double v_water = liquid_volume3(&t, &ps, &tol);
  const double v_steam = vapour_volume3(&t, &ps, &tol);
  DiagnosticLines diagnostics;
  double s = mixed(ENTRO3(&v_water, &t), 0.5, ENTRO3(&v_steam, &t));
  double x = 0.5;
  EXPECT_EQ(vekrsx_(&s, &x, &tol), 5);
  EXPECT_NE(diagnostics.take().find(" POINT IS NOT IN WET-REGIONINT  S = 4.49052, X = 0.5\n"),
            std::string::npos);
  EXPECT_EQ(s, 0.5);
  EXPECT_NEAR(x, 360, 1e-4);
}

TEST(EntropyAndQuality, GivesUpInACycleAndAfterItsWork) {
  const double t = 5;
  const double ps = VEKQPT(&t);
  struct Row {
    double s, x;
    long evaluations;  // at most
  };
  const Row rows[] = {{ENTRO2(&ps, &t), 1, 100'000},
                      {std::numeric_limits<double>::quiet_NaN(), 0.5, 10},
                      {4.7161860884250171, 0.55550150314562896, 6'100'000},
                      {5.2501161465669766, 0.33951200771765033, 6'100'000}};
  for (const auto& [s, x, evaluations] : rows) {
    SCOPED_TRACE(testing::Message() << s << ' ' << x);
    DiagnosticLines diagnostics;
    const long before = survey::evaluations();
    double a = s;
    double b = x;
    EXPECT_EQ(vekrsx_(&a, &b, &tol), 7);
    EXPECT_LE(survey::evaluations() - before, evaluations);
    const std::string lines = diagnostics.take();
    const std::string warning =
        "*** VEKFTN-WARNING: Maximum number of iterations exceeded (code: VEKRSX) ***\n";
    EXPECT_EQ(lines.substr(lines.size() - warning.size()), warning);
    EXPECT_TRUE(std::isnan(s) ? std::isnan(a) : a == s);
    EXPECT_EQ(b, x);
  }
}

}  // namespace
