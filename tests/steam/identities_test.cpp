#include <gtest/gtest.h>

#include <cmath>

#include "vek/steam.hpp"

namespace {

using steam::State;

constexpr double kelvin = 273.15;

/// The saturation line is an equation of its own: the subregions meet Clapeyron's to this.
void check_clapeyron(double t) {
  const State s = *steam::saturation_by_temperature(t);
  const double dt = 1e-3;
  const double slope =
      (steam::saturation_by_temperature(t + dt)->p - steam::saturation_by_temperature(t - dt)->p) /
      (2 * dt);
  const double latent = s.saturated_vapour.h - s.saturated_liquid.h;
  const double dv = s.saturated_vapour.v - s.saturated_liquid.v;
  const double consistency = t < 320 ? 2e-3 : t < 345 ? 5e-3 : 2e-2;
  EXPECT_NEAR(100 * slope * dv * (t + kelvin), latent, consistency * latent) << t;
  EXPECT_NEAR((s.saturated_vapour.s - s.saturated_liquid.s) * (t + kelvin), latent,
              consistency * latent)
      << t;
}

TEST(Identities, ClapeyronAlongSaturation) {
  for (int t = 5; t < 372; t += 3) {
    check_clapeyron(t);
  }
}

}  // namespace
