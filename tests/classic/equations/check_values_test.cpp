// States of the formulation with values computed independently from the canonical functions.

#include <gtest/gtest.h>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "support/published.hpp"

using namespace classic;

namespace {

using Property = double (*)(const double*, const double*);

struct Subregion {
  Property v, h, s, cp;  // in the third subregion p in the place of v
};
constexpr Subregion water{SPVOL1, ENTHA1, ENTRO1, HTCAP1};
constexpr Subregion steam{SPVOL2, ENTHA2, ENTRO2, HTCAP2};
constexpr Subregion third{PRESS3, ENTHA3, ENTRO3, HTCAP3};

constexpr double saturated = 0;  // stands for the saturation pressure

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
