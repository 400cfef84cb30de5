#include <algorithm>
#include <cstdio>
#include <vector>

#include "steam/equations/slopes.hpp"
#include "work.hpp"

// How often the engine evaluates the equations for one state, as a Markdown table: the median and
// the mean over random states. Linked with the engine compiled so that its calls can be counted.

namespace {

long count = 0;

bool is_core(void* function) {
  static void* const core[]{reinterpret_cast<void*>(&formulation::terms1<steam::Math>),
                            reinterpret_cast<void*>(&formulation::moments2<steam::Math>),
                            reinterpret_cast<void*>(&formulation::derivatives3<steam::Math>)};
  return std::find(std::begin(core), std::end(core), function) != std::end(core);
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler calls these
extern "C" void __cyg_profile_func_enter(void* function, void*) { count += is_core(function); }
extern "C" void __cyg_profile_func_exit(void*, void*) {}
// NOLINTEND(bugprone-reserved-identifier)

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
    const long before = count;
    for (std::size_t i = 0; i < rows; ++i) {
      const long start = count;
      steam::values(task.pair, table.first[i], table.second[i], task.wanted, out);
      counts.push_back(count - start);
    }
    std::nth_element(counts.begin(), counts.begin() + rows / 2, counts.end());
    std::printf(" %ld (%.1f) |", counts[rows / 2], static_cast<double>(count - before) / rows);
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
