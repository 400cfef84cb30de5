#include <cstdio>

#include "work.hpp"

// A fixed amount of work of every kind, whose instructions script/instructions counts.

int main() {
  double sum = 0;
  std::array<double, 8> out{};
  for (const work::Task& task : work::tasks()) {
    for (const auto region :
         {steam::Region::water, steam::Region::steam, steam::Region::wet,
          steam::Region::dense_steam, steam::Region::hot_water, steam::Region::wet_above_350}) {
      if (!work::applies(task, region)) {
        continue;
      }
      const work::Rows rows = work::rows(task, region, 100);
      for (int repeat = 0; repeat < 4; ++repeat) {
        for (std::size_t i = 0; i < rows.first.size(); ++i) {
          steam::values(task.pair, rows.first[i], rows.second[i], task.wanted, out);
          sum += out[0];
        }
      }
    }
  }
  std::printf("%g\n", sum);
}
