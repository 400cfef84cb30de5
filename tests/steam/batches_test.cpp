#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "answers.hpp"
#include "round_trips.hpp"

// Batches that ask for a few properties go through the equations several rows at once. What they
// answer is held to the states that the rows were made of, by another pair.

namespace {

using steam::Pair;
using steam::Property;
using steam::State;

std::vector<State> mixed_states(int of_region) {
  std::mt19937_64 random(1967);
  std::vector<State> all;
  for (const steam::Region region : round_trips::regions) {
    for (int i = 0; i < of_region; ++i) {
      all.push_back(round_trips::random_state(region, random));
    }
  }
  std::shuffle(all.begin(), all.end(), random);
  return all;
}

/// The rows of a pair: input values in turn, so that their columns have a stride.
struct Rows {
  std::vector<State> states;
  std::vector<round_trips::Given> given;
};

Rows rows_of(Pair pair, const std::vector<State>& states) {
  Rows rows;
  for (const State& state : states) {
    const auto given = round_trips::given(pair, state);
    const bool is_told = pair != Pair::pt || !answers::is_wet(state.region);
    if (!is_told || std::isnan(given.first) || std::isnan(given.second)) {
      continue;
    }
    // Where several states have the pair another one may count, and beside the critical point
    // little is left of the digits.
    const bool is_near_critical = std::abs(state.t - 374.15) < 3 && std::abs(state.p - 221.2) < 10;
    const auto all = steam::states(pair, given.first, given.second);
    if (all.size() == 1 && !all[0].approximate && !is_near_critical) {
      rows.states.push_back(state);
      rows.given.push_back(given);
    }
  }
  return rows;
}

/// @return  columns as they are wanted; every other value of a column is left as it is
std::vector<std::vector<double>> evaluated(Pair pair, const Rows& rows,
                                           const std::vector<Property>& wanted, int stride) {
  const std::size_t count = rows.given.size();
  std::vector<std::vector<double>> columns(
      wanted.size(), std::vector<double>(static_cast<std::size_t>(stride) * count, -1));
  std::vector<steam::Column<double>> outputs;
  for (auto& column : columns) {
    outputs.emplace_back(column.data(), count, stride * static_cast<int>(sizeof(double)));
  }
  constexpr std::ptrdiff_t row = sizeof(round_trips::Given);
  std::vector<steam::Reason> status(count, steam::Reason::no_state);
  steam::evaluate(pair, {&rows.given.data()->first, count, row},
                  {&rows.given.data()->second, count, row}, wanted, outputs, status);
  EXPECT_EQ(std::count(status.begin(), status.end(), steam::Reason::none),
            static_cast<std::ptrdiff_t>(count));
  return columns;
}

/// As far as the pairs tell it: u and s of cold water hardly know the pressure.
double room(Property property, double value) {
  const double least = property == Property::p   ? 100
                       : property == Property::t ? 100
                       : property == Property::h ? 100
                       : property == Property::s ? 1
                                                 : 0;
  return 1e-4 * std::max(std::abs(value), least);
}

class Batches : public testing::TestWithParam<Pair> {};

TEST_P(Batches, HaveTheValuesOfTheStatesThatTheyWereMadeOf) {
  using P = Property;
  const Pair pair = GetParam();
  const Rows rows = rows_of(pair, mixed_states(300));
  ASSERT_GT(rows.states.size(), 300U);
  int stride = 1;
  for (const std::vector<P>& wanted :
       {std::vector{P::p, P::t}, std::vector{P::v, P::h, P::s}, std::vector{P::u, P::density},
        std::vector{P::cp}, std::vector{P::viscosity, P::conductivity}, std::vector{P::x}}) {
    stride = 3 - stride;
    const auto columns = evaluated(pair, rows, wanted, stride);
    for (std::size_t i = 0; i < rows.states.size(); ++i) {
      for (std::size_t column = 0; column < wanted.size(); ++column) {
        const double value = columns[column][i * static_cast<std::size_t>(stride)];
        const double expected = answers::property(rows.states[i], wanted[column]);
        const auto [first, second] = rows.given[i];
        ASSERT_TRUE(std::isnan(expected)
                        ? std::isnan(value)
                        : std::abs(value - expected) <= room(wanted[column], expected))
            << steam::info(wanted[column]).name << " of " << first << " " << second << ": " << value
            << " instead of " << expected;
        ASSERT_TRUE(answers::same_bits(value, steam::value(pair, first, second, wanted[column])));
        ASSERT_TRUE(stride == 1 || columns[column][i * 2 + 1] == -1);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, Batches, testing::ValuesIn(answers::all_pairs),
                         [](const auto& test) { return round_trips::name(test.param); });

}  // namespace
