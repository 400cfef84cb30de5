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

TEST_P(RoundTrip, FindsEveryState) {
  const auto [pair, region] = GetParam();
  std::mt19937_64 random(1967);
  constexpr int count = 1500;
  for (int i = 0; i < count; ++i) {
    const steam::State original = round_trips::random_state(region, random);
    const auto trip = round_trips::round_trip(pair, original);
    const auto g = round_trips::given(pair, original);
    ASSERT_TRUE(trip.found) << testing::PrintToString(g.first) << ' ' << g.second << ", p "
                            << original.p << " t " << original.t << " x " << original.x;
    EXPECT_LE(trip.pair_error, rounding) << "p " << original.p << " t " << original.t;
    if (!may_be_several(pair)) {
      EXPECT_TRUE(trip.preferred) << "p " << original.p << " t " << original.t;
    }
  }
}

std::string name_of(const testing::TestParamInfo<Case>& test) {
  return std::string(round_trips::name(test.param.pair)) + "_region_" +
         std::to_string(static_cast<int>(test.param.region));
}

INSTANTIATE_TEST_SUITE_P(AllPairs, RoundTrip, testing::ValuesIn(cases()), name_of);

}  // namespace
