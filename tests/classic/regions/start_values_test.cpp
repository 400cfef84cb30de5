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

struct Start {
  VekFinder finder;
  double a, b;
  int region;
  double first, second;  // the pair left
};

void expect_returned(const std::vector<Start>& starts) {
  for (const Start& start : starts) {
    SCOPED_TRACE(&start - starts.data());
    double a = start.a;
    double b = start.b;
    EXPECT_EQ(start.finder(&a, &b, &tol), start.region);
    EXPECT_EQ(a, start.first);
    EXPECT_EQ(b, start.second);
  }
}

/// A function of a pair by value.
double of(Function f, double first, double second) { return f(&first, &second); }

TEST(StartValues, OfTheFindersFromTemperature) {
  constexpr double v_water = 0.001314782578;
  expect_returned({
      {vekrtv_, 100, of(SPVOL1, 1000, 100), 1, 1000, 100},
      {vekrtv_, 200, of(SPVOL2, 0.06112444, 200), 2, 0.06112444, 200},
      {vekrtv_, 400, of(SPVOL2, 0.00611244, 400), 2, 0.00611244, 400},
      {vekrth_, 345, of(ENTHA1, 1000, 345), 1, 1000, 345},
      {vekrth_, 200, of(ENTHA2, 0.01, 200), 2, 0.01, 200},
      {vekrth_, 700, of(ENTHA2, 0.001, 700), 2, 0.001, 700},
      {vekrtu_, 200, of(ENERG1, 1000, 200), 1, 1000, 200},
      {vekrtu_, 200, of(ENERG2, 0.01, 200), 2, 0.01, 200},
      {vekrtu_, 700, of(ENERG2, 0.001, 700), 2, 0.001, 700},
      {vekrts_, 200, of(ENTRO1, 1000, 200), 1, 1000, 200},
      {vekrts_, 200, of(ENTRO2, 0.006112444, 200), 2, 0.006112444, 200},
      {vekrts_, 700, of(ENTRO2, 0.006112444, 700), 2, 0.006112444, 700},
      // Volumes.
      {vekrpt_, of(PRESS3, v_water, 360), 360, 4, v_water, 360},
      {vekrpt_, of(PRESS3, 0.00137, 400), 400, 3, 0.00137, 400},
      {vekrth_, 360, of(ENTHA3, v_water, 360), 4, v_water, 360},
      {vekrth_, 400, of(ENTHA3, 0.00137, 400), 3, 0.00137, 400},
      {vekrtu_, 360, of(ENERG3, v_water, 360), 4, v_water, 360},
      {vekrtu_, 400, of(ENERG3, 0.00137, 400), 3, 0.00137, 400},
      {vekrts_, 360, of(ENTRO3, v_water, 360), 4, v_water, 360},
      {vekrts_, 400, of(ENTRO3, 0.00137, 400), 3, 0.00137, 400},
  });
}

TEST(StartTemperatures, OfTheFindersFromPressure) {
  const double p_critical = of(PRESS3, 0.00317, 374.15);
  const double p_374 = of(PRESS3, 0.002, 374.15);
  expect_returned({
      {vekrpv_, 300, of(SPVOL1, 300, 0.01), 1, 300, 0.01},
      {vekrpv_, 300, of(SPVOL1, 300, 350), 1, 300, 350},
      {vekrpv_, 10, of(SPVOL2, 10, 800), 2, 10, 800},
      {vekrpv_, p_374, 0.002, 4, 0.002, 374.15},
      {vekrph_, 300, of(ENTHA1, 300, 0.01), 1, 300, 0.01},
      {vekrph_, 300, of(ENTHA1, 300, 350), 1, 300, 350},
      {vekrph_, 10, of(ENTHA2, 10, 800), 2, 10, 800},
      {vekrps_, 300, of(ENTRO1, 300, 0.01), 1, 300, 0.01},
      {vekrpu_, 300, of(ENERG2, 300, 800), 2, 300, 800},
      // Of two unknowns the first start temperature alone is tested.
      {vekrph_, p_critical, of(ENTHA3, 0.00317, 374.15), 4, 0.00317, 374.15},
  });
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
                {6.04, 800},
                {9.15746, 0.01},
                {9.5, start(273.1, 9.5, 9.15746, 0.5555555555555556, 273.15)}});
}

TEST(StartTemperatures, FromEnergyAndEntropy) {
  // Single-precision copies of the ends of the bands, and factors that belong to them.
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
  const double v = 0.00095;
  const double p = 990;
  double a = v;
  double s = SOFPV(&p, &v, &tol);
  EXPECT_EQ(vekrvs_(&a, &s, &tol), 1);
  EXPECT_EQ(a, 990);
}

}  // namespace
