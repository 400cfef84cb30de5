#include <algorithm>
#include <cstdio>
#include <vector>

#include "evaluations.hpp"
#include "work.hpp"

// How often the engine evaluates the equations for one state, as a Markdown table: the median and
// the mean over random states.

namespace {

using steam::Region;

constexpr Region order[]{Region::water,       Region::steam,     Region::wet,
                         Region::dense_steam, Region::hot_water, Region::wet_above_350};

void print(const work::Task& task) {
  std::printf("| %s |", task.name);
  for (const Region region : order) {
    if (!work::applies(task, region)) {
      std::printf(" |");
      continue;
    }
    constexpr std::size_t rows = 3000;
    const work::Rows table = work::rows(task, region, rows);
    std::vector<long> counts;
    std::array<double, 8> out{};
    const long before = evaluations::count();
    for (std::size_t i = 0; i < rows; ++i) {
      const long start = evaluations::count();
      steam::values(task.pair, table.first[i], table.second[i], task.wanted, out);
      counts.push_back(evaluations::count() - start);
    }
    std::nth_element(counts.begin(), counts.begin() + rows / 2, counts.end());
    std::printf(" %ld (%.1f) |", counts[rows / 2],
                static_cast<double>(evaluations::count() - before) / rows);
  }
  std::printf("\n");
}

}  // namespace

int main() {
  std::printf("| request | 1 | 2 | wet | 3 | 4 | wet above 350 |\n|---|---|---|---|---|---|---|\n");
  for (const work::Task& task : work::tasks()) {
    print(task);
  }
}
