#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "round_trips.hpp"
#include "support/canonical.hpp"
#include "support/edges.hpp"
#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Region;
using steam::State;

constexpr double t_line = 450;  // on the boundary line between subregions 2 and 3

TEST(Boundaries, PlacePressuresAndTemperatures) {
  const double p_100 = steam::saturation_by_temperature(100)->p;
  const double p_370 = steam::saturation_by_temperature(370)->p;
  const double p_350 = steam::saturation_by_temperature(350)->p;
  const double p_line = canonical::boundary_line(t_line);
  constexpr double ulps = 2e-14;  // the rounding of the line itself
  struct Row {
    double p, t;
    Region region;
  };
  const Row rows[]{
      {p_100, 100, Region::water},
      {down(p_100), 100, Region::steam},
      {p_350, 350, Region::water},
      {down(p_350), 350, Region::steam},
      {200, 350, Region::water},
      {200, up(350), Region::hot_water},
      {160, up(350), Region::steam},
      {p_370, 370, Region::hot_water},
      {up(p_370), 370, Region::hot_water},
      {down(p_370), 370, Region::dense_steam},
      {p_line * (1 - ulps), t_line, Region::steam},
      {p_line * (1 + ulps), t_line, Region::dense_steam},
      {221.2, 374.15, Region::dense_steam},
      {230, 374.15, Region::dense_steam},
      {230, down(374.15), Region::hot_water},
      {1000, 590, Region::steam},
      {1000, 589.999999, Region::dense_steam},
      {1000, up(590), Region::steam},
      {0.006112444, 0.01, Region::steam},
      {0.0061124441, 0.01, Region::water},
      {1000, 0.01, Region::water},
      {1000, 800, Region::steam},
      {0.006112444, 800, Region::steam},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(steam::state(Pair::pt, row.p, row.t)->region, row.region) << row.p << ' ' << row.t;
  }
  EXPECT_EQ(steam::state(Pair::tx, 350, 0)->region, Region::wet);
  EXPECT_EQ(steam::state(Pair::tx, up(350), 0)->region, Region::wet_above_350);
  EXPECT_EQ(steam::state(Pair::px, p_350, 0.5)->region, Region::wet);
  EXPECT_EQ(steam::state(Pair::px, 165.36, 0.5)->region, Region::wet_above_350);
}

TEST(Boundaries, EndsOfTheRangeBelongToIt) {
  using steam::Reason;
  struct Row {
    Pair pair;
    double first, second;
    Reason below, above;  // of the first value one unit in the last place less, and more
  };
  const Row rows[]{
      {Pair::pt, 0.006112444, 300, Reason::pressure, Reason::none},
      {Pair::pt, 1000, 300, Reason::none, Reason::pressure},
      {Pair::px, 0.006112444, 0.5, Reason::pressure, Reason::none},
      {Pair::px, 221.2, 0.5, Reason::none, Reason::pressure},
      {Pair::tx, 0.01, 0.5, Reason::temperature, Reason::none},
      {Pair::tx, 374.15, 0.5, Reason::none, Reason::temperature},
      {Pair::tv, 0.01, 0.001, Reason::temperature, Reason::none},
      {Pair::tv, 800, 1, Reason::none, Reason::temperature},
      {Pair::vx, 1, 0, Reason::no_state, Reason::no_state},
  };
  const auto reason = [](Pair pair, double first, double second) {
    return steam::state(pair, first, second).refusal().reason;
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(row.pair) << ' ' << row.first);
    EXPECT_EQ(reason(row.pair, down(row.first), row.second), row.below);
    EXPECT_EQ(reason(row.pair, up(row.first), row.second), row.above);
    EXPECT_EQ(reason(row.pair, row.first, row.second),
              row.pair == Pair::vx ? Reason::no_state : Reason::none);
  }
  for (const double x : {0.0, 1.0}) {
    EXPECT_EQ(reason(Pair::tx, 200, x), Reason::none);
    EXPECT_EQ(reason(Pair::tx, 200, x == 0 ? down(x) : up(x)), Reason::quality);
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

/// Both states of an overlap.
void check_overlap(Pair pair, double fixed, double value, const Jump& jump) {
  const steam::Results all = steam::states(pair, fixed, value);
  ASSERT_EQ(all.size(), 2U);
  const State& counts = jump.small_counts ? jump.small : jump.large;
  const State& other = jump.small_counts ? jump.large : jump.small;
  EXPECT_EQ(all[0].region, counts.region);
  EXPECT_EQ(all[1].region, other.region);
  const State one = *steam::state(pair, fixed, value);
  EXPECT_EQ(one.region, counts.region);
  EXPECT_TRUE(one.several);
  EXPECT_FALSE(one.approximate);
}

void check_jump(Pair pair, const Jump& jump) {
  const auto [fixed, small] = round_trips::given(pair, jump.small);
  const double large = round_trips::given(pair, jump.large).second;
  for (const double share : {0.25, 0.75}) {
    const double value = small + share * (large - small);
    SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ' ' << fixed << ' ' << value);
    if (large < small) {
      check_overlap(pair, fixed, value, jump);
      continue;
    }
    const State s = *steam::state(pair, fixed, value);
    const State& nearer = share < 0.5 ? jump.small : jump.large;
    EXPECT_TRUE(s.approximate);
    EXPECT_EQ(s.region, nearer.region);
    EXPECT_NEAR(s.t, nearer.t, 1e-6);
    EXPECT_NEAR(s.p, nearer.p, 1e-8 * s.p);
    EXPECT_EQ(round_trips::given(pair, s).first, fixed);
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

/// Just beside saturation every pair tells one phase from two. Of two caloric values and of volume
/// and energy the lines nearly follow each other there.
TEST(Boundaries, OfSaturationBelongToOnePhase) {
  for (const double t : {1.0, 100.0, 250.0, 340.0, 360.0, 373.0}) {
    for (const double side : {-1.0, 1.0}) {
      const double p = steam::saturation_by_temperature(t)->p;
      const State one = *steam::state(Pair::pt, p * (1 + side * 1e-6), t);
      const State two = *steam::state(Pair::tx, t, side > 0 ? 1e-6 : 1 - 1e-6);
      for (const Pair pair : {Pair::pv, Pair::ph, Pair::ps, Pair::pu, Pair::tv}) {
        SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ' ' << t << ' ' << side);
        const auto single = round_trips::given(pair, one), wet = round_trips::given(pair, two);
        EXPECT_EQ(steam::state(pair, single.first, single.second)->region, one.region);
        EXPECT_EQ(steam::state(pair, wet.first, wet.second)->region, two.region);
      }
    }
  }
}

}  // namespace
