#include <gtest/gtest.h>

#include <cmath>

#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Region;

struct Check {
  Pair pair;
  Region region;
  double first, second, v, h, s, cp;
};

/// Published and independently computed states; half a unit of the last digit given.
TEST(States, CheckValues) {
  const Check checks[]{
      {Pair::pt, Region::water, 1000, 20, 0.0009616400666, 173.9921742, 0.2691727335, 3.968075256},
      {Pair::pt, Region::water, 100, 100, 0.00103861063, 426.5035432, 1.299187284, 4.193881239},
      {Pair::pt, Region::steam, 1, 200, 2.172328254, 2875.3573, 7.834945623, 1.978952289},
      {Pair::pt, Region::steam, 100, 500, 0.03275978144, 3374.598243, 6.599444799, 2.546684806},
      {Pair::pt, Region::steam, 10, 800, 0.4942962015, 4154.06288, 8.49965676, 2.343815168},
      {Pair::tv, Region::hot_water, 360, 0.0018, 0.0018, 1734.319336, 3.86791493, 10.29811249},
      {Pair::tv, Region::dense_steam, 380, 0.0025, 0.0025, 2002.917692, 4.273136652, 50.89796636},
      {Pair::tv, Region::dense_steam, 400, 0.006, 0.006, 2580.75998, 5.143481903, 13.55834207},
  };
  for (const Check& check : checks) {
    const steam::Result r = steam::state(check.pair, check.first, check.second);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->region, check.region);
    constexpr double digits = 6e-10;
    EXPECT_NEAR(r->v, check.v, digits * check.v);
    EXPECT_NEAR(r->h, check.h, digits * check.h);
    EXPECT_NEAR(r->s, check.s, digits * check.s);
    EXPECT_NEAR(r->cp, check.cp, digits * check.cp);
  }
}

TEST(States, SaturationFromEitherSide) {
  const steam::Result by_t = steam::saturation_by_temperature(100, 0.25);
  ASSERT_TRUE(by_t);
  EXPECT_STREQ(by_t->phase(), "wet steam");
  EXPECT_NEAR(by_t->p, 1.01325262, 5e-9);
  EXPECT_NEAR(by_t->saturated_liquid.h, 419.0646848, 5e-8);
  EXPECT_NEAR(by_t->saturated_vapour.s, 7.355379554, 5e-10);
  EXPECT_NEAR(by_t->h, 419.0646848 + 0.25 * (2676.008765 - 419.0646848), 1e-6);
  EXPECT_NEAR(by_t->surface_tension, 0.0589, 1e-4);
  EXPECT_TRUE(std::isnan(by_t->cp) && std::isnan(by_t->viscosity) &&
              std::isnan(by_t->speed_of_sound));
  const steam::Result by_p = steam::saturation_by_pressure(by_t->p, 0.25);
  ASSERT_TRUE(by_p);
  EXPECT_NEAR(by_p->t, 100, 1e-12);
}

TEST(States, PhasesInWords) {
  const auto phase = [](double p, double t) {
    return std::string(steam::state(Pair::pt, p, t)->phase());
  };
  EXPECT_EQ(phase(1, 20), "water");
  EXPECT_EQ(phase(1, 200), "steam");
  EXPECT_EQ(phase(250, 360), "water");
  EXPECT_EQ(phase(180, 360), "steam");
  EXPECT_EQ(phase(300, 400), "supercritical fluid");
  EXPECT_EQ(phase(300, 700), "supercritical fluid");
  EXPECT_EQ(phase(200, 400), "steam");
}

}  // namespace
