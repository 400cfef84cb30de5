#include "support/edges.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"
#include "formulation/boundary_line.hpp"
#include "support/diagnostic_lines.hpp"
#include "vek/vek.h"

// Which side of a boundary belongs to which region, to the last bit or to the margin of the finder,
// and what is refused.

namespace {

using namespace classic;
using formulation::line_pressure;

double tol = 1e-8;

int region_of(VekFinder finder, double a, double b) { return finder(&a, &b, &tol); }

/// The regions at a second value and at the next larger one, or so much below and above.
struct Edge {
  VekFinder finder;
  double a, b;
  int below, above;
  double aside = 0;
};

void expect_edges(const std::vector<Edge>& edges) {
  int line = 0;
  for (const auto& [finder, a, b, below, above, aside] : edges) {
    SCOPED_TRACE(testing::Message() << "row " << ++line << ": " << a << ", " << b);
    EXPECT_EQ(region_of(finder, a, aside == 0 ? b : b - aside), below);
    EXPECT_EQ(region_of(finder, a, aside == 0 ? up(b) : b + aside), above);
  }
}

double of(double (*f)(const double*, const double*), double first, double second) {
  return f(&first, &second);
}

// Saturated water is water, by entropy with the relative tolerance as a margin; saturated steam is
// steam, except by energy.
TEST(Edges, OfSaturationAtAPressure) {
  const double p = 10, ts = VEKQIT(p);
  expect_edges({{vekrpv_, p, of(SPVOL1, p, ts), 1, 6},
                {vekrph_, p, of(ENTHA1, p, ts), 1, 6},
                {vekrps_, p, of(ENTRO1, p, ts) + tol, 1, 6, 0.1 * tol},
                {vekrpu_, p, of(ENERG1, p, ts), 1, 6},
                {vekrpv_, p, down(of(SPVOL2, p, ts)), 6, 2},
                {vekrph_, p, down(of(ENTHA2, p, ts)), 6, 2},
                {vekrps_, p, down(of(ENTRO2, p, ts)), 6, 2},
                {vekrpu_, p, of(ENERG2, p, ts), 6, 2}});
}

TEST(Edges, OfSaturationAbove350AtAPressure) {
  const double p = 200, ts = VEKQIT(p);
  const double v_water = liquid_volume3(&ts, &p, &tol), v_steam = vapour_volume3(&ts, &p, &tol);
  expect_edges({{vekrpv_, p, v_water, 4, 5},
                {vekrpv_, p, down(v_steam), 5, 3},
                {vekrph_, p, down(of(ENTHA3, v_steam, ts)), 5, 3},
                {vekrps_, p, down(of(ENTRO3, v_water, ts)), 4, 5}});
}

TEST(Edges, OfSaturationAtATemperature) {
  const double t = 340, ps = VEKQPT(&t);
  expect_edges({{vekrtv_, t, down(of(SPVOL1, ps, t)), 1, 6},
                {vekrtv_, t, of(SPVOL2, ps, t), 6, 2},
                {vekrth_, t, of(ENTHA1, ps, t), 1, 6},
                {vekrth_, t, of(ENTHA2, ps, t), 6, 2},
                {vekrtu_, t, of(ENERG1, ps, t), 1, 6},
                {vekrtu_, t, of(ENERG2, ps, t), 6, 2},
                {vekrts_, t, of(ENTRO1, ps, t), 1, 6},
                {vekrts_, t, down(of(ENTRO2, ps, t)), 6, 2}});
  const double hot = 360, p = VEKQPT(&hot);
  const double v_water = liquid_volume3(&hot, &p, &tol), v_steam = vapour_volume3(&hot, &p, &tol);
  expect_edges({{vekrtv_, hot, v_water, 4, 5},
                {vekrtv_, hot, v_steam, 5, 3},
                {vekrth_, hot, of(ENTHA3, v_water, hot), 4, 5},
                {vekrth_, hot, of(ENTHA3, v_steam, hot), 5, 3},
                {vekrtu_, hot, of(ENERG3, v_water, hot), 4, 5},
                {vekrtu_, hot, of(ENERG3, v_steam, hot), 5, 3},
                {vekrts_, hot, of(ENTRO3, v_water, hot), 4, 5},
                {vekrts_, hot, of(ENTRO3, v_steam, hot), 5, 3}});
}

/// A state whose distance from the boundary line is exactly the margin of -5, in the finders' own
/// arithmetic: few are, so many are tried.
template <class LineVolume>
std::pair<double, double> at_margin(double known, LineVolume line_volume) {
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

// The margins differ in size and sign, and so do the digits of the line: those by energy are
// transposed, and the finders from a pressure below the critical one invert it in single precision.
TEST(Edges, OfTheBoundaryLine) {
  const double t = 400, p_t = line_pressure(t);
  const double p_u = line_pressure(t, {15.7473327, -34.17061978, 19.31380707});
  const double p = 200, t_single = line_temperature_single(p);
  const double q = 230, t_double = line_temperature(q);
  expect_edges({{vekrth_, t, of(ENTHA2, p_t, t) + 0.2, 3, 2, 0.001},
                {vekrts_, t, of(ENTRO2, p_t, t) + 0.0002, 3, 2, 1e-6},
                {vekrtu_, t, of(ENERG2, p_u, t) + 0.2, 3, 2, 0.001},
                {vekrph_, p, of(ENTHA2, p, t_single) - 0.2, 3, 2, 1e-5},
                {vekrps_, p, of(ENTRO2, p, t_single) + 0.0002, 3, 2, 1e-8},
                {vekrpu_, p, of(ENERG2, p, t_single) + 0.2, 3, 2, 1e-5},
                {vekrph_, q, of(ENTHA2, q, t_double) - 0.2, 3, 2, 1e-6}});
  // By volume the margin itself is steam at a pressure and dense at a temperature.
  const auto [t_at, v_at_t] =
      at_margin(400, [](double x) { return of(SPVOL2, line_pressure(x), x); });
  const auto [p_at, v_at_p] =
      at_margin(300, [](double x) { return of(SPVOL2, x, line_temperature(x)); });
  expect_edges({{vekrtv_, t_at, v_at_t, 3, 2}, {vekrpv_, p_at, down(v_at_p), 3, 2}});
}

TEST(Edges, OfWaterAt350) {
  const double p = 200, t = 350;
  const double v = of(SPVOL1, p, t);
  expect_edges({{vekrph_, p, of(ENTHA1, p, t) + 0.2, 1, 4, 0.001},
                {vekrps_, p, of(ENTRO1, p, t) + 0.0002, 1, 4, 1e-6},
                {vekrpu_, p, of(ENERG1, p, t) + 0.2, 1, 4, 0.001},
                {vekrpv_, p, v * (1 + 5e-4), 1, 4, 1e-5 * v}});
}

TEST(Edges, OfTheBands) {
  const double v_line = of(SPVOL2, line_pressure(590), 590);
  constexpr double p_350 = 165.3512406;
  // Wet in the low band, inside the margin above it.
  const double v = of(SPVOL1, p_350, 350) * (1 + 4e-4), h = of(ENTHA1, p_350, 350) + 0.1;
  const double h_critical = of(ENTHA3, 0.00317, 374.15);
  // The region here and at the next larger first value.
  const std::tuple<VekFinder, double, double, int, int> rows[] = {
      {vekrtv_, 590, 0.99 * v_line, 3, 2}, {vekrtv_, 374.15, 0.0031, 4, 3},
      {vekrtv_, 350, 0.0018, 6, 5},        {vekrpv_, p_350, v, 6, 1},
      {vekrph_, p_350, h, 6, 1},           {vekrph_, 221.2, h_critical, 3, 4},
  };
  for (const auto& [finder, a, b, here, above] : rows) {
    EXPECT_EQ(region_of(finder, a, b), here) << a << ' ' << b;
    EXPECT_EQ(region_of(finder, up(a), b), above) << a << ' ' << b;
  }
}

TEST(Refusals, LeaveTheirMessageAndThePair) {
  const auto expect = [](VekFinder finder, double a, double b, const std::string& values) {
    DiagnosticLines lines;
    double first = a, second = b;
    EXPECT_EQ(finder(&first, &second, &tol), 7);
    EXPECT_TRUE(first == a && second == b);
    EXPECT_EQ(lines.take(), " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE  " + values + "\n");
  };
  expect(vekrth_, 350, 1400, "T = 350, H = 1400");
  expect(vekrth_, 100, 250, "T = 100, H = 250");
  expect(vekrtu_, 100, 250, "T = 100, U = 250");
  expect(vekrus_, 249.9, 0.5, "U = 249.9, S = 0.5");
  EXPECT_EQ(region_of(vekrth_, 350, up(1400)), 1);
  EXPECT_EQ(region_of(vekrtu_, 100, up(250)), 1);
  EXPECT_EQ(region_of(vekrus_, 250, 0.5), 1);
  double v = 0.001, x = 0.5;  // beyond the critical point
  EXPECT_EQ(vekrvx_(&v, &x, &tol), 7);
  EXPECT_EQ(v, 0.001);
}

}  // namespace
