#include <gtest/gtest.h>

#include <vector>

#include "vek/steam.hpp"

namespace {

using enum steam::Pair;
using enum steam::Region;
constexpr auto steam_2 = steam::Region::steam, wet_3 = wet_above_350;

struct Expected {
  steam::Region region;
  double p, t;
};

void check(const Expected& expected, const steam::State& state) {
  EXPECT_EQ(state.region, expected.region);
  EXPECT_NEAR(state.t, expected.t, 1e-5);
  EXPECT_NEAR(state.p, expected.p, 1e-5 * expected.p);
}

/// @param expected  in the order of preference
void check(steam::Pair pair, double first, double second, const std::vector<Expected>& expected) {
  SCOPED_TRACE(testing::Message() << first << ' ' << second);
  const steam::Results all = steam::states(pair, first, second);
  ASSERT_EQ(all.size(), expected.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    check(expected[i], all[i]);
  }
  using P = steam::Property;
  const std::vector<std::vector<double>> values =
      steam::values_of_states(pair, first, second, std::vector{P::region, P::t, P::several});
  ASSERT_EQ(values.size(), all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto region = static_cast<double>(all[i].region);
    EXPECT_EQ(values[i], (std::vector<double>{region, all[i].t, all.size() > 1 ? 1. : 0.}));
  }
  const steam::Result one = steam::state(pair, first, second);
  check(expected[0], *one);
  EXPECT_EQ(one->several, all.size() > 1);
}

TEST(Several, StatesOfPressureOrTemperatureInTheDocumentedOrder) {
  // around the density maximum
  check(pv, 1, 0.0010001, {{water, 1, 8.51210}, {water, 1, 0.98553}});
  // wet, or water under pressure
  check(th, 100, 450, {{wet, 1.01325, 100}, {water, 410.316, 100}});
  // hot water on one side of the least enthalpy
  check(th, 300, 1340, {{water, 131.4655, 300}});
  // cold water, whose energy first rises with pressure
  check(tu, 2, 8.4, {{wet, 0.00705458, 2}, {water, 11.0053, 2}, {water, 602.782, 2}});
  // cold water, whose entropy first rises with pressure
  check(ts, 2, 0.0307, {{wet, 0.00705458, 2}, {water, 25.9185, 2}, {water, 262.249, 2}});
  // saturated water, and water of the same entropy
  check(ts, 0x1p+2, 0x1.f43d95507c89ap-5, {{water, 0.00812884, 4}, {water, 77.762388, 4}});
  // saturated water, and water of the same energy
  check(tu, 0x1.0500fa258bb98p+2, 0x1.12171047dc317p+4,
        {{water, 0.0081736, 4.07818}, {water, 160.942, 4.07818}});
}

TEST(Several, StatesOfAQualityInTheDocumentedOrder) {
  // wet isentrope of one quality
  check(sx, 4.45, 0.5,
        {{wet_3, 216.272, 372.25506}, {wet, 52.2908, 266.72447}, {wet, 0.039309, 28.68163}});
  // two turns within a kelvin above 350 °C
  check(sx, 4.4831647, 0.48913037,
        {{wet_3, 168.867847, 351.71641609},
         {wet_3, 168.4561, 351.51701397},
         {wet_3, 166.825902, 350.72347443},
         {wet, 139.980981, 336.63081442}});
  // a turn within a tenth of a kelvin below the critical temperature
  check(sx, 4.44551035, 0.58719030,
        {{wet_3, 221.175062, 374.14070612},
         {wet_3, 221.034613, 374.08758300},
         {wet_3, 221.022852, 374.08309595}});
  // beside 350 °C, where the states above and below overlap
  check(sx, 4.9301537278770891, 0.8, {{wet, 165.346, 349.99744}, {wet_3, 165.3514, 350.0001}});
  // saturated water at the critical temperature, whose volume has eight digits
  check(sx, 0x1.1c6e58de51825p+2, 0, {{wet_3, 221.2, 374.15}});
  // wet steam on the two sides of the greatest enthalpy of saturated steam
  check(hx, 2790, 0.999, {{wet, 53.0997, 267.69534}, {wet, 16.10674, 201.69159}});
  // a quality with which the energy turns four times
  check(ux, 2036.64842, 0.534817179,
        {{wet_3, 221.19995, 374.14998},
         {wet_3, 221.198405, 374.14940604},
         {wet_3, 221.114679, 374.11802443},
         {wet_3, 220.475237, 373.87401161},
         {wet, 125.242143, 327.93463248}});
  // dense wet states
  check(vx, 0.0025, 0.1, {{wet_3, 211.445, 370.35952}, {wet, 154.298, 344.39869}});
  // saturated water around its density maximum
  check(vx, 0.00100005, 0, {{wet, 0.00952336, 6.27313}, {wet, 0.00764596, 3.13188}});
}

TEST(Several, StatesOfTwoOtherValuesInTheDocumentedOrder) {
  // water to 350 °C, and hot water
  check(us, 0x1.9738999c93d87p+10, 0x1.e0d3d44651fccp+1,
        {{water, 164.1841, 348.37705}, {hot_water, 180.275, 350.00671}});
  // two wet states of cold water with a trace of vapour, and one of water, which counts
  check(hs, 3.6110078888172339, 0.013196332715544882,
        {{water, 0.00650648296, 0.86636652},
         {wet, 0.00650200954, 0.86372067},
         {wet, 0.00649579251, 0.85045658}});
  // water, and one wet state of the two
  check(hs, 50.908047333400106, 0.18235125516462408,
        {{water, 0.0141316, 12.12681}, {wet, 0.0141296, 12.12473}});
  // saturated water counts as water, and not once more as wet steam with less than no vapour
  check(hs, 0x1.2365f84afcc5cp+4, 0x1.0ef116b7ced91p-4,
        {{water, 0.00832242, 4.33526289}, {wet, 0.00831456, 4.32178316}});
  // the coldest water, along which the entropy hardly tells the pressure
  check(hs, 0x1.45bfd77739545p+4, 0x1.0450f80754efbp-10, {{water, 201.841335, 0.01}});
  // the sliver of steam between the lowest pressure and that of saturation at the lowest
  // temperature
  check(vs, 0x1.9c53646677f36p+7, 0x1.2509eb324b2abp+3, {{steam_2, 0.006112444, 0.01}});
  // along an isentrope that runs along the boundary line, on both sides of it
  check(hs, 0x1.4b004abb56142p+11, 0x1.430dc079c41ccp+2,
        {{steam_2, 573.856644, 505.906189}, {dense_steam, 573.683489, 505.86287}});
  // compressed water, and wet steam whose energy turns along the isenthalp
  check(hu, 1500, 1422,
        {{water, 568.27039, 336.41992}, {wet, 3.876252, 142.49407}, {wet, 0.02366497, 20.20572}});
  // thin steam near 200 °C, whose energy turns along the isenthalp
  check(hu, 2853, 2641.037868484484,
        {{steam_2, 382.02704, 485.10963}, {steam_2, 9.277632, 209.21189}, {steam_2, 3, 193.95796}});
  // steam and wet steam, beside the greatest enthalpy of saturated steam
  check(hu, 2797.32783, 2598.15097,
        {{steam_2, 365.521574, 470.98509655},
         {wet, 33.3970786, 239.86188901},
         {wet, 20.9987832, 214.85155088},
         {steam_2, 13.7478984, 197.87326077},
         {steam_2, 13.0829425, 196.20938120}});
}

}  // namespace
