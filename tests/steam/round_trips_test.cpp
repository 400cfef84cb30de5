#include "round_trips.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using steam::Pair;
using steam::Region;

bool is_wet(Region r) { return r == Region::wet || r == Region::wet_above_350; }

bool applies(Pair pair, Region region) {
  const bool with_x = round_trips::name(pair)[1] == 'x';
  return with_x ? is_wet(region) : !(pair == Pair::pt && is_wet(region));
}

/// Pairs that several states may have, so that `state` may return another one.
bool may_be_several(Pair pair) {
  const std::string name = round_trips::name(pair);
  return name == "pv" || name == "th" || name == "tu" || name == "ts" || name[1] == 'x';
}

/// The sums of subregion 1 in cold water and of subregion 2 beside the boundary line lose this much
/// to rounding.
constexpr double rounding = 3e-11;

struct Case {
  Pair pair;
  Region region;
};

std::vector<Case> cases() {
  std::vector<Case> all;
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    for (const Region region : round_trips::regions) {
      if (applies(static_cast<Pair>(i), region)) {
        all.push_back({static_cast<Pair>(i), region});
      }
    }
  }
  return all;
}

class RoundTrip : public testing::TestWithParam<Case> {};

void check(Pair pair, const steam::State& original) {
  SCOPED_TRACE(testing::Message() << "p " << original.p << " t " << original.t << " x "
                                  << original.x);
  const auto trip = round_trips::round_trip(pair, original);
  EXPECT_TRUE(trip.found);
  EXPECT_LE(trip.pair_error, rounding);
  EXPECT_TRUE(trip.preferred || may_be_several(pair));
}

TEST_P(RoundTrip, FindsEveryState) {
  const auto [pair, region] = GetParam();
  std::mt19937_64 random(1967);
  constexpr int count = 1500;
  for (int i = 0; i < count; ++i) {
    check(pair, round_trips::random_state(region, random));
  }
}

std::string name_of(const testing::TestParamInfo<Case>& test) {
  return std::string(round_trips::name(test.param.pair)) + "_region_" +
         std::to_string(static_cast<int>(test.param.region));
}

INSTANTIATE_TEST_SUITE_P(AllPairs, RoundTrip, testing::ValuesIn(cases()), name_of);

}  // namespace
