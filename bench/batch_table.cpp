#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <span>
#include <string_view>

#include "steam/batch/targets.hpp"
#include "unit_costs.hpp"
#include "work.hpp"

// The tables of batches in docs/performance.md: time per row of one thread, in units of one
// std::pow(x, -5/17) of the same run, by the number of rows that are answered at once; then rows of
// all regions at random against the mean of the regions' own batches. The least time of some passes
// is free of what else the machine does. With arguments, such as ph_t ph_tsv, only those requests.

namespace {

using Clock = std::chrono::steady_clock;
using steam::Region;

constexpr std::size_t rows_of_a_batch = 100'000;
constexpr int passes = 7;
constexpr Region regions[]{Region::water, Region::steam, Region::wet, Region::dense_steam,
                           Region::hot_water};

double nanoseconds(const work::Task& task, const work::Rows& rows, int lanes) {
  steam::use_lanes(lanes);
  std::vector<std::vector<double>> results(task.wanted.size(),
                                           std::vector<double>(rows.first.size()));
  const std::vector<steam::Column<double>> columns(results.begin(), results.end());
  std::vector<steam::Reason> status(rows.first.size());
  steam::Options options;
  options.threads = 1;
  double least = 1e300;
  for (int pass = 0; pass < passes; ++pass) {
    const auto start = Clock::now();
    steam::evaluate(task.pair, rows.first, rows.second, task.wanted, columns, status, options);
    least = std::min(least, std::chrono::duration<double, std::nano>(Clock::now() - start).count());
  }
  return least / static_cast<double>(rows.first.size());
}

/// Rows of all regions, in random order.
work::Rows mixed(const std::vector<work::Rows>& all) {
  work::Rows rows;
  for (const work::Rows& some : all) {
    rows.first.insert(rows.first.end(), some.first.begin(), some.first.end());
    rows.second.insert(rows.second.end(), some.second.begin(), some.second.end());
  }
  std::mt19937_64 first_order(1), second_order(1);
  std::shuffle(rows.first.begin(), rows.first.end(), first_order);
  std::shuffle(rows.second.begin(), rows.second.end(), second_order);
  return rows;
}

/// A line of one request with some lanes.
void print(const work::Task& task, int lanes, double unit) {
  std::printf("| %s | %d |", task.name, lanes);
  std::vector<work::Rows> all;
  double sum = 0;
  for (const Region region : regions) {
    if (!work::applies(task, region)) {
      std::printf(" |");
      continue;
    }
    all.push_back(work::rows(task, region, rows_of_a_batch));
    const double time = nanoseconds(task, all.back(), lanes);
    sum += time;
    std::printf(" %.1f |", time / unit);
  }
  const double mean = sum / static_cast<double>(all.size());
  std::printf(" %.2f |\n", nanoseconds(task, mixed(all), lanes) / mean);
}

}  // namespace

int main(int count, char** arguments) {
  const std::span chosen(arguments + 1, static_cast<std::size_t>(count - 1));
  const double unit = unit_costs().pow;
  std::printf("pow %.1f ns\n\n| request | at once | 1 | 2 | wet | 3 | 4 | mixed |\n", unit);
  std::printf("|---|---|---|---|---|---|---|---|\n");
  for (const work::Task& task : work::tasks()) {
    if (!chosen.empty() &&
        std::find(chosen.begin(), chosen.end(), std::string_view(task.name)) == chosen.end()) {
      continue;
    }
    for (const int lanes : {1, 2, 4, 8}) {
      if (lanes <= steam::most_lanes()) {
        print(task, lanes, unit);
      }
    }
  }
}
