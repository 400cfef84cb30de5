#include <gtest/gtest.h>

#include <cmath>

#include "answers.hpp"
#include "exactness.hpp"
#include "round_trips.hpp"
#include "survey/boundary_states.hpp"

// States of every region, on every boundary and beside it, from every pair that they have. A fault
// is told once for each boundary.

namespace {

using steam::Pair;
using steam::State;

class EveryPair : public testing::TestWithParam<Pair> {};

/// Within 0.001 K of the critical point quality and saturated volumes have four digits.
bool is_merging(Pair pair, const State& s) {
  return round_trips::name(pair)[1] == 'x' && pair > Pair::tx && std::abs(s.t - 374.15) < 1e-3;
}

/// What is wrong with the answers to the pair of one state. Each property alone and its canonical
/// value take long.
std::string fault_of(Pair pair, const State& original, bool is_thorough) {
  const auto [first, second] = round_trips::given(pair, original);
  const auto answer = boundary_states::asked_back(pair, original);
  std::string fault = answer.described(pair, first, second);
  if (is_thorough) {
    fault += answers::difference_alone(pair, first, second);
    for (const State& s : answer.states) {
      const bool is_first = &s == answer.states.begin();
      const auto values = is_first ? answers::asked_for(pair, first, second) : answers::held_by(s);
      fault += s.approximate ? "" : exactness::fault(s, values);
    }
  }
  return fault;
}

TEST_P(EveryPair, GivesItsStatesBackWithTheCanonicalValueOfEveryProperty) {
  for (const auto& boundary : boundary_states::boundaries()) {
    std::mt19937_64 random(1967);
    std::string fault;
    const int count = boundary_states::applies(GetParam(), boundary) ? 400 : 0;
    for (int i = 0; i < count && fault.empty(); ++i) {
      const auto origin = boundary.beside(random);
      const auto original = steam::state(origin.pair, origin.first, origin.second);
      if (original && !is_merging(GetParam(), *original)) {
        fault = fault_of(GetParam(), *original, i < 60);
      }
    }
    EXPECT_EQ(fault, "") << boundary.name;
  }
}

INSTANTIATE_TEST_SUITE_P(All, EveryPair, testing::ValuesIn(answers::all_pairs),
                         [](const auto& test) {
                           return std::string(round_trips::name(test.param));
                         });

struct Row {
  Pair pair;
  double first, second;
};

/// Each was refused, or answered by several states one of which was wrong or missing.
TEST(Pairs, ThatWereAnsweredWrongly) {
  const Row rows[]{
      {Pair::ts, 0x1p+2, 0x1.f43d95507c89ap-5},
      {Pair::tu, 0x1.0500fa258bb98p+2, 0x1.12171047dc317p+4},
      {Pair::ph, 165.3515, 1671.8},
      {Pair::ph, 0x1.29b2339b5bc58p+9, 0x1.87e04db809b51p+10},
      {Pair::th, 350.00005, 2567.7},
      {Pair::pv, 0x1.ba6598b90648bp+7, 0x1.9c6598e48f618p-9},
      {Pair::pv, 0x1.4ab3d5cd9d037p+7, 0x1.a028e0380ffe9p-9},
      {Pair::us, 0x1.3e8b130c5e1f3p+11, 0x1.45dbedc2b02fap+2},
      {Pair::us, 0x1.2d1cf76cca48p-12, 0x1.1a2675ddd3f02p-20},
      {Pair::us, 0x1.9738999c93d87p+10, 0x1.e0d3d44651fccp+1},
      {Pair::pv, 0x1.108c5a05cc15bp+5, 0x1.05bd0bbde9231p-10},
      {Pair::ph, 30, 2000},
  };
  for (const auto& [pair, first, second] : rows) {
    EXPECT_EQ(answers::asked(pair, first, second).described(pair, first, second), "");
    EXPECT_EQ(answers::difference_alone(pair, first, second), "");
  }
}

TEST(Pairs, OfSaturatedSteamAbove350AreNoLiquid) {
  const Row rows[]{{Pair::hs, 0x1.2b92223be4197p+11, 0x1.39db62ce6005bp+2},
                   {Pair::vu, 0x1.e751f4d9f544fp-8, 0x1.291120edae367p+11},
                   {Pair::vh, 0x1.07f580c91cafp-7, 0x1.3d59b4f7a7661p+11}};
  for (const auto& [pair, first, second] : rows) {
    const steam::Result state = steam::state(pair, first, second);
    EXPECT_NE(state->region, steam::Region::hot_water);
    EXPECT_GT(state->v, 0.005);
  }
}

}  // namespace
