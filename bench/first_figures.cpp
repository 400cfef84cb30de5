#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>

#include "work.hpp"

// The first tables of docs/performance.md: nanoseconds a call and rows a second in batches, for
// what is asked most. The least time of many passes is free of what else the machine does.

namespace {

using Clock = std::chrono::steady_clock;
using steam::Region;

constexpr std::array shown{"pt_h", "pt_vhscp", "ph_t", "ph_tsv", "ps_h", "tx_vhs", "hs_pt"};
constexpr std::array regions{Region::water, Region::steam, Region::wet, Region::dense_steam};
constexpr std::size_t rows_of_calls = 4000, rows_of_batch = 200000;
constexpr int passes = 15;

volatile double sink;

template <class Pass>
double least_seconds(const Pass& pass) {
  double least = 1e9;
  for (int i = 0; i < passes; ++i) {
    const auto start = Clock::now();
    pass();
    least = std::min(least, std::chrono::duration<double>(Clock::now() - start).count());
  }
  return least;
}

double nanoseconds_a_call(const work::Task& task, const work::Rows& rows) {
  std::array<double, 8> out{};
  return 1e9 / rows_of_calls * least_seconds([&] {
           for (std::size_t i = 0; i < rows_of_calls; ++i) {
             steam::values(task.pair, rows.first[i], rows.second[i], task.wanted, out);
             sink = out[0];
           }
         });
}

double million_rows_a_second(const work::Task& task, const work::Rows& rows,
                             const steam::Pool& pool) {
  std::vector<std::vector<double>> outputs(task.wanted.size(), std::vector<double>(rows_of_batch));
  std::vector<double> first(rows_of_batch), second(rows_of_batch);
  for (std::size_t i = 0; i < rows_of_batch; ++i) {
    first[i] = rows.first[i % rows_of_calls];
    second[i] = rows.second[i % rows_of_calls];
  }
  const std::vector<steam::Column<double>> columns(outputs.begin(), outputs.end());
  steam::Options options;
  options.pool = &pool;
  return 1e-6 * rows_of_batch / least_seconds([&] {
           steam::evaluate(task.pair, first, second, task.wanted, columns, {}, options);
         });
}

template <class Cell>
void print_table(const Cell& cell) {
  std::printf("\n| request | water | steam | wet | near critical |\n|---|---|---|---|---|\n");
  for (const work::Task& task : work::tasks()) {
    if (std::find(shown.begin(), shown.end(), std::string_view(task.name)) == shown.end()) {
      continue;
    }
    std::printf("| `%s` |", task.name);
    for (const Region region : regions) {
      work::applies(task, region) ? cell(task, work::rows(task, region, rows_of_calls))
                                  : void(std::printf(" |"));
    }
    std::printf("\n");
  }
}

}  // namespace

int main() {
  const steam::Pool alone(1), together;
  std::printf("Nanoseconds a call, one state at a time:\n");
  print_table([](const work::Task& task, const work::Rows& rows) {
    std::printf(" %.0f |", nanoseconds_a_call(task, rows));
  });
  std::printf("\nMillion rows a second in batches, on one thread and on %u:\n",
              std::thread::hardware_concurrency());
  print_table([&](const work::Task& task, const work::Rows& rows) {
    std::printf(" %.0f, %.0f |", million_rows_a_second(task, rows, alone),
                million_rows_a_second(task, rows, together));
  });
}
