#include <gtest/gtest.h>

#include <cmath>

#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Property;
using steam::Region;
using steam::State;

TEST(Boundaries, PlacePressuresAndTemperatures) {
  struct Row {
    double p, t;
    Region region;
  };
  const double p_100 = steam::saturation_by_temperature(100)->p;
  const double p_370 = steam::saturation_by_temperature(370)->p;
  const double above = std::nextafter(350.0, 400);
  const Row rows[]{
      {p_100, 100, Region::water},
      {std::nextafter(p_100, 0), 100, Region::steam},
      {200, 350, Region::water},
      {200, above, Region::hot_water},
      {160, above, Region::steam},
      {std::nextafter(p_370, 300), 370, Region::hot_water},
      {std::nextafter(p_370, 0), 370, Region::dense_steam},
      {230, 374.15, Region::dense_steam},
      {1000, 590, Region::steam},
      {1000, 589.9, Region::dense_steam},
      {1000, std::nextafter(590.0, 600), Region::steam},
      {0.006112444, 0.01, Region::steam},
      {1000, 0.01, Region::water},
      {1000, 800, Region::steam},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(steam::state(Pair::pt, row.p, row.t)->region, row.region) << row.p << ' ' << row.t;
  }
}

struct Line {
  Pair pair;
  bool rises;  // temperature on isobars, pressure on isotherms
  double first, from, to;
};

/// The state's other variable may fall back by no more than the misfit of the subregions.
void check_line(const Line& line) {
  const bool isobar = line.pair >= Pair::pv && line.pair <= Pair::pu;
  double last = line.rises ? -1 : 1e9;
  constexpr int steps = 20000;
  for (int i = 0; i <= steps; ++i) {
    const double y = line.from * std::pow(line.to / line.from, static_cast<double>(i) / steps);
    const steam::Result r = steam::state(line.pair, line.first, y);
    ASSERT_TRUE(r) << line.first << ' ' << y;
    const double now = isobar ? r->t : r->p;
    constexpr double misfit_t = 0.09, misfit_p = 3e-3;  // K, share
    const bool is_monotone = line.rises ? now >= last - misfit_t : now <= last * (1 + misfit_p);
    ASSERT_TRUE(is_monotone) << line.first << ' ' << y << ": " << last << ", then " << now;
    last = now;
  }
}

/// Every value between the ends has a state, and the answer is monotone to the formulation's own
/// misfit at its subregion boundaries.
TEST(Boundaries, LinesAreMonotoneAndWithoutHoles) {
  const Line lines[]{
      {Pair::ph, true, 100, 11, 4110},         {Pair::ph, true, 190, 20, 4065},
      {Pair::ph, true, 300, 31, 4015},         {Pair::ph, true, 900, 90, 3750},
      {Pair::ps, true, 190, 0.01, 7.05},       {Pair::ps, true, 500, 0.01, 6.5},
      {Pair::pu, true, 190, 1, 3590},          {Pair::pu, true, 800, 1, 3350},
      {Pair::pv, true, 190, 0.00105, 0.025},   {Pair::pv, true, 600, 0.001, 0.0074},
      {Pair::tv, false, 349.99, 0.00132, 460}, {Pair::tv, false, 365, 0.00136, 480},
      {Pair::tv, false, 420, 0.00152, 520},    {Pair::ts, false, 400, 3.78, 10.8},
      {Pair::ts, false, 360, 3.48, 10.7},      {Pair::th, false, 400, 1800, 3279},
  };
  for (const Line& line : lines) {
    check_line(line);
  }
}

/// At 350 °C and 250 bar the enthalpy of subregion 1 lies 0.15 kJ/kg above that of subregion 3, the
/// volume 6e-8 m³/kg below.
TEST(Boundaries, OverlapsBelongToTheStateTo350) {
  const double h1 = steam::value(Pair::pt, 250, 350, Property::h);
  const double h3 = steam::value(Pair::pt, 250, std::nextafter(350.0, 400), Property::h);
  ASSERT_LT(h3, h1);
  const steam::Result r = steam::state(Pair::ph, 250, (h1 + h3) / 2);
  EXPECT_EQ(r->region, Region::water);
  EXPECT_FALSE(r->approximate);
  EXPECT_NEAR(r->h, (h1 + h3) / 2, 1e-8);
}

void check_gap(double v, Region region) {
  const steam::Result r = steam::state(Pair::pv, 250, v);
  ASSERT_TRUE(r);
  EXPECT_TRUE(r->approximate);
  EXPECT_NEAR(r->t, 350, 1e-6);
  EXPECT_EQ(r->region, region);
  // With two other values too.
  const steam::Result plane = steam::state(Pair::vh, v, r->h);
  ASSERT_TRUE(plane);
  EXPECT_NEAR(plane->t, 350, 0.1);
}

TEST(Boundaries, GapsBelongToTheNearerSide) {
  const double v1 = steam::value(Pair::pt, 250, 350, Property::v);
  const double v3 = steam::value(Pair::pt, 250, std::nextafter(350.0, 400), Property::v);
  ASSERT_GT(v3, v1);
  check_gap(v1 + 0.25 * (v3 - v1), Region::water);
  check_gap(v1 + 0.75 * (v3 - v1), Region::hot_water);
}

/// Next to the critical point the pressure hardly depends on the volume, so the volume has fewer
/// digits there; what is given comes back nevertheless.
void check_near_critical(double p, double t) {
  SCOPED_TRACE(testing::Message() << p << ' ' << t);
  const State s = *steam::state(Pair::pt, p, t);
  const steam::Result by_h = steam::state(Pair::ph, p, s.h);
  ASSERT_TRUE(by_h);
  EXPECT_NEAR(by_h->t, t, 1e-5);
  const steam::Result by_v = steam::state(Pair::tv, t, s.v);
  ASSERT_TRUE(by_v);
  EXPECT_NEAR(by_v->p, p, 1e-8 * p);
}

TEST(Boundaries, CriticalPoint) {
  for (const double dt : {1.0, 0.1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6}) {
    for (const double share : {-1e-4, -1e-7, 0.0, 1e-7, 1e-4}) {
      check_near_critical(221.2 * (1 + share), 374.15 - dt);
      check_near_critical(221.2 * (1 + share), 374.15 + dt);
    }
  }
}

}  // namespace
