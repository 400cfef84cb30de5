// Writes the data files of src/steam/tables, from which the engine's iterations start and its
// region decisions begin. They are fitted to the equations of the formulation and to nothing else.
//   write_tables DIRECTORY           writes them
//   write_tables --check DIRECTORY   compares them with those that are there

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string_view>

#include "charts.hpp"
#include "in_parallel.hpp"
#include "saturated_states.hpp"
#include "saturation_line.hpp"

namespace {

Samples all_samples() {
  using steam::Region;
  constexpr std::array regions{Region::dense_steam, Region::hot_water, Region::wet_above_350,
                               Region::water,       Region::steam,     Region::wet};
  constexpr int points = 420;  // along each variable
  std::array<std::vector<Sample>, regions.size()> samples;
  in_parallel(regions.size(), [&](std::size_t i) { samples[i] = samples_of(regions[i], points); });
  Samples by_region;
  for (std::size_t i = 0; i < regions.size(); ++i) {
    by_region[regions[i]] = std::move(samples[i]);
  }
  return by_region;
}

constexpr std::size_t table_count = steam::chart_layouts.size() + 2;

TableFile table(std::size_t number, const Samples& samples) {
  const auto& layouts = steam::chart_layouts;
  return number < layouts.size()    ? chart_file(layouts[number], samples)
         : number == layouts.size() ? saturated_states_file()
                                    : saturation_line_file();
}

std::vector<TableFile> all_tables() {
  const Samples samples = all_samples();
  std::vector<TableFile> tables(table_count);
  in_parallel(table_count, [&](std::size_t i) { tables[i] = table(i, samples); });
  return tables;
}

std::string path_of(const std::string& directory, const TableFile& table) {
  return directory + '/' + table.name + ".bin";
}

bool is_written(const std::string& directory, const TableFile& table) {
  std::ofstream file(path_of(directory, table), std::ios::binary);
  file << table.bytes;
  return static_cast<bool>(file.flush());
}

/// The largest difference in a group, as a share of its largest number.
double difference(const Groups& a, const Groups& b) {
  double most = 0;
  for (std::size_t n = 0; n < a.size(); ++n) {
    for (std::size_t i = 0; i < a[n].values.size(); ++i) {
      const double share = std::abs(a[n].values[i] - b[n].values[i]) / a[n].largest;
      most = std::isnan(share) ? HUGE_VAL : std::fmax(most, share);
    }
  }
  return most;
}

bool holds(const std::string& directory, const TableFile& table) {
  std::ifstream file(path_of(directory, table), std::ios::binary);
  const std::string there(std::istreambuf_iterator<char>(file), {});
  if (there == table.bytes) {
    return true;
  }
  if (there.size() != table.bytes.size() ||
      there.compare(0, table.exact, table.bytes, 0, table.exact) != 0) {
    std::fprintf(stderr, "%s: other cells or regions\n", table.name.c_str());
    return false;
  }
  const double apart = difference(table.groups(table.bytes), table.groups(there));
  std::fprintf(stderr, "%s: differs by %.1e, of %.0e allowed\n", table.name.c_str(), apart,
               table.tolerance);
  return apart <= table.tolerance;
}

}  // namespace

int main(int count, char** arguments) {
  const bool check = count == 3 && std::string_view(arguments[1]) == "--check";
  if (count != 2 && !check) {
    std::fprintf(stderr, "usage: write_tables [--check] DIRECTORY\n");
    return 2;
  }
  bool good = true;
  for (const TableFile& table : all_tables()) {
    good = (check ? holds : is_written)(arguments[count - 1], table) && good;
  }
  return good ? 0 : 1;
}
