#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <stdexcept>
#include <vector>

#include "answers.hpp"
#include "round_trips.hpp"
#include "survey/boundary_states.hpp"

namespace {

using steam::Pair;
using steam::Property;
using steam::Reason;

constexpr auto& all = answers::all_properties;

struct Table {
  std::vector<double> first, second;
  std::vector<std::vector<double>> columns;
  std::vector<Reason> status;
  std::size_t done = 0;
};

Table inputs(Pair pair, int states_of_boundary) {
  const auto rows = boundary_states::rows(pair, states_of_boundary);
  return {rows.first, rows.second, {}, {}};
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
    std::array<double, all.size()> single{};
    EXPECT_EQ(steam::values(pair, table.first[row], table.second[row], all, single),
              table.status[row]);
    for (std::size_t i = 0; i < single.size(); ++i) {
      EXPECT_TRUE(answers::same_bits(single[i], table.columns[i][row]))
          << "row " << row << " column " << i;
    }
  }
}

TEST(Evaluate, BatchesHaveTheBitsOfSingleEvaluationsWhateverTheThreads) {
  const std::vector<steam::Options> ways{
      {.threads = 1, .chunk = 1000}, {.threads = 8, .chunk = 7}, {.chunk = 0}, {}};
  for (const Pair pair : answers::all_pairs) {
    const Table start = inputs(pair, 12);
    for (const steam::Options& options : ways) {
      const Table table = evaluated(pair, start, options);
      ASSERT_EQ(table.done, start.first.size());
      check_rows(pair, table);
    }
  }
}

TEST(Evaluate, StopsAndReports) {
  std::atomic<int> cancel{0};
  std::vector<std::size_t> reports;
  steam::Options options{.threads = 2, .chunk = 10, .cancel = &cancel};
  const Table start = inputs(Pair::ph, 50);
  options.progress = [&](std::size_t done, std::size_t rows) {
    EXPECT_EQ(rows, start.first.size());
    reports.push_back(done);
    if (done >= 100) {
      cancel = 1;
    }
  };
  const Table table = evaluated(Pair::ph, start, options);
  EXPECT_GE(table.done, 100U);
  EXPECT_LT(table.done, 200U);
  EXPECT_TRUE(std::is_sorted(reports.begin(), reports.end()));
  EXPECT_EQ(reports.back(), table.done);
  std::size_t reached = 0;
  for (std::size_t row = 0; row < table.status.size(); ++row) {
    const bool is_missing = std::isnan(table.columns[0][row]);
    reached += table.status[row] != Reason::not_reached ? 1 : 0;
    EXPECT_EQ(is_missing, table.status[row] != Reason::none) << row;
  }
  EXPECT_EQ(reached, table.done);
}

TEST(Evaluate, WhatTheCallbackThrowsReachesTheCaller) {
  for (const unsigned threads : {1U, 4U}) {
    const steam::Options options{.threads = threads, .chunk = 10, .progress = [](auto, auto) {
                                   throw std::runtime_error("enough");
                                 }};
    EXPECT_THROW(evaluated(Pair::ph, inputs(Pair::ph, 50), options), std::runtime_error);
  }
}

TEST(Evaluate, OutputsMayBeTheInputs) {
  const Table start = inputs(Pair::ph, 20);
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
  const Table none = evaluated(Pair::ph, inputs(Pair::ph, 0), {.cancel = &cancelled});
  EXPECT_EQ(none.done, 0U);
  EXPECT_EQ(none.status, std::vector<Reason>(6, Reason::not_reached));
}

TEST(Evaluate, NamesThatDoNotExistAreMisuse) {
  std::vector<double> one{1};
  const std::span<double> outputs[]{one};
  constexpr std::size_t properties = steam::property_count, pairs = steam::pair_count;
  constexpr std::pair<std::size_t, std::size_t> unknown[]{{pairs, properties},
                                                          {pairs + 1, 63},
                                                          {64, 64 + properties},
                                                          {127, 128 + properties},
                                                          {255, 255}};
  for (const Property of_phase : {steam::of_liquid(Property::h), steam::of_vapour(Property::h)}) {
    EXPECT_THROW(steam::of_liquid(of_phase), std::invalid_argument);
    EXPECT_THROW(steam::of_vapour(of_phase), std::invalid_argument);
  }
  for (const auto& [pair_number, property_number] : unknown) {
    const auto no_pair = static_cast<Pair>(pair_number);
    EXPECT_THROW(static_cast<void>(steam::state(no_pair, 1, 100)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(steam::states(no_pair, 1, 100)), std::invalid_argument);
    for (const auto& [pair, wanted] :
         {std::pair{no_pair, Property::t}, {Pair::ph, static_cast<Property>(property_number)}}) {
      const std::span<const Property> list(&wanted, 1);
      EXPECT_THROW(steam::values(pair, 1, 100, list, one), std::invalid_argument);
      EXPECT_THROW(static_cast<void>(steam::value(pair, 1, 100, wanted)), std::invalid_argument);
      EXPECT_THROW(steam::evaluate(pair, one, one, list, outputs, {}), std::invalid_argument);
    }
  }
}

TEST(Evaluate, SpansThatDoNotFitAreMisuse) {
  std::vector<double> three(3), two(2);
  std::vector<Reason> status(3);
  const Property wanted[]{Property::t};
  const std::span<double> short_output[]{two}, output[]{three};
  const auto misuse = [&](const auto& second, std::span<const Property> properties, auto& outputs) {
    EXPECT_THROW(steam::evaluate(Pair::ph, three, second, properties, outputs, status),
                 std::invalid_argument);
  };
  misuse(three, wanted, short_output);
  misuse(two, wanted, output);
  misuse(three, {}, output);
  EXPECT_THROW(steam::values(Pair::ph, 1, 100, wanted, {}), std::invalid_argument);
}

}  // namespace
