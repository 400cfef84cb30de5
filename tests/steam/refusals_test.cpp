#include <gtest/gtest.h>

#include <cmath>

#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Reason;

struct Row {
  Pair pair;
  double first, second;
  Reason reason;
  const char* text;
};

TEST(Refusals, NameTheValueAndWhatIsAccepted) {
  const Row rows[]{
      {Pair::pt, 2000, 500, Reason::pressure, "pressure 2000 bar is outside 0.006112444 to 1000"},
      {Pair::pt, 1, -3, Reason::temperature, "temperature -3 °C is outside 0.01 to 800"},
      {Pair::pt, 1, std::nan(""), Reason::not_a_number, "temperature is not a number"},
      {Pair::px, 300, 0.5, Reason::pressure, "pressure 300 bar is outside 0.006112444 to 221.2"},
      {Pair::tx, 380, 0.5, Reason::temperature, "temperature 380 °C is outside 0.01 to 374.15"},
      {Pair::tx, 100, 1.5, Reason::quality, "quality 1.5  is outside 0 to 1"},
      {Pair::ph, 100, 5000, Reason::value, "enthalpy 5000 kJ/kg is outside 0.0006113 to 4158.746"},
      {Pair::pv, 100, -1, Reason::value, "volume -1 m³/kg is outside 0.00095646 to 810.264"},
      {Pair::ps, 100, 20, Reason::value, "entropy 20 kJ/(kg K) is outside -0.00655 to 11.9183"},
      {Pair::pu, 1, 4000, Reason::value,
       "internal energy 4000 kJ/kg is outside -1e-08 to 3663.477"},
      {Pair::hs, 100, 9, Reason::no_state, "no state of the formulation has both values"},
      {Pair::vu, 100, 100, Reason::no_state, "no state of the formulation has both values"},
      {Pair::sx, 9, 0.1, Reason::no_state, "no state of the formulation has both values"},
  };
  for (const Row& row : rows) {
    const steam::Result result = steam::state(row.pair, row.first, row.second);
    EXPECT_FALSE(result) << row.text;
    EXPECT_EQ(result.refusal().reason, row.reason) << row.text;
    EXPECT_EQ(steam::text(result.refusal()), row.text);
    EXPECT_TRUE(steam::states(row.pair, row.first, row.second).empty()) << row.text;
    EXPECT_TRUE(std::isnan(steam::value(row.pair, row.first, row.second, steam::Property::p)));
  }
}

}  // namespace
