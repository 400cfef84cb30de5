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

/// The properties that a list has of one phase, by its subregion's own routines.
struct Phase {
  double v, h, s, cp, dv = untouched, tc = untouched;
};
Phase with_transport(Phase phase, double t) {
  phase.dv = VISCOS(&phase.v, &t);
  phase.tc = 0.001 * THCOND(&phase.v, &t);
  return phase;
}
Phase water(double p, double t) {
  return with_transport({SPVOL1(&p, &t), ENTHA1(&p, &t), ENTRO1(&p, &t), HTCAP1(&p, &t)}, t);
}
Phase steam(double p, double t) {
  return with_transport({SPVOL2(&p, &t), ENTHA2(&p, &t), ENTRO2(&p, &t), HTCAP2(&p, &t)}, t);
}
Phase dense(double v, double t) { return {v, ENTHA3(&v, &t), ENTRO3(&v, &t), HTCAP3(&v, &t)}; }

double saturation_pressure(double t) { return VEKQPT(&t); }

double tol = 1e-8;

/// The volume that the finder leaves.
double volume_at(double p, double t) {
  vekrpt_(&p, &t, &tol);
  return p;
}

const double ps100 = saturation_pressure(100), ps360 = saturation_pressure(360), t360 = 360;
const Phase water_10_100 = water(10, 100), steam_1_200 = steam(1, 200);
const Phase water_100 = water(ps100, 100), steam_100 = steam(ps100, 100);
const Phase liquid_360 = dense(liquid_volume3(&t360, &ps360, &tol), 360);
const Phase vapour_360 = dense(vapour_volume3(&t360, &ps360, &tol), 360);
const double p_liquid_360 = PRESS3(&liquid_360.v, &t360);

std::string refusal(const std::string& item) {
  return "*** VEKFTN-ERROR: illegal dependend property: " + item + " ***\n";
}
const std::string wet_refusal =
    "*** VEKFTN-ERROR: CP, DV, TC cannot be calculated In wet region ***\n";
std::string illegal_region(const std::string& code) {
  return "*** VEKFTN-ERROR: illegal region calculated: IREG = " + code + " ***\n";
}

/// A request with all that a host can observe of it.
struct Request {
  VekFinder finder;
  double a, b;
  const char* list;
  std::vector<double> slots;
  std::string text = {};
};

void expect(const Request& request, int flag) {
  SCOPED_TRACE(testing::Message() << request.a << ' ' << request.b << " \"" << request.list << '"');
  DiagnosticLines lines;
  std::array<double, 12> result{};
  result.fill(untouched);
  vek(request.finder, &request.a, &request.b, request.list, result.data());
  EXPECT_EQ(VEKHasError(), flag);
  EXPECT_EQ(lines.take(), request.text);
  for (std::size_t i = 0; i < result.size(); ++i) {
    const double expected = i < request.slots.size() ? request.slots[i] : untouched;
    EXPECT_TRUE(same(result[i], expected)) << "slot " << i << ' ' << result[i] - expected;
  }
}

/// The flag is 2 when the list writes a line. Each request begins after a wet one at 100 °C.
void expect_all(const std::vector<Request>& requests) {
  for (const Request& request : requests) {
    expect({vekrtx_, 100, 0.5, "T ", {100}}, 0);
    expect(request, request.text.find("VEKFTN") == std::string::npos ? 0 : 2);
  }
}

template <int Code>
int always(double* /*a*/, double* /*b*/, double* tolerance) {
  EXPECT_EQ(*tolerance, 1e-8);
  return Code;
}
int overwrites_both(double* a, double* b, double* /*tol*/) {
  *a = 1;
  *b = 200;
  return 2;
}

}  // namespace

TEST(PropertyList, IsEvaluatedForEachRegion) {
  const auto &w = water_10_100, &s = steam_1_200, &l = liquid_360, &g = vapour_360;
  const double v3 = volume_at(242.4, 380), v4 = volume_at(207.2, 360);
  const Phase d3 = dense(v3, 380), d4 = dense(v4, 360);
  const double t380 = 380, p3 = PRESS3(&v3, &t380), p4 = PRESS3(&v4, &t360);
  const auto wet_100 = [](double Phase::*y) { return mixed(water_100.*y, 0.5, steam_100.*y); };
  const auto wet_360 = [&](double Phase::*y) { return mixed(l.*y, 0.25, g.*y); };
  const double v = wet_100(&Phase::v), h = wet_100(&Phase::h), x_s = wet_100(&Phase::s);
  const double v5 = wet_360(&Phase::v), h5 = wet_360(&Phase::h), s5 = wet_360(&Phase::s);
  const char* const all = "P,T,V,H,S,X,CP,DV,TC ";
  // Above the critical temperature the second start value lies just out of range: intended.
  const char* const report = "** VEK-ERROR: 1  OUT OF RANGE IN COMT3,V= 0.0088,T= 380\n";
  constexpr double no = untouched;
  expect_all({
      {vekrpt_, 10, 100, all, {10, 100, w.v, w.h, w.s, 0, w.cp, w.dv, w.tc}},
      {vekrpt_, 1, 200, all, {1, 200, s.v, s.h, s.s, 1, s.cp, s.dv, s.tc}},
      {vekrpt_, 242.4, 380, all, {p3, 380, v3, d3.h, d3.s, 1, d3.cp, no, no}, report},
      {vekrpt_, 207.2, 360, all, {p4, 360, v4, d4.h, d4.s, 0, d4.cp, no, no}},
      {vekrtx_, 100, 0.5, all, {ps100, 100, v, h, x_s, 0.5, 0, 0, 0}, wet_refusal},
      {vekrtx_, 360, 0.25, all, {ps360, 360, v5, h5, s5, 0.25, 0, 0, 0}, wet_refusal},
      {always<2>, 1, 200, "CP.DV TC,", {s.cp, s.dv, s.tc}},
      {overwrites_both, 10, 100, "P,T ", {1, 200}},
  });
}

// From the fourth character on the region code is 0: the pressure is then that of the last wet
// state, and the formulas are those of wet steam with whatever the first value is as the quality.
TEST(PropertyList, LosesItsRegionAtAFourthCharacter) {
  const auto &w = water_10_100, &f = water_100, &g = steam_100;
  const double v = mixed(f.v, 10, g.v), h = mixed(f.h, 10, g.h), s = mixed(f.s, 10, g.s);
  constexpr double no = untouched;
  expect_all({
      {vekrpt_, 10, 100, "P,T", {10, 100}},
      {vekrpt_, 10, 100, "T,P", {100, ps100}},
      {vekrpt_, 10, 100, "T,P ", {100, 10}},
      {vekrpt_, 10, 100, "PT", {ps100}},
      {vekrpt_, 10, 100, "PRE,T ", {10, 100}},
      {vekrpt_, 10, 100, "PRES,T ", {ps100, 100}},
      {vekrpt_, 10, 100, "PRESS,T ", {ps100, no, 100}, refusal("")},
      {vekrpt_, 10, 100, "TEMP,P ", {no, ps100}, refusal("TEMP")},
      {vekrpt_, 10, 100, "P,TC", {10, 0}, wet_refusal},
      {vekrpt_, 10, 100, "DVXX,P ", {0, ps100}, wet_refusal},
      {vekrpt_, 10, 100, "CP,CPXX,CP ", {w.cp, 0, 0}, wet_refusal},
      {vekrpt_, 207.2, 360, "PRES,CP ", {ps100, 0}, wet_refusal},
      {vekrpt_, 10, 100, "TTTT,V,H,S,X ", {no, v, h, s, 10}, refusal("TTTT")},
      {vekrtx_, 360, 0.25, "T,P", {360, ps360}},
  });
}

TEST(PropertyList, IsReadItemByItem) {
  const Phase& w = water_10_100;
  constexpr double no = untouched;
  const std::string all_wrong = refusal("p") + refusal("TX") + refusal("C") + refusal("D");
  expect_all({
      {vekrpt_, 10, 100, "", {}},
      {vekrpt_, 10, 100, " ", {no}, refusal("")},
      {vekrpt_, 10, 100, "P,", {10}},
      {vekrpt_, 10, 100, ",P ", {no, 10}, refusal("")},
      {vekrpt_, 10, 100, "P,.T ", {10, no, 100}, refusal("")},
      {vekrpt_, 10, 100, "TCX ", {w.tc}},
      {vekrpt_, 10, 100, "CPX,HX,X1 ", {w.cp, w.h, 0}},
      {vekrpt_, 10, 100, "p,TX,C,D ", {no, no, no, no}, all_wrong},
      {vekrtx_, 100, 0.5, "CP,U,T ", {0, no, 100}, refusal("U") + wet_refusal},
  });
}

TEST(WetState, IsSaturatedLiquidOrVapourNearTheEndsOfTheQuality) {
  const auto &w = water_100, &s = steam_100, &l = liquid_360, &g = vapour_360;
  const double nan = not_a_number, tiny = up(1e-6), most = down(0.999999);
  expect_all({
      {vekrtx_, 100, 1e-6, "X,P,H,CP,DV,TC ", {0, ps100, w.h, w.cp, w.dv, w.tc}},
      {vekrtx_, 100, -3, "X,H ", {0, w.h}},
      {vekrtx_, 100, tiny, "X ", {tiny}},
      {vekrtx_, 100, 0.999999, "X,H,CP ", {1, s.h, s.cp}},
      {vekrtx_, 100, 7, "X,H ", {1, s.h}},
      {vekrtx_, 100, most, "X,CP ", {most, 0}, wet_refusal},
      {vekrtx_, 360, 1e-6, "X,V,DV ", {0, l.v, untouched}},
      {vekrtx_, 360, tiny, "X ", {tiny}},
      {vekrtx_, 360, 0.999999, "X,V,TC ", {1, g.v, untouched}},
      {vekrtx_, 360, most, "X ", {most}},
      {vekrtx_, 100, nan, "X,V,P ", {nan, nan, ps100}},
      // A pressure left in the place of the quality, on the saturation line.
      {vekrpt_, ps100, 100, "X,H ", {1, s.h}},
      {vekrpt_, saturation_pressure(10), 10, "X,T ", {saturation_pressure(10), 10}},
  });
}

TEST(IllegalRegion, EndsTheRequestBeforeAnySlot) {
  expect_all({
      {vekrtx_, 400, 0.5, "P,T ", {}, illegal_region("7")},
      {always<0>, 1, 1, "P,T ", {}, illegal_region("0")},
      {always<-3>, 1, 1, "? ", {}, illegal_region("-3")},
  });
}

// What placing the state has reported stays written, but the flag is cleared before the list.
TEST(ErrorFlag, ForgetsWhatCameBeforeTheListAndTellsOfWhatAnItemReports) {
  const char* const report = "** VEK-ERROR: 1  OUT OF RANGE IN COMT1,P= 3000,T= 100\n";
  expect({vekrpt_, 3000, 100, "T ", {100}, report}, 0);
  const double v = water(3000, 100).v;
  water(10, 100);  // the terms are those of another state again
  expect({always<1>, 3000, 100, "T,V ", {100, v}, report}, 2);
  // The terms are known from the placing, so of these items only the heat capacity takes the root.
  const auto flag_of = [](const char* list) {
    const double low = 1, cold = -91.2;
    std::array<double, 2> result{};
    vek(vekrpt_, &low, &cold, list, result.data());
    return VEKHasError();
  };
  EXPECT_EQ(flag_of("V,H "), 0);
  EXPECT_EQ(flag_of("CP "), 1);
  EXPECT_EQ(flag_of("CP,V "), 1);
}
