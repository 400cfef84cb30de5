#include "classic/equations/properties.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"
#include "support/edges.hpp"

using namespace classic;

namespace {

// Enthalpy and entropy of water sum up terms some ten thousand times larger than the result.
constexpr double agreement = 1e-10;

::testing::AssertionResult agrees(const char* name, double value, double expected, double scale) {
  const double tolerance = agreement * std::max(std::abs(expected), scale);
  if (std::abs(value - expected) <= tolerance) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << name << " is " << value << ", off by " << value - expected;
}

/// Scales below which a deviation counts as absolute: h, s and u pass through zero.
void expect_agreement(const canonical::Properties& value, const canonical::Properties& expected) {
  EXPECT_TRUE(agrees("p", value.p, expected.p, 0));
  EXPECT_TRUE(agrees("v", value.v, expected.v, 0));
  EXPECT_TRUE(agrees("h", value.h, expected.h, 70));
  EXPECT_TRUE(agrees("s", value.s, expected.s, 0.1));
  EXPECT_TRUE(agrees("u", value.u, expected.u, 70));
  EXPECT_TRUE(agrees("cp", value.cp, expected.cp, 0));
}

void compare1(double p, double t) {
  SCOPED_TRACE(testing::Message() << "water " << p << " bar " << t << " °C");
  expect_agreement(
      {p, SPVOL1(&p, &t), ENTHA1(&p, &t), ENTRO1(&p, &t), ENERG1(&p, &t), HTCAP1(&p, &t)},
      canonical::subregion1(p, t));
}

void compare2(double p, double t) {
  SCOPED_TRACE(testing::Message() << "steam " << p << " bar " << t << " °C");
  expect_agreement(
      {p, SPVOL2(&p, &t), ENTHA2(&p, &t), ENTRO2(&p, &t), ENERG2(&p, &t), HTCAP2(&p, &t)},
      canonical::subregion2(p, t));
}

using canonical::Conditional;

Conditional conditional_part(double v, double t) {
  return v < 0.00317 && t < 374.15 ? Conditional::all : Conditional::none;
}

void compare3(double v, double t) {
  SCOPED_TRACE(testing::Message() << "subregion 3 " << v << " m³/kg " << t << " °C");
  expect_agreement(
      {PRESS3(&v, &t), v, ENTHA3(&v, &t), ENTRO3(&v, &t), ENERG3(&v, &t), HTCAP3(&v, &t)},
      canonical::subregion3(v, t, conditional_part(v, t)));
  const auto always =
      canonical::subregion3(v, t, t <= 374.15 ? Conditional::all : Conditional::without_last_sum);
  EXPECT_TRUE(agrees("PRESS3X", PRESS3X(&v, &t), always.p, 0));
  EXPECT_TRUE(agrees("ENTHA3X", ENTHA3X(&v, &t), always.h, 0));
}

double saturation_pressure(double t) { return VEKQPT(&t); }

/// Whether subregion 3 has an ordinary state there: stable, and not next to the critical point,
/// where the heat capacity goes to infinity.
bool is_ordinary3(double v, double t) {
  const double cp = HTCAP3(&v, &t);
  const double p = PRESS3(&v, &t);
  return cp > 0 && cp < 200 && p > 100 && p < 1200;
}

}  // namespace

TEST(PropertiesAgainstDerivatives, OnAGrid) {
  for (const double t : {0.01, 4.0, 20.0, 100.0, 137.0, 200.0, 263.0, 300.0, 350.0}) {
    const double ps = saturation_pressure(t);
    for (const double p : {ps, 221.2, 500.0, 1000.0}) {
      compare1(p, t);
    }
    compare2(ps, t);
    compare2(0.006112444, t);
  }
  for (const double t : {400.0, 500.0, 590.0, 700.0, 800.0}) {
    for (const double p : {0.006112444, 1.0, 50.0, 170.0}) {
      compare2(p, t);
    }
  }
  for (const double t : {350.0, 360.0, 370.0, 373.9, 373.95, 374.15, 380.0, 420.0, 590.0}) {
    for (const double v : {0.00135, 0.0016, 0.0018, 0.0025, 0.00317, 0.004, 0.006, 0.0087}) {
      if (is_ordinary3(v, t)) {
        compare3(v, t);
      }
    }
  }
}

TEST(Properties, OfSaturatedWaterAtTheTriplePointHaveTheirZeroThere) {
  const double t = 0.01;
  const double p = saturation_pressure(t);
  EXPECT_LT(std::abs(ENERG1(&p, &t)), 1e-9);
  EXPECT_LT(std::abs(ENTRO1(&p, &t)), 1e-10);
}

// At the critical temperature or volume exactly, ENTHA3 and ENTRO3 leave the group out already.
TEST(Properties, OfSubregion3DropTheConditionalGroupFromTheCriticalPointOn) {
  struct Row {
    double v, t;
    bool dropped;
  };
  const Row rows[] = {{0.002, 360, false},
                      {down(0.00317), 360, false},
                      {0.00317, 360, true},
                      {0.005, 360, true},
                      {0.002, 400, true}};
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.v << ' ' << row.t);
    EXPECT_EQ(ENTHA3X(&row.v, &row.t) != ENTHA3(&row.v, &row.t), row.dropped);
    const auto expected = canonical::subregion3(row.v, row.t, conditional_part(row.v, row.t));
    EXPECT_TRUE(agrees("s", ENTRO3(&row.v, &row.t), expected.s, 0));
  }
}

TEST(Properties, GiveTheInternalEnergyOperationForOperation) {
  const double p = 123.4;
  const double t = 321.5;
  EXPECT_EQ(ENERG1(&p, &t), ENTHA1(&p, &t) - 100 * p * SPVOL1(&p, &t));
  EXPECT_EQ(ENERG2(&p, &t), ENTHA2(&p, &t) - 100 * p * SPVOL2(&p, &t));
  const double v = 0.0021;
  const double t3 = 371.5;
  EXPECT_EQ(ENERG3(&v, &t3), ENTHA3(&v, &t3) - PRESS3(&v, &t3) * v * 100);
}
