#include "support/edges.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/solve/root_solvers.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"
#include "formulation/boundary_line.hpp"
#include "support/finder_calls.hpp"

// Which side of a boundary belongs to which region, to the last bit, and what is refused.

namespace {

using namespace classic;
using formulation::line_pressure;

double tol = 1e-8;

struct Edge {
  VekFinder finder;
  double a, b;
  int region;
};

void expect_regions(const std::vector<Edge>& edges) {
  int line = 0;
  for (Edge edge : edges) {
    SCOPED_TRACE(testing::Message() << "row " << ++line << ": " << edge.a << ", " << edge.b);
    EXPECT_EQ(edge.finder(&edge.a, &edge.b, &tol), edge.region);
  }
}

double of(Function f, double first, double second) { return f(&first, &second); }

TEST(Edges, OfSaturationAtAPressure) {
  const double p = 10;
  const double ts = VEKQIT(p);
  expect_regions({{vekrpv_, p, of(SPVOL1, p, ts), 1},
                  {vekrpv_, p, up(of(SPVOL1, p, ts)), 6},
                  {vekrph_, p, of(ENTHA1, p, ts), 1},
                  {vekrph_, p, up(of(ENTHA1, p, ts)), 6},
                  {vekrpu_, p, of(ENERG1, p, ts), 1},
                  {vekrpu_, p, up(of(ENERG1, p, ts)), 6}});
}

TEST(Edges, OfSaturationAbove350AtAPressure) {
  const double p = 200;
  const double ts = VEKQIT(p);
  const double v_water = liquid_volume3(&ts, &p, &tol);
  const double v_steam = vapour_volume3(&ts, &p, &tol);
  expect_regions({{vekrpv_, p, v_water, 4},
                  {vekrpv_, p, up(v_water), 5},
                  {vekrpv_, p, down(v_steam), 5},
                  {vekrpv_, p, v_steam, 3},
                  {vekrph_, p, down(of(ENTHA3, v_steam, ts)), 5},
                  {vekrph_, p, of(ENTHA3, v_steam, ts), 3},
                  {vekrps_, p, of(ENTRO3, v_water, ts), 5},
                  {vekrps_, p, down(of(ENTRO3, v_water, ts)), 4}});
}

TEST(Edges, OfSaturationAtATemperature) {
  const double t = 340;
  const double ps = VEKQPT(&t);
  expect_regions({{vekrtv_, t, down(of(SPVOL1, ps, t)), 1},
                  {vekrtv_, t, of(SPVOL1, ps, t), 6},
                  {vekrtv_, t, of(SPVOL2, ps, t), 6},
                  {vekrtv_, t, up(of(SPVOL2, ps, t)), 2},
                  {vekrth_, t, of(ENTHA1, ps, t), 1},
                  {vekrth_, t, of(ENTHA2, ps, t), 6},
                  {vekrtu_, t, of(ENERG1, ps, t), 1},
                  {vekrtu_, t, of(ENERG2, ps, t), 6},
                  {vekrts_, t, of(ENTRO1, ps, t), 1},
                  {vekrts_, t, down(of(ENTRO2, ps, t)), 6},
                  {vekrts_, t, of(ENTRO2, ps, t), 2}});
}

TEST(Edges, OfSaturationAbove350AtATemperature) {
  const double t = 360;
  const double ps = VEKQPT(&t);
  const double v_water = liquid_volume3(&t, &ps, &tol);
  const double v_steam = vapour_volume3(&t, &ps, &tol);
  expect_regions({{vekrtv_, t, v_water, 4},
                  {vekrtv_, t, v_steam, 5},
                  {vekrth_, t, of(ENTHA3, v_water, t), 4},
                  {vekrth_, t, of(ENTHA3, v_steam, t), 5},
                  {vekrtu_, t, of(ENERG3, v_water, t), 4},
                  {vekrtu_, t, of(ENERG3, v_steam, t), 5},
                  {vekrts_, t, of(ENTRO3, v_water, t), 4},
                  {vekrts_, t, of(ENTRO3, v_steam, t), 5}});
}

/// A state whose distance from the boundary line is exactly the margin of -5, in the finders' own
/// arithmetic: few are, so many are tried.
struct AtMargin {
  double known, v;
};
template <class LineVolume>
AtMargin at_margin(double known, LineVolume line_volume) {
  for (int i = 0; i < 100000; ++i, known += 0.001) {
    const double v_line = line_volume(known);
    const double nearest = v_line * (1 - 2.5e-4) / (1 + 2.5e-4);
    for (const double v : {down(nearest), nearest, up(nearest)}) {
      if (20000 * (v - v_line) / (v + v_line) == -5) {
        return {known, v};
      }
    }
  }
  return {not_a_number, not_a_number};
}

TEST(Edges, OfTheBoundaryLine) {
  const double t = 400;
  const double p_line = line_pressure(t);
  const double p_line_u = line_pressure(t, {15.7473327, -34.17061978, 19.31380707});
  const double h = of(ENTHA2, p_line, t);
  const double s = of(ENTRO2, p_line, t);
  const double u = of(ENERG2, p_line_u, t);
  expect_regions({{vekrth_, t, h + 0.201, 2},
                  {vekrth_, t, h + 0.199, 3},
                  {vekrts_, t, s + 0.000201, 2},
                  {vekrts_, t, s + 0.000199, 3},
                  {vekrtu_, t, u + 0.201, 2},
                  {vekrtu_, t, u + 0.199, 3}});
  // By volume the margin itself is steam at a pressure and dense at a temperature.
  const auto [t_margin, v_at_t] =
      at_margin(400, [](double T) { return of(SPVOL2, line_pressure(T), T); });
  const auto [p_margin, v_at_p] =
      at_margin(300, [](double p) { return of(SPVOL2, p, line_temperature(p)); });
  expect_regions({{vekrtv_, t_margin, v_at_t, 3}, {vekrpv_, p_margin, v_at_p, 2}});
}

TEST(Edges, OfTemperatureBands) {
  const double v_line = of(SPVOL2, line_pressure(590), 590);
  expect_regions({{vekrtv_, 590, 0.99 * v_line, 3},
                  {vekrtv_, up(590), 0.99 * v_line, 2},
                  {vekrtv_, 374.15, 0.0031, 4},
                  {vekrtv_, up(374.15), 0.0031, 3},
                  {vekrtv_, 350, 0.0018, 6},
                  {vekrtv_, up(350), 0.0018, 5},
                  {vekrtv_, 600, 0.004, 2}});
}

TEST(Refusals, LeaveTheirMessageAndThePair) {
  const char* sub_region = " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE";
  const auto text = [&](const char* rest) { return std::string(sub_region) + rest; };
  const std::string by_h = text("  T = 350, H = 1400\n");
  const std::string by_h_cold = text("  T = 100, H = 250\n");
  const std::string by_u = text("  T = 100, U = 250\n");
  const std::string by_us = text("  U = 249.9, S = 0.5\n");
  expect_calls(
      vekrth_, &tol,
      std::vector<Call>{kept(350, 1400, 7, by_h.c_str()), kept(100, 250, 7, by_h_cold.c_str())});
  expect_calls(vekrtu_, &tol, std::vector<Call>{kept(100, 250, 7, by_u.c_str())});
  expect_calls(vekrus_, &tol, std::vector<Call>{kept(249.9, 0.5, 7, by_us.c_str())});
  expect_regions({{vekrth_, 350, up(1400), 1}, {vekrtu_, 100, up(250), 1}, {vekrus_, 250, 0.5, 1}});
}

TEST(Refusals, OfQualityBeyondTheCriticalPointLeaveTheVolume) {
  double v = 0.001;
  double x = 0.5;
  EXPECT_EQ(vekrvx_(&v, &x, &tol), 7);
  EXPECT_EQ(v, 0.001);
}

TEST(SaturatedWater, IsFoundFromItsEntropy) {
  const double t = 100;
  double s = of(ENTRO1, VEKQPT(&t), t);
  double x = 0;
  EXPECT_EQ(vekrsx_(&s, &x, &tol), 6);
  EXPECT_EQ(s, 0);
  EXPECT_NEAR(x, 100, 1e-4);
}

TEST(LowerStartPressure, OfAVolumeAtTheEdgeIsTheLowest) {
  // A lower start of zero, from the formula for denser water, would be reported.
  double v = 0.001000223493;
  double h = 0;
  DiagnosticLines lines;
  vekrvh_(&v, &h, &tol);
  EXPECT_EQ(lines.take().find("P= 0,"), std::string::npos);
}

}  // namespace
