#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "round_trips.hpp"

namespace {

using steam::Pair;
using steam::Property;
using steam::Region;
using steam::State;

constexpr double kelvin = 273.15;

bool is_wet(Region r) { return r == Region::wet || r == Region::wet_above_350; }

/// A state of one phase far enough from the boundaries of its region for differences.
State inner_state(Region region, std::mt19937_64& random) {
  for (;;) {
    const State s = round_trips::random_state(region, random);
    bool inner = s.p > 0.1 && s.p < 990 && s.t > 1 && s.t < 799 && !(s.t > 372 && s.t < 378);
    for (const double dp : {0.99, 1.01}) {
      for (const double dt : {-0.5, 0.5}) {
        inner = inner && steam::value(Pair::pt, s.p * dp, s.t + dt, Property::region) ==
                             static_cast<double>(region);
      }
    }
    if (inner) {
      return s;
    }
  }
}

struct Slopes {
  double v_p, v_t, h_t;
};

/// Central differences of the state's own properties.
Slopes differences(const State& s) {
  const double dp = 1e-4 * s.p, dt = 0.01;
  const auto at = [](double p, double t, Property q) { return steam::value(Pair::pt, p, t, q); };
  const auto over_t = [&](Property q) {
    return (at(s.p, s.t + dt, q) - at(s.p, s.t - dt, q)) / (2 * dt);
  };
  return {(at(s.p + dp, s.t, Property::v) - at(s.p - dp, s.t, Property::v)) / (2 * dp),
          over_t(Property::v), over_t(Property::h)};
}

constexpr double difference_error = 2e-4;

/// Relations between the state's own properties.
void check_definitions(const State& s) {
  EXPECT_NEAR(s.h, s.u + 100 * s.p * s.v, 1e-12 * s.h + 1e-12);
  EXPECT_DOUBLE_EQ(s.density * s.v, 1);
  EXPECT_NEAR(s.isentropic_exponent, s.speed_of_sound * s.speed_of_sound / (1e5 * s.p * s.v),
              1e-12 * s.isentropic_exponent);
  EXPECT_NEAR(s.prandtl, 1000 * s.viscosity * s.cp / s.conductivity, 1e-12 * s.prandtl);
}

/// Derivatives against differences.
void check_derivatives(const State& s) {
  const Slopes d = differences(s);
  const double T = s.t + kelvin;
  EXPECT_NEAR(s.cp, d.h_t, difference_error * s.cp);
  EXPECT_NEAR(s.cp - s.cv, -100 * T * d.v_t * d.v_t / d.v_p, difference_error * s.cp);
  // (∂v/∂p)s = (∂v/∂p)t + T (∂v/∂t)²/cp
  const double v_p_s = d.v_p + 100 * T * d.v_t * d.v_t / s.cp;
  EXPECT_NEAR(s.speed_of_sound, std::sqrt(-s.v * s.v / v_p_s * 1e5),
              difference_error * s.speed_of_sound);
}

TEST(Identities, OfOnePhase) {
  std::mt19937_64 random(3);
  for (const Region region : round_trips::regions) {
    for (int i = 0; i < 100 && !is_wet(region); ++i) {
      const State s = inner_state(region, random);
      SCOPED_TRACE(testing::Message() << "p " << s.p << " t " << s.t);
      check_definitions(s);
      check_derivatives(s);
    }
  }
}

TEST(Identities, SpeedOfSoundIsThatOfAnIsentrope) {
  for (const auto& [p, t] : std::initializer_list<std::pair<double, double>>{
           {50, 60}, {800, 300}, {5, 300}, {600, 700}, {400, 420}, {240, 365}}) {
    const State s = *steam::state(Pair::pt, p, t);
    const double dp = 1e-3 * p;
    const double v_p = (steam::value(Pair::ps, p + dp, s.s, Property::v) -
                        steam::value(Pair::ps, p - dp, s.s, Property::v)) /
                       (2 * dp);
    EXPECT_NEAR(s.speed_of_sound, std::sqrt(-s.v * s.v / v_p * 1e5), 1e-4 * s.speed_of_sound) << p;
  }
}

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
