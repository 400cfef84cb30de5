#include <cstdio>

#include "work.hpp"

// A fixed amount of work of every kind, whose instructions script/instructions counts; without
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

}  // namespace

int main() {
  double sum = 0;
  for (const work::Task& task : work::tasks()) {
    for (const auto region :
         {steam::Region::water, steam::Region::steam, steam::Region::wet,
          steam::Region::dense_steam, steam::Region::hot_water, steam::Region::wet_above_350}) {
      if (work::applies(task, region) && task.pair != steam::Pair::hu) {
        sum += of_rows(task, work::rows(task, region, 100));
      }
    }
  }
  std::printf("%g\n", sum);
}
