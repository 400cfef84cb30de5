#include <gtest/gtest.h>

#include <cmath>

#include "vek/steam.hpp"

namespace {

using steam::Pair;
using steam::Reason;

struct Row {
  Pair pair;
  Reason reason;
  double first, second;
  const char* text;
};

void check(const Row& row) {
  SCOPED_TRACE(row.text);
  const steam::Result result = steam::state(row.pair, row.first, row.second);
  EXPECT_FALSE(result);
  EXPECT_EQ(result.refusal().reason, row.reason);
  EXPECT_EQ(steam::text(result.refusal()), row.text);
  EXPECT_TRUE(steam::states(row.pair, row.first, row.second).empty());
  EXPECT_TRUE(std::isnan(steam::value(row.pair, row.first, row.second, steam::Property::p)));
}

TEST(Refusals, NameTheValueAndWhatIsAccepted) {
  const Row rows[]{
      {Pair::pt, Reason::pressure, 2000, 500, "pressure 2000 is outside 0.006112444 to 1000 bar"},
      {Pair::pt, Reason::temperature, 1, -3, "temperature -3 is outside 0.01 to 800 °C"},
      {Pair::pt, Reason::not_a_number, 1, std::nan(""), "temperature is not a number"},
      {Pair::px, Reason::pressure, 300, 0.5, "pressure 300 is outside 0.006112444 to 221.2 bar"},
      {Pair::tx, Reason::temperature, 380, 0.5, "temperature 380 is outside 0.01 to 374.15 °C"},
      {Pair::tx, Reason::quality, 100, 1.5, "quality 1.5 is outside 0 to 1"},
      {Pair::ph, Reason::value, 100, 5000, "enthalpy 5000 is outside 0.0006113 to 4158.746 kJ/kg"},
      {Pair::pv, Reason::value, 100, -1, "volume -1 is outside 0.00095646 to 810.264 m³/kg"},
      {Pair::ps, Reason::value, 100, 20, "entropy 20 is outside -0.00655 to 11.9183 kJ/(kg K)"},
      {Pair::pu, Reason::value, 1, 4000,
       "internal energy 4000 is outside -1e-08 to 3663.477 kJ/kg"},
      // The equation of subregion 3 has such pressures once more, where there are no states.
      {Pair::ts, Reason::no_state, 391.3, 3, "no state of the formulation has both values"},
      {Pair::tv, Reason::no_state, 433.5, 0.000977, "no state of the formulation has both values"},
      {Pair::hs, Reason::no_state, 100, 9, "no state of the formulation has both values"},
      {Pair::sx, Reason::no_state, 9, 0.1, "no state of the formulation has both values"},
  };
  for (const Row& row : rows) {
    check(row);
  }
}

}  // namespace
