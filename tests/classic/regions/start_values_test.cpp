#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/frame/guards.hpp"
#include "classic/regions/residuals.hpp"
#include "classic/solve/root_solvers.hpp"
#include "vek/vek.h"

// A solver returns a start value to the bit when it is the root: for each start value a state that
// has it, and with which it must come back.

namespace {

using namespace classic;

double tol = 1e-8;

// A property at the start value of a pressure, volume or temperature.
struct Row {
  VekFinder finder;
  Function property;
  double z, t;
  int region;
};
constexpr double v_water = 0.001314782578;
const Row by_t[] = {{vekrtv_, SPVOL1, 1000, 100, 1},        {vekrtv_, SPVOL2, 0.06112444, 200, 2},
                    {vekrtv_, SPVOL2, 0.00611244, 400, 2},  {vekrth_, ENTHA1, 1000, 345, 1},
                    {vekrth_, ENTHA2, 0.01, 200, 2},        {vekrth_, ENTHA2, 0.001, 700, 2},
                    {vekrtu_, ENERG1, 1000, 200, 1},        {vekrtu_, ENERG2, 0.01, 200, 2},
                    {vekrtu_, ENERG2, 0.001, 700, 2},       {vekrts_, ENTRO1, 1000, 200, 1},
                    {vekrts_, ENTRO2, 0.006112444, 200, 2}, {vekrts_, ENTRO2, 0.006112444, 700, 2},
                    {vekrth_, ENTHA3, v_water, 360, 4},     {vekrth_, ENTHA3, 0.00137, 400, 3},
                    {vekrtu_, ENERG3, v_water, 360, 4},     {vekrtu_, ENERG3, 0.00137, 400, 3},
                    {vekrts_, ENTRO3, v_water, 360, 4},     {vekrts_, ENTRO3, 0.00137, 400, 3}};
const Row by_p[] = {{vekrpv_, SPVOL1, 300, 0.01, 1}, {vekrpv_, SPVOL1, 300, 350, 1},
                    {vekrpv_, SPVOL2, 10, 800, 2},   {vekrph_, ENTHA1, 300, 0.01, 1},
                    {vekrph_, ENTHA1, 300, 350, 1},  {vekrph_, ENTHA2, 10, 800, 2},
                    {vekrps_, ENTRO1, 300, 0.01, 1}, {vekrpu_, ENERG2, 300, 800, 2},
                    {vekrpv_, SPVOL1, 10, 0.01, 1},  {vekrph_, ENTHA1, 10, 0.01, 1}};

TEST(StartValues, OfTheFindersFromPressureOrTemperature) {
  const auto expect = [](VekFinder finder, double a, double b, const Row& row) {
    EXPECT_EQ(finder(&a, &b, &tol), row.region) << row.z << ' ' << row.t;
    EXPECT_EQ(a, row.z);
    EXPECT_EQ(b, row.t);
  };
  for (const Row& row : by_t) {
    expect(row.finder, row.t, row.property(&row.z, &row.t), row);
  }
  for (const Row& row : by_p) {
    expect(row.finder, row.z, row.property(&row.z, &row.t), row);
  }
  const auto p_at = [](double v, double t) { return PRESS3(&v, &t); };
  expect(vekrpt_, p_at(v_water, 360), 360, {vekrpt_, PRESS3, v_water, 360, 4});
  expect(vekrpt_, p_at(0.00137, 400), 400, {vekrpt_, PRESS3, 0.00137, 400, 3});
  expect(vekrpv_, p_at(0.002, 374.15), 0.002, {vekrpv_, PRESS3, 0.002, 374.15, 4});
  // Of two unknowns the first start temperature alone is tested.
  const double v = 0.00317, t = 374.15;
  expect(vekrph_, p_at(v, t), ENTHA3(&v, &t), {vekrph_, PRESS3, v, t, 4});
}

/// Upper start temperature of the finders from a caloric value and entropy.
double start(double T0, double s, double s0, double factor, double kelvin) {
  return T0 * SafeExp((s - s0) * factor) - kelvin;
}

struct Bracket {
  double s;
  double start;  // temperature, upper or lower
};

/// A state at a start temperature comes back with it.
void expect_start(VekFinder finder, Residual residual, const std::vector<Bracket>& brackets) {
  for (const Bracket& bracket : brackets) {
    SCOPED_TRACE(bracket.s);
    double a = residual(&bracket.start, &bracket.s, &tol);
    double b = bracket.s;
    finder(&a, &b, &tol);
    EXPECT_EQ(b, bracket.start);
  }
}

TEST(StartTemperatures, FromEnthalpyAndEntropy) {
  expect_start(vekrhs_, HOFTS,
               {{1, start(273.16, 1, 0, 0.2631578947368421, 273.15)},
                {3.35, 351},
                {3.45, start(623.15, 3.45, 3.392, 0.2242152466367713, 273.15)},
                {3.584, 375},
                {3.585, start(647.3, 3.585, 3.585, 0.19762845849802374, 275.15)},
                {4.5, start(647.3, 4.5, 3.585, 0.19762845849802374, 275.15)},
                {5.09, 591},
                {5.091, start(863.15, 5.091, 5.091, 0.273972602739726, 273.15)},
                {5.5, start(863.15, 5.5, 5.091, 0.273972602739726, 273.15)},
                {6.03, 800},
                {9.15746, 0.01},
                {9.5, start(273.1, 9.5, 9.15746, 0.5555555555555556, 273.15)}});
}

// Single-precision copies of the ends of the bands, and factors that belong to them.
TEST(StartTemperatures, FromEnergyAndEntropy) {
  expect_start(
      vekrus_, UOFTS,
      {{1.5, start(273.16, 1.5, 0, 0.2631578947368421, 273.15)},
       {3.45, start(623.15, 3.45, 3.3919999599456787, 0.2242152447190285, 273.15)},
       {3.585, 375},
       {4.5, start(647.3, 4.5, 3.5850000381469727, 0.19762846073288365, 273.15)},
       {5.091, start(647.3, 5.091, 3.5850000381469727, 0.19762846073288365, 273.15)},
       {5.5, start(863.15, 5.5, 5.091000080108643, 0.2739725955813527, 273.15)},
       {6.03, 800},
       {9.5, start(273.1000061035156, 9.5, 9.15746021270752, 0.5555555702727522, 273.15)}});
}

TEST(StartPressures, OfDenseWaterByEntropyEndAt990) {
  const double v = 0.00095, p = 990;
  double a = v, s = SOFPV(&p, &v, &tol);
  EXPECT_EQ(vekrvs_(&a, &s, &tol), 1);
  EXPECT_EQ(a, p);
}

}  // namespace
