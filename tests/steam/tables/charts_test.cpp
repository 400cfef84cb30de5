#include "steam/tables/charts.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using steam::Pair;
using steam::Quantity;
using steam::Region;

double quantity(const steam::State& s, Quantity q) {
  const std::array all{s.p, s.t, s.v, s.h, s.s, s.u, s.x};
  return all[static_cast<std::size_t>(q)];
}

/// Ordinary states of each region, given by the pair and its values.
struct Given {
  Pair pair;
  double first, second;
  Region region;
};
constexpr std::array given{
    Given{Pair::pt, 120, 290, Region::water},
    Given{Pair::pt, 200, 320, Region::water},
    Given{Pair::pt, 1, 150, Region::steam},
    Given{Pair::pt, 60, 450, Region::steam},
    Given{Pair::pt, 800, 700, Region::steam},
    Given{Pair::pt, 300, 420, Region::dense_steam},
    Given{Pair::pt, 900, 500, Region::dense_steam},
    Given{Pair::pt, 400, 360, Region::hot_water},
    Given{Pair::tx, 361, 0.4, Region::wet_above_350},
    Given{Pair::tx, 40, 0.9, Region::wet},
    Given{Pair::tx, 290, 0.3, Region::wet},
};

/// The first variable of a region's equation as the polynomials give it.
double first_variable(Pair pair, Region region, const steam::State& s) {
  if (steam::is_3(region)) {
    return 1 / s.v;
  }
  return region == Region::steam && steam::gives_root_of_p(pair) ? std::pow(s.p, 0.25) : s.p;
}

/// What the polynomials of a region should give.
std::vector<double> unknown_values(Pair pair, Region region, const steam::State& s) {
  const steam::Known& k = steam::known_of(pair);
  const auto is_open = [&](Quantity q) { return k.first != q && k.second != q; };
  std::vector<double> values;
  if (!steam::is_wet(region) && is_open(steam::is_3(region) ? Quantity::v : Quantity::p)) {
    values.push_back(first_variable(pair, region, s));
  }
  if (is_open(Quantity::t) && !(steam::is_wet(region) && steam::is_line(pair))) {
    values.push_back(s.t);
  }
  return values;
}

/// What the chart's polynomials give for the region; nothing where the cell is without it.
std::vector<double> charted(Pair pair, Region region, const steam::State& s) {
  const steam::Known& k = steam::known_of(pair);
  const steam::Place here = place(steam::charts[static_cast<std::size_t>(pair)],
                                  quantity(s, k.first), quantity(s, k.second));
  std::vector<double> values;
  for (const steam::Patch& patch : here.patches) {
    for (int n = 0; patch.region == region && n < steam::unknowns(pair, region); ++n) {
      values.push_back(here(patch, static_cast<std::size_t>(n)));
    }
  }
  return values;
}

TEST(Charts, LeadToTheState) {
  for (const Given& g : given) {
    const steam::Result state = steam::state(g.pair, g.first, g.second);
    ASSERT_TRUE(state && state->region == g.region);
    for (const auto& [pair, first, second] : steam::chart_layouts) {
      const bool only_3 = pair == Pair::pt;
      if (only_3 && !steam::is_3(g.region)) {
        continue;
      }
      // Only (p, t) tells the sides of subregion 3 apart.
      const Region region =
          g.region == Region::hot_water && !only_3 ? Region::dense_steam : g.region;
      SCOPED_TRACE(testing::Message() << steam::known_of(pair).letters << " of " << state->p
                                      << " bar, " << state->t << " °C");
      const std::vector<double> wanted = unknown_values(pair, region, *state);
      const std::vector<double> values = charted(pair, region, *state);
      ASSERT_EQ(values.size(), wanted.size());
      for (std::size_t n = 0; n < wanted.size(); ++n) {
        // Water is so stiff that the other values hardly tell its pressure.
        const bool is_stiff = region == Region::water && wanted[n] == state->p;
        EXPECT_NEAR(values[n], wanted[n], wanted[n] * (is_stiff ? 0.06 : 0.002));
      }
    }
  }
}

/// A cell's polynomials are those after the cell before it.
TEST(Charts, CountTheirPolynomials) {
  for (const auto& layout : steam::chart_layouts) {
    const steam::Chart& chart = steam::charts[static_cast<std::size_t>(layout.pair)];
    int next = 0;
    for (int cell = 0; cell < chart.axes.first.cells * chart.axes.second.cells; ++cell) {
      const steam::Patches patches(std::bit_cast<std::uint32_t>(chart.words[cell]), chart.unknowns);
      ASSERT_EQ((*patches.begin()).polynomials, next)
          << steam::known_of(layout.pair).letters << cell;
      for (std::size_t i = 0; i < patches.size(); ++i) {
        ASSERT_EQ(patches[i].polynomials, next);
        next += steam::unknowns(layout.pair, patches[i].region);
      }
    }
  }
}

TEST(Charts, HaveNothingOutside) {
  const auto& chart = steam::charts[static_cast<std::size_t>(Pair::ph)];
  struct Point {
    double p, h;
  };
  for (const auto& [p, h] : {Point{1100, 2000}, Point{0.005, 2000}, Point{1, -6}, Point{1, 4166},
                             Point{steam::missing, 2000}, Point{1, steam::missing}, Point{-1, 2000},
                             Point{HUGE_VAL, HUGE_VAL}, Point{0, -HUGE_VAL}}) {
    const steam::Place here = place(chart, p, h);
    EXPECT_EQ(here.patches.size(), 0U) << p << ' ' << h;
    EXPECT_TRUE(here.patches.begin() == here.patches.end());
  }
}

}  // namespace
