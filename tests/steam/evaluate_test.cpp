#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <stdexcept>
#include <vector>

#include "answers.hpp"
#include "round_trips.hpp"

namespace {

using steam::Pair;
using steam::Property;
using steam::Reason;

constexpr auto& all = answers::all_properties;

/// The one after the last of version 1.
constexpr auto not_reached = Reason::not_reached;

struct Table {
  std::vector<double> first, second;
  std::vector<std::vector<double>> columns;
  std::vector<Reason> status;
  std::size_t done = 0;
};

Table inputs(Pair pair, std::size_t rows) {
  std::mt19937_64 random(5);
  Table table;
  for (std::size_t i = 0; i < rows; ++i) {
    const bool with_x = round_trips::name(pair)[1] == 'x';
    const auto region =
        with_x ? steam::Region::wet : round_trips::regions[i % (pair == Pair::pt ? 4 : 6)];
    const auto g = round_trips::given(pair, round_trips::random_state(region, random));
    table.first.push_back(i % 17 == 3 ? -1 : g.first);  // some rows without a state
    table.second.push_back(g.second);
  }
  return table;
}

Table evaluated(Pair pair, Table table, const steam::Options& options) {
  const std::size_t rows = table.first.size();
  table.columns.assign(all.size(), std::vector<double>(rows));
  table.status.resize(rows);
  const std::vector<std::span<double>> outputs(table.columns.begin(), table.columns.end());
  table.done =
      steam::evaluate(pair, table.first, table.second, all, outputs, table.status, options);
  return table;
}

/// Whether each row of a table is what a single evaluation gives.
void check_rows(Pair pair, const Table& table) {
  SCOPED_TRACE(round_trips::name(pair));
  for (std::size_t row = 0; row < table.first.size(); ++row) {
    std::array<double, steam::property_count> single{};
    EXPECT_EQ(steam::values(pair, table.first[row], table.second[row], all, single),
              table.status[row]);
    for (std::size_t i = 0; i < single.size(); ++i) {
      EXPECT_TRUE(answers::same_bits(single[i], table.columns[i][row]))
          << "row " << row << " column " << i;
    }
  }
}

TEST(Evaluate, BatchesHaveTheBitsOfSingleEvaluationsWhateverTheThreads) {
  const std::vector<steam::Options> ways{{.threads = 1, .chunk = 1000},
                                         {.threads = 8, .chunk = 7},
                                         {.threads = 3, .chunk = 1},
                                         {.chunk = 0},
                                         {}};
  for (std::size_t pair_number = 0; pair_number < steam::pair_count; ++pair_number) {
    const auto pair = static_cast<Pair>(pair_number);
    const Table start = inputs(pair, 300);
    for (const steam::Options& options : ways) {
      const Table table = evaluated(pair, start, options);
      ASSERT_EQ(table.done, start.first.size());
      check_rows(pair, table);
    }
  }
}

TEST(Evaluate, RowsWithoutAStateGetTheirReasonAndNaN) {
  const std::vector<double> p{100, -1, 100, std::nan("")}, h{2000, 2000, 9999, 2000};
  std::vector<double> t(4);
  std::vector<Reason> status(4);
  const Property wanted[]{Property::t};
  const std::span<double> outputs[]{t};
  EXPECT_EQ(steam::evaluate(Pair::ph, p, h, wanted, outputs, status), 4U);
  const std::vector<Reason> expected{Reason::none, Reason::pressure, Reason::value,
                                     Reason::not_a_number};
  EXPECT_EQ(status, expected);
  EXPECT_GT(t[0], 0);
  EXPECT_TRUE(std::isnan(t[1]) && std::isnan(t[2]) && std::isnan(t[3]));
}

TEST(Evaluate, StopsAndReports) {
  std::atomic<int> cancel{0};
  std::vector<std::size_t> reports;
  steam::Options options{.threads = 2, .chunk = 10, .cancel = &cancel};
  options.progress = [&](std::size_t done, std::size_t rows) {
    EXPECT_EQ(rows, 1000U);
    reports.push_back(done);
    if (done >= 100) {
      cancel = 1;
    }
  };
  const Table table = evaluated(Pair::ph, inputs(Pair::ph, 1000), options);
  EXPECT_GE(table.done, 100U);
  EXPECT_LT(table.done, 200U);
  EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
  EXPECT_EQ(reports.back(), table.done);
  std::size_t reached = 0;
  for (std::size_t row = 0; row < table.status.size(); ++row) {
    const bool is_missing = std::isnan(table.columns[0][row]);
    reached += table.status[row] != not_reached ? 1 : 0;
    EXPECT_EQ(is_missing, table.status[row] != Reason::none) << row;
  }
  EXPECT_EQ(reached, table.done);
}

TEST(Evaluate, WhatTheCallbackThrowsReachesTheCaller) {
  for (const unsigned threads : {1U, 4U}) {
    const steam::Options options{.threads = threads, .chunk = 10, .progress = [](auto, auto) {
                                   throw std::runtime_error("enough");
                                 }};
    EXPECT_THROW(evaluated(Pair::ph, inputs(Pair::ph, 1000), options), std::runtime_error);
  }
}

TEST(Evaluate, OutputsMayBeTheInputs) {
  const Table start = inputs(Pair::ph, 500);
  Table table = start;
  const Property wanted[]{Property::t, Property::s};
  const std::span<double> outputs[]{table.second, table.first};
  steam::evaluate(Pair::ph, table.first, table.second, wanted, outputs, {}, {.chunk = 7});
  for (std::size_t row = 0; row < start.first.size(); ++row) {
    const auto value = [&](Property p) {
      return steam::value(Pair::ph, start.first[row], start.second[row], p);
    };
    EXPECT_TRUE(answers::same_bits(table.second[row], value(Property::t))) << row;
    EXPECT_TRUE(answers::same_bits(table.first[row], value(Property::s))) << row;
  }
}

TEST(Evaluate, NothingIsDoneAtOnce) {
  int calls = 0;
  const steam::Options options{.progress = [&](auto, auto) { ++calls; }};
  const Table table = evaluated(Pair::ph, {}, options);
  EXPECT_EQ(table.done, 0U);
  EXPECT_EQ(calls, 0);
  const std::atomic<int> cancelled{1};
  const Table none = evaluated(Pair::ph, inputs(Pair::ph, 3), {.cancel = &cancelled});
  EXPECT_EQ(none.done, 0U);
  EXPECT_EQ(none.status, std::vector<Reason>(3, not_reached));
}

TEST(Evaluate, NamesThatDoNotExistAreMisuse) {
  std::vector<double> one{1};
  const std::span<double> outputs[]{one};
  const auto misuse = [&](Pair pair, Property property) {
    const Property wanted[]{property};
    EXPECT_THROW(steam::values(pair, 1, 100, wanted, one), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(steam::value(pair, 1, 100, property)), std::invalid_argument);
    EXPECT_THROW(steam::evaluate(pair, one, one, wanted, outputs, {}), std::invalid_argument);
  };
  for (const int number : {18, 19, 64, 255}) {
    const auto pair = static_cast<Pair>(number);
    EXPECT_THROW(static_cast<void>(steam::state(pair, 1, 100)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(steam::states(pair, 1, 100)), std::invalid_argument);
    misuse(pair, Property::t);
    misuse(Pair::ph, static_cast<Property>(number - 1));
  }
}

TEST(Evaluate, SpansThatDoNotFitAreMisuse) {
  std::vector<double> three(3), two(2);
  std::vector<Reason> status(3);
  const Property wanted[]{Property::t};
  const std::span<double> short_output[]{two};
  const std::span<double> output[]{three};
  const auto misuse = [&](const auto& second, auto properties, auto outputs) {
    EXPECT_THROW(steam::evaluate(Pair::ph, three, second, properties, outputs, status),
                 std::invalid_argument);
  };
  using Properties = std::span<const Property>;
  using Outputs = std::span<const std::span<double>>;
  misuse(three, Properties(wanted), Outputs(short_output));
  misuse(two, Properties(wanted), Outputs(output));
  misuse(three, Properties(), Outputs(output));
  EXPECT_THROW(steam::values(Pair::ph, 1, 100, wanted, {}), std::invalid_argument);
}

}  // namespace
