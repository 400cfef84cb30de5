#include <cstdio>
#include <cstdlib>

#include "steam/batch/targets.hpp"
#include "work.hpp"

// fixed_workload [LANES]: a fixed amount of work of every kind, whose instructions
// script/instructions counts; one state at a time, or in batches of so many rows at once. Without
// (h,u), whose searches along lines would outweigh all the rest.

namespace {

/// Some values of each row four times, the whole state once, all states once.
double of_rows(const work::Task& task, const work::Rows& rows) {
  double sum = 0;
  std::array<double, 8> out{};
  for (std::size_t i = 0; i < rows.first.size(); ++i) {
    const double a = rows.first[i], b = rows.second[i];
    for (int repeat = 0; repeat < 4; ++repeat) {
      steam::values(task.pair, a, b, task.wanted, out);
      sum += out[0];
    }
    sum += steam::state(task.pair, a, b)->h;
    for (const steam::State& state : steam::states(task.pair, a, b)) {
      sum += state.h;
    }
  }
  return sum;
}

double of_batch(const work::Task& task, const work::Rows& rows) {
  const std::size_t count = rows.first.size();
  std::vector<std::vector<double>> values(task.wanted.size(), std::vector<double>(count));
  const std::vector<steam::Column<double>> columns(values.begin(), values.end());
  std::vector<steam::Reason> reasons(count);
  steam::evaluate(task.pair, rows.first, rows.second, task.wanted, columns, reasons,
                  {.threads = 1});
  return values[0][0];
}

double work_in(const work::Task& task, steam::Region region, int lanes) {
  constexpr std::size_t few = 100, block = 512;
  return lanes == 0 ? of_rows(task, work::rows(task, region, few))
                    : of_batch(task, work::rows(task, region, block));
}

}  // namespace

int main(int count, char** arguments) {
  const int lanes = count > 1 ? std::atoi(arguments[1]) : 0;
  if (lanes > steam::most_lanes()) {
    std::fprintf(stderr, "this processor has no %d rows at once\n", lanes);
    return 2;
  }
  if (lanes > 0) {
    steam::use_lanes(lanes);
  }
  double sum = 0;
  for (const work::Task& task : work::tasks()) {
    for (const auto region :
         {steam::Region::water, steam::Region::steam, steam::Region::wet,
          steam::Region::dense_steam, steam::Region::hot_water, steam::Region::wet_above_350}) {
      if (work::applies(task, region) && task.pair != steam::Pair::hu) {
        sum += work_in(task, region, lanes);
      }
    }
  }
  std::printf("%g\n", sum);
}
