#include <algorithm>
#include <chrono>
#include <cstdio>
#include <span>
#include <string_view>

#include "unit_costs.hpp"
#include "work.hpp"

// The table of docs/performance.md: time per state, one state at a time, in units of one
// std::pow(x, -5/17) of the same run. States are timed in small groups, each many times; the least
// time of a group is free of what else the machine does, and the median of the groups is the
// result. With arguments, such as ph_t ph_tsv, only those requests.

namespace {

using Clock = std::chrono::steady_clock;
using steam::Region;

constexpr Region order[]{Region::water,       Region::steam,     Region::wet,
                         Region::dense_steam, Region::hot_water, Region::wet_above_350};
constexpr std::size_t group = 32, groups = 100;

volatile double sink;

double seconds_for(const work::Task& task, const work::Rows& rows, std::size_t begin) {
  std::array<double, 8> out{};
  const auto start = Clock::now();
  for (std::size_t i = begin; i < begin + group; ++i) {
    steam::values(task.pair, rows.first[i], rows.second[i], task.wanted, out);
    sink = out[0];
  }
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double nanoseconds(const work::Task& task, Region region) {
  const work::Rows rows = work::rows(task, region, group * groups);
  std::array<double, groups> least{};
  least.fill(1);
  constexpr int passes = 25;
  for (int pass = 0; pass < passes; ++pass) {
    for (std::size_t g = 0; g < groups; ++g) {
      least[g] = std::min(least[g], seconds_for(task, rows, g * group));
    }
  }
  std::nth_element(least.begin(), least.begin() + groups / 2, least.end());
  return least[groups / 2] * 1e9 / group;
}

}  // namespace

int main(int count, char** arguments) {
  const std::span chosen(arguments + 1, static_cast<std::size_t>(count - 1));
  const UnitCosts unit = unit_costs();
  std::printf(
      "pow %.1f ns, exp %.1f ns; enthalpy from the equation of subregion 1 %.1f ns, 2 %.1f ns, "
      "3 %.1f ns\n\n| request | 1 | 2 | wet | 3 | 4 | wet above 350 "
      "|\n|---|---|---|---|---|---|---|\n",
      unit.pow, unit.exp, unit.water, unit.steam, unit.dense);
  for (const work::Task& task : work::tasks()) {
    if (!chosen.empty() &&
        std::find(chosen.begin(), chosen.end(), std::string_view(task.name)) == chosen.end()) {
      continue;
    }
    std::printf("| %s |", task.name);
    for (const Region region : order) {
      if (work::applies(task, region)) {
        std::printf(" %.1f |", nanoseconds(task, region) / unit.pow);
      } else {
        std::printf(" |");
      }
    }
    std::printf("\n");
  }
}
