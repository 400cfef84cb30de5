#include <gtest/gtest.h>

#include <cmath>

#include "steam/tables/tabulated_saturation.hpp"

namespace {

using steam::Quantity;

TEST(SaturationTable, IsTheLine) {
  for (double t = steam::t_lowest; t < steam::t_critical; t += 0.37) {
    const double p = steam::saturation_pressure(t);
    EXPECT_NEAR(steam::tabulated_saturation_pressure(t), p, 5e-5 * p) << t;
    EXPECT_NEAR(steam::saturation_temperature(p), t, 1e-9) << t;
    EXPECT_NEAR(steam::tabulated_saturation_temperature(p), t, 2e-3) << t;
  }
}

template <Quantity Q>
void check(double t, double liquid, double vapour) {
  // Enthalpy, entropy and energy of water are 0 at the triple point.
  const double scale = Q == Quantity::v ? 0 : vapour / 1000;
  SCOPED_TRACE(testing::Message() << "quantity " << static_cast<int>(Q) << " at " << t << " °C");
  const steam::Ends ends = steam::TabulatedSaturation(t).ends<Q>();
  EXPECT_NEAR(ends.liquid, liquid, 1e-8 * std::fmax(std::abs(liquid), scale));
  EXPECT_NEAR(ends.vapour, vapour, 1e-8 * vapour);
  // The slope is over the root.
  const auto [value, slope] = steam::TabulatedSaturation(t).sloped_ends<Q>();
  EXPECT_NEAR(value.liquid, ends.liquid, 1e-13 * std::fmax(std::abs(liquid), scale));
  EXPECT_NEAR(value.vapour, ends.vapour, 1e-13 * vapour);
  const double step = 1e-4;
  const double r = steam::root_of(t), over_r = steam::root_of(t - step) - r;
  const steam::Ends beside = steam::TabulatedSaturation(t - step).ends<Q>();
  const auto check_slope = [&](double sloped, double first, double second) {
    EXPECT_NEAR(sloped, (second - first) / over_r,
                1e-3 * std::abs(sloped) + 1e-7 * std::abs(first));
  };
  check_slope(slope.liquid, ends.liquid, beside.liquid);
  check_slope(slope.vapour, ends.vapour, beside.vapour);
}

/// Against the equations.
TEST(SaturationTable, HasTheSaturatedStates) {
  for (double t = 0.013; t < steam::t_critical - 0.2; t += 0.61) {
    const steam::Result state = steam::saturation_by_temperature(t, 0.5);
    ASSERT_TRUE(state);
    const steam::Phase &liquid = state->saturated_liquid, &vapour = state->saturated_vapour;
    check<Quantity::v>(t, liquid.v, vapour.v);
    check<Quantity::h>(t, liquid.h, vapour.h);
    check<Quantity::s>(t, liquid.s, vapour.s);
    check<Quantity::u>(t, liquid.u, vapour.u);
  }
}

}  // namespace
