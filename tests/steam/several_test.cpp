#include <gtest/gtest.h>

#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Region;

struct Expected {
  Region region;
  double p, t;
};

struct Row {
  const char* name;
  Pair pair;
  double first, second;
  std::vector<Expected> states;  // in the order of preference
};

void check(const Expected& expected, const steam::State& state) {
  EXPECT_EQ(state.region, expected.region);
  EXPECT_NEAR(state.t, expected.t, 1e-5);
  EXPECT_NEAR(state.p, expected.p, 1e-5 * expected.p);
}

void check(const Row& row) {
  SCOPED_TRACE(row.name);
  const steam::Results all = steam::states(row.pair, row.first, row.second);
  ASSERT_EQ(all.size(), row.states.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    check(row.states[i], all[i]);
  }
  const steam::Result one = steam::state(row.pair, row.first, row.second);
  check(row.states[0], *one);
  EXPECT_EQ(one->several, all.size() > 1);
}

TEST(Several, AllStatesOfAPairInTheDocumentedOrder) {
  const Row rows[]{
      {"around the density maximum",
       Pair::pv,
       1,
       0.0010001,
       {{Region::water, 1, 8.51210}, {Region::water, 1, 0.98553}}},
      {"wet, or water under pressure",
       Pair::th,
       100,
       450,
       {{Region::wet, 1.01325, 100}, {Region::water, 410.316, 100}}},
      {"hot water on one side of the least enthalpy",
       Pair::th,
       300,
       1340,
       {{Region::water, 131.4655, 300}}},
      {"cold water, whose energy first rises with pressure",
       Pair::tu,
       2,
       8.4,
       {{Region::wet, 0.00705458, 2}, {Region::water, 11.0053, 2}, {Region::water, 602.782, 2}}},
      {"cold water, whose entropy first rises with pressure",
       Pair::ts,
       2,
       0.0307,
       {{Region::wet, 0.00705458, 2}, {Region::water, 25.9185, 2}, {Region::water, 262.249, 2}}},
      {"saturated water, and water of the same entropy",
       Pair::ts,
       0x1p+2,
       0x1.f43d95507c89ap-5,
       {{Region::water, 0.00812884, 4}, {Region::water, 77.762388, 4}}},
      {"saturated water, and water of the same energy",
       Pair::tu,
       0x1.0500fa258bb98p+2,
       0x1.12171047dc317p+4,
       {{Region::water, 0.0081736248, 4.0781846}, {Region::water, 160.94214, 4.0781846}}},
      {"water to 350 °C, and hot water",
       Pair::us,
       0x1.9738999c93d87p+10,
       0x1.e0d3d44651fccp+1,
       {{Region::water, 164.184123, 348.377054}, {Region::hot_water, 180.275027, 350.006711}}},
      {"wet isentrope of one quality",
       Pair::sx,
       4.45,
       0.5,
       {{Region::wet_above_350, 216.272, 372.25506},
        {Region::wet, 52.2908, 266.72447},
        {Region::wet, 0.0393091, 28.68163}}},
      {"two turns within a kelvin above 350 °C",
       Pair::sx,
       4.4831647,
       0.48913037,
       {{Region::wet_above_350, 168.867847, 351.71641609},
        {Region::wet_above_350, 168.4561, 351.51701397},
        {Region::wet_above_350, 166.825902, 350.72347443},
        {Region::wet, 139.980981, 336.63081442}}},
      {"a turn within a tenth of a kelvin below the critical temperature",
       Pair::sx,
       4.44551035,
       0.58719030,
       {{Region::wet_above_350, 221.175062, 374.14070612},
        {Region::wet_above_350, 221.034613, 374.08758300},
        {Region::wet_above_350, 221.022852, 374.08309595}}},
      {"beside 350 °C, where the states above and below overlap",
       Pair::sx,
       4.9301537278770891,
       0.8,
       {{Region::wet, 165.346049, 349.99744331}, {Region::wet_above_350, 165.35144363, 350.0001}}},
      {"two wet states of cold water with a trace of vapour, and one of water, which counts",
       Pair::hs,
       3.6110078888172339,
       0.013196332715544882,
       {{Region::water, 0.00650648296, 0.86636652},
        {Region::wet, 0.00650200954, 0.86372067},
        {Region::wet, 0.00649579251, 0.85045658}}},
      {"water, and one wet state of the two",
       Pair::hs,
       50.908047333400106,
       0.18235125516462408,
       {{Region::water, 0.0141315866, 12.1268138}, {Region::wet, 0.01412965, 12.1247328}}},
      {"dense wet states",
       Pair::vx,
       0.0025,
       0.1,
       {{Region::wet_above_350, 211.445, 370.35952}, {Region::wet, 154.298, 344.39869}}},
      {"saturated water around its density maximum",
       Pair::vx,
       0.00100005,
       0,
       {{Region::wet, 0.00952336, 6.27313}, {Region::wet, 0.00764596, 3.13188}}},
  };
  for (const Row& row : rows) {
    check(row);
  }
}

}  // namespace
