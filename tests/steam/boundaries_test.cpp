#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <vector>

#include "round_trips.hpp"
#include "support/canonical.hpp"
#include "support/edges.hpp"
#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Region;
using steam::State;

TEST(Boundaries, PlacePressuresAndTemperatures) {
  const double p_100 = steam::saturation_by_temperature(100)->p;
  const double p_370 = steam::saturation_by_temperature(370)->p;
  const double p_350 = steam::saturation_by_temperature(350)->p;
  constexpr double t_line = 450;  // on the boundary line between subregions 2 and 3
  const double p_line = canonical::boundary_line(t_line);
  constexpr double ulps = 2e-14;  // the rounding of the line itself
  using enum Region;
  const std::tuple<double, double, Region> rows[]{{p_100, 100, water},
                                                  {down(p_100), 100, steam},
                                                  {p_350, 350, water},
                                                  {down(p_350), 350, steam},
                                                  {200, 350, water},
                                                  {200, up(350), hot_water},
                                                  {160, up(350), steam},
                                                  {p_370, 370, hot_water},
                                                  {up(p_370), 370, hot_water},
                                                  {down(p_370), 370, dense_steam},
                                                  {221.2, 374.15, dense_steam},
                                                  {230, 374.15, dense_steam},
                                                  {1000, 590, steam},
                                                  {1000, 589.999999, dense_steam},
                                                  {1000, up(590), steam},
                                                  {230, down(374.15), hot_water},
                                                  {0.006112444, 0.01, steam},
                                                  {0.0061124441, 0.01, water},
                                                  {1000, 0.01, water},
                                                  {1000, 800, steam},
                                                  {0.006112444, 800, steam},
                                                  {p_line * (1 - ulps), t_line, steam},
                                                  {p_line * (1 + ulps), t_line, dense_steam}};
  for (const auto& [p, t, region] : rows) {
    EXPECT_EQ(steam::state(Pair::pt, p, t)->region, region) << p << ' ' << t;
  }
  EXPECT_EQ(steam::state(Pair::tx, 350, 0)->region, Region::wet);
  EXPECT_EQ(steam::state(Pair::tx, up(350), 0)->region, Region::wet_above_350);
  EXPECT_EQ(steam::state(Pair::px, p_350, 0.5)->region, Region::wet);
  EXPECT_EQ(steam::state(Pair::px, 165.36, 0.5)->region, Region::wet_above_350);
}

TEST(Boundaries, EndsOfTheRangeBelongToIt) {
  using steam::Reason;
  constexpr auto none = Reason::none;
  const std::tuple<Pair, double, double, Reason, Reason> rows[]{
      {Pair::pt, 0.006112444, 300, Reason::pressure, none},
      {Pair::pt, 1000, 300, none, Reason::pressure},
      {Pair::px, 0.006112444, 0.5, Reason::pressure, none},
      {Pair::px, 221.2, 0.5, none, Reason::pressure},
      {Pair::tx, 0.01, 0.5, Reason::temperature, none},
      {Pair::tx, 374.15, 0.5, none, Reason::temperature},
      {Pair::tv, 0.01, 0.001, Reason::temperature, none},
      {Pair::tv, 800, 1, none, Reason::temperature},
  };
  const auto reason = [](Pair pair, double first, double second) {
    return steam::state(pair, first, second).refusal().reason;
  };
  for (const auto& [pair, first, second, below, above] : rows) {
    SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ' ' << first);
    EXPECT_EQ(reason(pair, down(first), second), below);
    EXPECT_EQ(reason(pair, first, second), none);
    EXPECT_EQ(reason(pair, up(first), second), above);
  }
  for (const double x : {0.0, 1.0}) {
    EXPECT_EQ(reason(Pair::tx, 200, x), none);
    EXPECT_EQ(reason(Pair::tx, 200, x == 0 ? down(x) : up(x)), Reason::quality);
  }
}

struct Line {
  Pair pair;
  double first, from, to;
};

/// From the first to the last value temperature rises on isobars, and pressure on isotherms,
/// falling back by no more than the misfit of the subregions; of what is found other pairs have a
/// state too.
void check_line(const Line& line) {
  const bool is_isobar = line.pair >= Pair::pv && line.pair <= Pair::pu;
  double last = -1;
  constexpr int steps = 20000;
  for (int i = 0; i <= steps; ++i) {
    const double y = line.from * std::pow(line.to / line.from, static_cast<double>(i) / steps);
    const steam::Result r = steam::state(line.pair, line.first, y);
    ASSERT_TRUE(r) << line.first << ' ' << y;
    const double now = is_isobar ? r->t : r->p;
    ASSERT_GE(now, is_isobar ? last - 0.09 : last * (1 - 3e-3)) << line.first << ' ' << y;
    last = now;
    for (const Pair other : {Pair::hs, Pair::vu, Pair::vh}) {
      const auto [first, second] = round_trips::given(other, *r);
      const steam::Result same = steam::state(other, first, second);
      ASSERT_TRUE(same && std::abs(same->t - r->t) < 0.7) << line.first << ' ' << y;
    }
  }
}

/// Every value between the ends has a state, and the answer is monotone to the formulation's own
/// misfit at its subregion boundaries.
TEST(Boundaries, LinesAreMonotoneAndWithoutHoles) {
  const Line lines[]{{Pair::ph, 100, 11, 4110},      {Pair::ph, 190, 20, 4065},
                     {Pair::ph, 900, 90, 3750},      {Pair::ps, 190, 0.01, 7.05},
                     {Pair::ps, 500, 0.01, 6.5},     {Pair::pu, 190, 1, 3590},
                     {Pair::pu, 800, 1, 3350},       {Pair::pv, 190, 0.00105, 0.025},
                     {Pair::pv, 600, 0.001, 0.0074}, {Pair::tv, 349.99, 460, 0.00132},
                     {Pair::tv, 365, 480, 0.00136},  {Pair::tv, 420, 520, 0.00152},
                     {Pair::ts, 400, 10.8, 3.78},    {Pair::ts, 360, 10.7, 3.48},
                     {Pair::th, 400, 3279, 1800}};
  for (const Line& line : lines) {
    check_line(line);
  }
}

/// A jump of the equations: the states on the two sides of a boundary on one isobar or isotherm,
/// and which of them counts where both have a pair.
struct Jump {
  State small, large;  // where volume, enthalpy, entropy and energy are, on each side, smaller
  bool small_counts;
};

std::vector<Jump> jumps(bool isobars) {
  const auto at = [](double p, double t) { return *steam::state(Pair::pt, p, t); };
  std::vector<Jump> all;
  for (const double p : {170.0, 200.0, 250.0, 300.0, 500.0, 700.0, 1000.0}) {
    if (isobars) {
      all.push_back({at(p, 350), at(p, up(350)), true});
    }
  }
  for (const double t : {351.0, 360.0, 374.0, 380.0, 400.0, 450.0, 500.0, 580.0}) {
    const double p = canonical::boundary_line(t);
    constexpr double aside = 1e-13;
    all.push_back(isobars ? Jump{at(p, t * (1 - aside)), at(p, t * (1 + aside)), false}
                          : Jump{at(p * (1 + aside), t), at(p * (1 - aside), t), false});
  }
  return all;
}

void check_jump(Pair pair, const Jump& jump) {
  const auto [fixed, small] = round_trips::given(pair, jump.small);
  const double large = round_trips::given(pair, jump.large).second;
  const bool is_overlap = large < small;
  for (const double share : {0.25, 0.75}) {
    const double value = small + share * (large - small);
    SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ' ' << fixed << ' ' << value);
    const steam::Results all = steam::states(pair, fixed, value);
    ASSERT_EQ(all.size(), is_overlap ? 2U : 1U);
    const bool is_small = is_overlap ? jump.small_counts : share < 0.5;
    EXPECT_EQ(all[0].region, (is_small ? jump.small : jump.large).region);
    EXPECT_EQ(all[0].approximate, !is_overlap);
    if (is_overlap) {
      EXPECT_EQ(all[1].region, (is_small ? jump.large : jump.small).region);
    } else {
      const State& nearer = is_small ? jump.small : jump.large;
      EXPECT_NEAR(all[0].t, nearer.t, 1e-6);
      EXPECT_NEAR(all[0].p, nearer.p, 1e-8 * nearer.p);
      EXPECT_EQ(round_trips::given(pair, all[0]).first, fixed);
    }
  }
}

TEST(Boundaries, OverlapsBelongToBothStatesAndGapsToTheNearer) {
  for (const Pair pair : {Pair::pv, Pair::ph, Pair::ps, Pair::pu}) {
    for (const Jump& jump : jumps(true)) {
      check_jump(pair, jump);
    }
  }
  for (const Pair pair : {Pair::tv, Pair::th, Pair::ts, Pair::tu}) {
    for (const Jump& jump : jumps(false)) {
      check_jump(pair, jump);
    }
  }
}

}  // namespace
