#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "vek/steam.hpp"

namespace {

using steam::Pair;

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

/// By its definition: v √(-∂p/∂v) from equilibrium states of one entropy.
void check_wet_speed_of_sound(double t, double x) {
  const double s = steam::saturation_by_temperature(t, x)->s;
  const double dt = t < 350 ? 0.02 : 1e-4 * (374.15 - t);
  const steam::Result low = steam::state(Pair::ts, t - dt, s);
  const steam::Result high = steam::state(Pair::ts, t + dt, s);
  ASSERT_FALSE(std::isnan(low->x) || std::isnan(high->x));
  const double v = steam::value(Pair::tx, t, x, steam::Property::v);
  const double w = steam::value(Pair::tx, t, x, steam::Property::wet_speed_of_sound);
  const double expected = v * std::sqrt(-1e5 * (high->p - low->p) / (high->v - low->v));
  EXPECT_NEAR(w, expected, 2e-6 * expected) << t << " °C, x = " << x;
}

TEST(States, SpeedOfSoundOfWetSteam) {
  for (const double t : {1.0, 30.0, 100.0, 200.0, 300.0, 345.0, 351.0, 360.0, 370.0, 374.0}) {
    for (const double x : {0.001, 0.02, 0.3, 0.7, 0.999}) {
      check_wet_speed_of_sound(t, x);
    }
  }
}

/// Where a difference of temperatures would leave rounding.
TEST(States, SuperheatOfSaturatedStatesIsZero) {
  using P = steam::Property;
  for (const double t : {100.0, 200.0, 360.0}) {
    for (const P dt :
         {P::superheat, steam::of_liquid(P::superheat), steam::of_vapour(P::superheat)}) {
      EXPECT_EQ(steam::value(Pair::tx, t, 0, dt), 0) << t;
      EXPECT_EQ(steam::value(Pair::tx, t, 1, dt), 0) << t;
    }
  }
}

TEST(States, PhasesInWords) {
  const std::tuple<double, double, const char*> rows[]{{1, 20, "water"},
                                                       {1, 200, "steam"},
                                                       {250, 360, "water"},
                                                       {180, 360, "steam"},
                                                       {300, 400, "supercritical fluid"},
                                                       {300, 700, "supercritical fluid"},
                                                       {200, 400, "steam"}};
  for (const auto& [p, t, phase] : rows) {
    EXPECT_STREQ(steam::state(Pair::pt, p, t)->phase(), phase);
  }
}

}  // namespace
