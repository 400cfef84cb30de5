#include "classic/equations/properties.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "classic/equations/routines.hpp"
#include "support/canonical.hpp"

using namespace classic;

namespace {

using Property = double (*)(const double*, const double*);

struct Subregion {
  Property v, h, s, cp, u;  // in the third subregion p in the place of v
};
constexpr Subregion water{SPVOL1, ENTHA1, ENTRO1, HTCAP1, ENERG1};
constexpr Subregion steam{SPVOL2, ENTHA2, ENTRO2, HTCAP2, ENERG2};
constexpr Subregion third{PRESS3, ENTHA3, ENTRO3, HTCAP3, ENERG3};

constexpr double saturated = 0;  // stands for the saturation pressure

/// A state with values computed independently from the canonical functions.
struct Row {
  const Subregion& in;
  double first, t;  // pressure or, in the third subregion, specific volume
  const char *v, *h, *s, *cp;
};
constexpr Row rows[] = {
    {water, saturated, 0.01, "0.001000223493", "0.0006114", "0.000000000", "4.217381632"},
    {steam, saturated, 0.01, "206.1628753", "2501.569631", "9.157460783", "1.85423381"},
    {water, saturated, 100, "0.001043708161", "419.0646848", "1.306870667", "4.215646891"},
    {steam, saturated, 100, "1.672996851", "2676.008765", "7.355379554", "2.028104503"},
    {water, saturated, 200, "0.001156496441", "852.370964", "2.330660016", "4.496628912"},
    {steam, saturated, 200, "0.1271600499", "2790.939635", "6.427764421", "2.842925102"},
    {water, saturated, 300, "0.001404062286", "1345.053873", "3.255167729", "5.761918691"},
    {steam, saturated, 300, "0.02164871752", "2751.028941", "5.70811683", "5.863073537"},
    {water, saturated, 350, "0.001741119231", "1671.943892", "3.780040749", "10.1047215"},
    {steam, saturated, 350, "0.00879910545", "2567.651474", "5.217655309", "17.15051521"},
    {water, 1000, 20, "0.0009616400666", "173.9921742", "0.2691727335", "3.968075256"},
    {water, 100, 100, "0.00103861063", "426.5035432", "1.299187284", "4.193881239"},
    {water, 10, 100, "0.001043235963", "419.738642", "1.306163754", "4.213618977"},
    {steam, 1, 200, "2.172328254", "2875.3573", "7.834945623", "1.978952289"},
    {steam, 100, 500, "0.03275978144", "3374.598243", "6.599444799", "2.546684806"},
    {steam, 10, 800, "0.4942962015", "4154.06288", "8.49965676", "2.343815168"},
    {steam, 200, 600, "0.01816132893", "3535.518076", "6.504289573", "2.757695926"},
    {third, 0.0018, 360, "207.2119186", "1734.319336", "3.86791493", "10.29811249"},
    {third, 0.0025, 380, "242.4119339", "2002.917692", "4.273136652", "50.89796636"},
    {third, 0.006, 400, "250.1904749", "2580.75998", "5.143481903", "13.55834207"},
    {third, 0.00317, 374.15, "221.2000001", "2107.373234", "4.442864888", nullptr},
    // Rows of the tables printed in 1967.
    {steam, 100, 500, "0.03276", "3374.6", "6.5994", nullptr},
    {steam, saturated, 100, "1.673", "2676.0", "7.3554", nullptr},
};

/// Expects a value that agrees with a printed number to half a unit of its last printed digit.
void expect_printed(const char* name, double value, const std::string& printed) {
  const auto point = printed.find('.');
  const auto decimals = point == std::string::npos ? 0 : printed.size() - point - 1;
  const double half_unit = 0.5 * std::pow(10.0, -static_cast<double>(decimals));
  // The comparison itself rounds, and so does the printed number on its way into a double.
  const double rounding = 4e-16 * std::abs(value);
  EXPECT_NEAR(value, std::atof(printed.c_str()), half_unit + rounding) << name;
}

/// What enthalpy and entropy of water lose: they sum up terms some ten thousand times
/// larger than the result. Below the scale a deviation counts as absolute: h, s and u pass through
/// zero.
void expect_near(const char* name, double value, double expected, double scale) {
  EXPECT_NEAR(value, expected, 1e-10 * std::max(std::abs(expected), scale)) << name;
}

void compare(const Subregion& in, double z, double t, const canonical::Properties& expected) {
  SCOPED_TRACE(testing::Message() << z << ", " << t << " °C");
  const double v = in.v(&z, &t), h = in.h(&z, &t), u = in.u(&z, &t);
  const bool by_volume = &in == &third;
  expect_near("v", v, by_volume ? expected.p : expected.v, 0);
  expect_near("h", h, expected.h, 70);
  expect_near("s", in.s(&z, &t), expected.s, 0.1);
  expect_near("cp", in.cp(&z, &t), expected.cp, 0);
  expect_near("u", u, expected.u, 70);
  EXPECT_EQ(u, by_volume ? h - v * z * 100 : h - 100 * z * v);
}

void compare3(double v, double t) {
  compare(third, v, t, canonical::subregion3(v, t));
  using canonical::Conditional;
  const auto part = t <= 374.15 ? Conditional::all : Conditional::without_last_sum;
  const auto always = canonical::subregion3(v, t, part);
  expect_near("PRESS3X", PRESS3X(&v, &t), always.p, 0);
  expect_near("ENTHA3X", ENTHA3X(&v, &t), always.h, 0);
}

double saturation_pressure(double t) { return VEKQPT(&t); }

/// Whether subregion 3 has an ordinary state there: stable, and not next to the critical point,
/// where the heat capacity goes to infinity.
bool is_ordinary3(double v, double t) {
  const double cp = HTCAP3(&v, &t), p = PRESS3(&v, &t);
  return cp > 0 && cp < 200 && p > 100 && p < 1200;
}

}  // namespace

TEST(CheckValues, HoldToTheirLastDigit) {
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.first << ", " << row.t << " °C, v " << row.v);
    const double first = row.first == saturated ? VEKQPT(&row.t) : row.first;
    expect_printed("v", row.in.v(&first, &row.t), row.v);
    expect_printed("h", row.in.h(&first, &row.t), row.h);
    expect_printed("s", row.in.s(&first, &row.t), row.s);
    if (row.cp != nullptr) {
      expect_printed("cp", row.in.cp(&first, &row.t), row.cp);
    }
  }
}

TEST(Properties, AreDerivativesOfTheCanonicalFunctions) {
  for (const double t : {0.01, 4.0, 20.0, 100.0, 137.0, 200.0, 263.0, 300.0, 350.0}) {
    const double ps = saturation_pressure(t), p_low = 0.006112444;
    for (const double p : {ps, 221.2, 500.0, 1000.0}) {
      compare(water, p, t, canonical::subregion1(p, t));
    }
    compare(steam, ps, t, canonical::subregion2(ps, t));
    compare(steam, p_low, t, canonical::subregion2(p_low, t));
  }
  for (const double t : {400.0, 500.0, 590.0, 700.0, 800.0}) {
    for (const double p : {0.006112444, 1.0, 50.0, 170.0}) {
      compare(steam, p, t, canonical::subregion2(p, t));
    }
  }
  for (const double t : {350.0, 360.0, 370.0, 373.9, 373.95, 374.15, 380.0, 420.0, 590.0}) {
    for (const double v : {0.00135, 0.0016, 0.0018, 0.0025, 0.00317, 0.004, 0.006, 0.0087}) {
      if (is_ordinary3(v, t)) {
        compare3(v, t);
      }
    }
  }
}
