#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

constexpr double untouched = -7777;

// Printed values of the states used below, to ten digits.
struct Phase {
  double v, h, s, cp, dv, tc;
};
constexpr Phase water_10_100{0.001043235963, 419.738642,      1.306163754,
                             4.213618977,    0.0002824080566, 0.0006829615723};
constexpr Phase steam_1_200{2.172328254, 2875.3573,        7.834945623,
                            1.978952289, 0.00001617973888, 0.00003318214493};
constexpr Phase water_100{0.001043708161, 419.0646848,     1.306870667,
                          4.215646891,    0.0002821642383, 0.0006824351514};
constexpr Phase steam_100{1.672996851, 2676.008765, 7.355379554, 2.028104503, 0, 0};
constexpr double ps100 = 1.01325262;
constexpr double ps10 = 0.01227;  // to four digits

double saturation_pressure(double t) { return VEKQPT(&t); }

double wet_value(double liquid, double x, double vapour) { return liquid + x * (vapour - liquid); }

// Saturated volumes at 360 °C, found from other start values than the dispatcher's.
double saturated_volume_360(double start, double second) {
  const double t = 360;
  const double ps = saturation_pressure(t);
  const double tol = 1e-12;
  return volume3(&t, &ps, start, second, &tol);
}
const double v_liquid_360 = saturated_volume_360(0.0018, 0.0020);
const double v_vapour_360 = saturated_volume_360(0.0064, 0.0075);

double at_360(double (*property)(const double*, const double*), double v) {
  const double t = 360;
  return property(&v, &t);
}

std::string refusal(const std::string& item) {
  return "*** VEKFTN-ERROR: illegal dependend property: " + item + " ***\n";
}
const std::string wet_refusal =
    "*** VEKFTN-ERROR: CP, DV, TC cannot be calculated In wet region ***\n";
std::string illegal_region(const std::string& code) {
  return "*** VEKFTN-ERROR: illegal region calculated: IREG = " + code + " ***\n";
}

/// Above the critical temperature the finder's second start value lies just out of range: intended.
const std::string start_value_report = "** VEK-ERROR: 1  OUT OF RANGE IN COMT3,V= 0.0088,T= 380\n";

/// A request with all that a host can observe of it.
struct Request {
  VekFinder finder;
  double a, b;
  const char* list;
  std::vector<double> slots;
  std::string text = {};
  double accuracy = 1e-9;  // relative
};

void expect_slot(double value, double expected, double accuracy) {
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(value)) << value;
  } else if (expected == 0 || expected == 1 || expected == untouched) {
    EXPECT_EQ(value, expected);
  } else {
    EXPECT_NEAR(value / expected, 1, accuracy) << value << " for " << expected;
  }
}

void expect(const Request& request, int flag) {
  SCOPED_TRACE(testing::Message() << request.a << ' ' << request.b << " \"" << request.list << '"');
  DiagnosticLines lines;
  std::array<double, 12> result{};
  result.fill(untouched);
  vek(request.finder, &request.a, &request.b, request.list, result.data());
  EXPECT_EQ(VEKHasError(), flag);
  EXPECT_EQ(lines.take(), request.text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "slot " << i);
    expect_slot(result[i], i < request.slots.size() ? request.slots[i] : untouched,
                request.accuracy);
  }
}

/// The flag is 2 when the list writes a line. Each request begins after a wet one at 100 °C.
template <std::size_t N>
void expect_all(const Request (&requests)[N]) {
  for (const Request& request : requests) {
    expect({vekrtx_, 100, 0.5, "T ", {100}}, 0);
    expect(request, request.text.find("VEKFTN") == std::string::npos ? 0 : 2);
  }
}

int as_steam(double* /*p*/, double* /*t*/, double* tol) {
  EXPECT_EQ(*tol, 1e-8);
  return 2;
}
template <int Code>
int always(double* /*a*/, double* /*b*/, double* /*tol*/) {
  return Code;
}
int overwrites_both(double* a, double* b, double* /*tol*/) {
  *a = 1;
  *b = 200;
  return 2;
}

}  // namespace

// First in this file: no state was wet before.
TEST(PropertyList, GivesPressureZeroForACodeClearedBeforeAnyWetState) {
  expect({vekrpt_, 10, 100, "T,P", {100, 0}}, 0);
}

TEST(PropertyList, IsEvaluatedForEachRegion) {
  const Phase& w = water_10_100;
  const Phase& s = steam_1_200;
  const double v = (water_100.v + steam_100.v) / 2;
  const double h = (water_100.h + steam_100.h) / 2;
  const double entropy = (water_100.s + steam_100.s) / 2;
  const char* const all = "P,T,V,H,S,X,CP,DV,TC ";
  const Request requests[] = {
      {vekrpt_, 10, 100, all, {10, 100, w.v, w.h, w.s, 0, w.cp, w.dv, w.tc}},
      {vekrpt_, 1, 200, all, {1, 200, s.v, s.h, s.s, 1, s.cp, s.dv, s.tc}},
      {as_steam, 1, 200, "CP.DV TC,", {s.cp, s.dv, s.tc}},
      {vekrpt_,
       242.4119339,
       380,
       all,
       {242.4119339, 380, 0.0025, 2002.917692, 4.273136652, 1, 50.89796636, untouched, untouched},
       start_value_report,
       1e-6},
      {vekrpt_,
       207.2119186,
       360,
       all,
       {207.2119186, 360, 0.0018, 1734.319336, 3.86791493, 0, 10.29811249, untouched, untouched},
       "",
       1e-6},
      {vekrtx_, 100, 0.5, all, {ps100, 100, v, h, entropy, 0.5, 0, 0, 0}, wet_refusal},
      {vekrtx_,
       360,
       0.25,
       all,
       {at_360(PRESS3, v_liquid_360), 360, wet_value(v_liquid_360, 0.25, v_vapour_360),
        wet_value(at_360(ENTHA3, v_liquid_360), 0.25, at_360(ENTHA3, v_vapour_360)),
        wet_value(at_360(ENTRO3, v_liquid_360), 0.25, at_360(ENTRO3, v_vapour_360)), 0.25, 0, 0, 0},
       wet_refusal,
       1e-7},
      {vekrpx_, ps100, 0.5, "T,X,CP,DV,H ", {100, 0.5, 0, 0, h}, wet_refusal},
      {overwrites_both, 10, 100, "P,T ", {1, 200}},
  };
  expect_all(requests);
}

// From the fourth character on the region code is 0: the pressure is then that of the last wet
// state, and the formulas are those of wet steam with whatever the first value is as the quality.
TEST(PropertyList, LosesItsRegionAtAFourthCharacter) {
  const Phase& w = water_10_100;
  const Request requests[] = {
      {vekrpt_, 10, 100, "P,T", {10, 100}},
      {vekrpt_, 10, 100, "P T", {10, 100}},
      {vekrpt_, 10, 100, "P.T", {10, 100}},
      {vekrpt_, 10, 100, "T,P", {100, ps100}},
      {vekrpt_, 10, 100, "T,P ", {100, 10}},
      {vekrpt_, 10, 100, "PT", {ps100}},
      {vekrpt_, 10, 100, "PT ", {10}},
      {vekrpt_, 10, 100, "PRE,T ", {10, 100}},
      {vekrpt_, 10, 100, "PRES,T ", {ps100, 100}},
      {vekrpt_, 10, 100, "PRESS,T ", {ps100, untouched, 100}, refusal("")},
      {vekrpt_, 10, 100, "TEMP", {untouched}, refusal("TEMP")},
      {vekrpt_, 10, 100, "TEMP,P ", {untouched, ps100}, refusal("TEMP")},
      {vekrpt_, 10, 100, "P,TC", {10, 0}, wet_refusal},
      {vekrpt_, 10, 100, "P,TC ", {10, w.tc}},
      {vekrpt_, 10, 100, "DVXX,P ", {0, ps100}, wet_refusal},
      {vekrpt_, 10, 100, "CP,CPXX,CP ", {w.cp, 0, 0}, wet_refusal},
      {vekrpt_, 207.2119186, 360, "PRES,CP ", {ps100, 0}, wet_refusal},
      {vekrpt_,
       10,
       100,
       "TTTT,V,H,S,X ",
       {untouched, wet_value(water_100.v, 10, steam_100.v), wet_value(water_100.h, 10, steam_100.h),
        wet_value(water_100.s, 10, steam_100.s), 10},
       refusal("TTTT"),
       1e-8},
      {vekrtx_, 360, 0.25, "T,P", {360, at_360(PRESS3, v_liquid_360)}, "", 1e-7},
  };
  expect_all(requests);
}

TEST(PropertyList, IsReadItemByItem) {
  const Phase& w = water_10_100;
  const Request requests[] = {
      {vekrpt_, 10, 100, "", {}},
      {vekrpt_, 10, 100, " ", {untouched}, refusal("")},
      {vekrpt_, 10, 100, "P,", {10}},
      {vekrpt_, 10, 100, "P, ", {10, untouched}, refusal("")},
      {vekrpt_, 10, 100, ",P ", {untouched, 10}, refusal("")},
      {vekrpt_, 10, 100, "P,,T", {10, untouched, 100}, refusal("")},
      {vekrpt_, 10, 100, "P,.T ", {10, untouched, 100}, refusal("")},
      {vekrpt_, 10, 100, "TCX ", {w.tc}},
      {vekrpt_, 10, 100, "CPX,HX,X1 ", {w.cp, w.h, 0}},
      {vekrpt_,
       10,
       100,
       "p,TX,C,D ",
       {untouched, untouched, untouched, untouched},
       refusal("p") + refusal("TX") + refusal("C") + refusal("D")},
      {vekrpt_, 10, 100, "U,T ", {untouched, 100}, refusal("U")},
      {vekrtx_, 100, 0.5, "CP,U,T ", {0, untouched, 100}, refusal("U") + wet_refusal},
  };
  expect_all(requests);
}

TEST(WetState, IsSaturatedLiquidOrVapourNearTheEndsOfTheQuality) {
  const Phase& w = water_100;
  const Phase& s = steam_100;
  const double nan = not_a_number;
  const Request requests[] = {
      {vekrtx_, 100, 1e-6, "X,P,H,CP,DV,TC ", {0, ps100, w.h, w.cp, w.dv, w.tc}},
      {vekrtx_, 100, -3, "X,H ", {0, w.h}},
      {vekrtx_, 100, up(1e-6), "X ", {up(1e-6)}, "", 0},
      {vekrtx_, 100, 0.999999, "X,H,CP ", {1, s.h, s.cp}},
      {vekrtx_, 100, 7, "X,H ", {1, s.h}},
      {vekrtx_, 100, down(0.999999), "X,CP ", {down(0.999999), 0}, wet_refusal, 0},
      {vekrtx_, 360, 1e-6, "X,V,DV ", {0, v_liquid_360, untouched}, "", 1e-7},
      {vekrtx_, 360, up(1e-6), "X ", {up(1e-6)}, "", 0},
      {vekrtx_, 360, 0.999999, "X,V,TC ", {1, v_vapour_360, untouched}, "", 1e-7},
      {vekrtx_, 360, down(0.999999), "X ", {down(0.999999)}, "", 0},
      {vekrtx_, 100, nan, "X,V,P ", {nan, nan, ps100}},
      // A pressure left in the place of the quality, on the saturation line.
      {vekrpt_, saturation_pressure(100), 100, "X,H ", {1, s.h}},
      {vekrpt_, saturation_pressure(360), 360, "X,V ", {1, v_vapour_360}, "", 1e-7},
      {vekrpt_, saturation_pressure(10), 10, "X,T ", {ps10, 10}, "", 1e-3},
  };
  expect_all(requests);
}

TEST(IllegalRegion, EndsTheRequestBeforeAnySlot) {
  const Request requests[] = {
      {vekrtx_, 400, 0.5, "P,T ", {}, illegal_region("7")},
      {always<0>, 1, 1, "P,T ", {}, illegal_region("0")},
      {always<8>, 1, 1, "P,T ", {}, illegal_region("8")},
      {always<-3>, 1, 1, "? ", {}, illegal_region("-3")},
  };
  expect_all(requests);
}

// What placing the state has reported stays written, but the flag is cleared before the list.
TEST(ErrorFlag, ForgetsWhatCameBeforeTheList) {
  expect(
      {vekrpt_, 2000, 100, "T ", {100}, "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 2000,T= 100\n"},
      0);
  expect({vekrpx_, 0.001, 0.5, "X ", {0.5}, "** VEK-ERROR: 1  OUT OF RANGE IN VEKQIT,P= 0.001\n"},
         0);
  DiagnosticLines lines;
  const double x = 0.5;
  const double t = 380;
  double result = untouched;
  vek(always<5>, &x, &t, "T ", &result);
  EXPECT_EQ(VEKHasError(), 0);
  EXPECT_EQ(result, 380);
  const std::string text = lines.take();
  EXPECT_NE(text.find("** VEK-ERROR: 1  OUT OF RANGE IN VEKQPT,T= 380\n"), std::string::npos);
  EXPECT_NE(text.find("(code: VEKQI2-b) ***\n"), std::string::npos);
}

TEST(ErrorFlag, TellsOfWhatAnItemReports) {
  DiagnosticLines lines;
  const double p = 3000;
  const double t = 100;
  std::array<double, 2> result{};
  vek(always<1>, &p, &t, "T,V ", result.data());
  EXPECT_EQ(VEKHasError(), 2);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 3000,T= 100\n");
  EXPECT_EQ(result[1], SPVOL1(&p, &t));
}

// The terms are known from the placing, so of these items only the heat capacity takes the root.
TEST(ErrorFlag, TellsOfTheRootOfANegativeNumberInTheHeatCapacityOfWater) {
  DiagnosticLines lines;
  const double p = 1;
  const double t = -91.2;
  std::array<double, 2> result{};
  for (const auto& [list, flag] : {std::pair{"V,H ", 0}, {"CP ", 1}, {"CP,V ", 1}}) {
    vek(vekrpt_, &p, &t, list, result.data());
    EXPECT_EQ(VEKHasError(), flag) << list;
  }
}
