#include "state_command.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <vector>

#include "pairs.hpp"
#include "regions/region.hpp"

namespace command {
namespace {

struct Quantity {
  const char* item;
  const char* name;
  const char* unit;
  bool refused_when_wet = false;
};
constexpr std::array<Quantity, 9> quantities{{
    {"P", "pressure", "bar"},
    {"T", "temperature", "°C"},
    {"V", "specific volume", "m³/kg"},
    {"H", "enthalpy", "kJ/kg"},
    {"S", "entropy", "kJ/(kg K)"},
    {"X", "quality", ""},
    {"CP", "isobaric heat capacity", "kJ/(kg K)", true},
    {"DV", "dynamic viscosity", "Pa·s", true},
    {"TC", "thermal conductivity", "kW/(m K)", true},
}};

using Items = std::vector<std::string>;

Items all_items() {
  Items items;
  items.reserve(quantities.size());
  for (const Quantity& q : quantities) {
    items.emplace_back(q.item);
  }
  return items;
}

Items split(const std::string& list) {
  Items items(1);
  for (const char c : list) {
    if (c == ',' || c == '.' || c == ' ') {
      items.emplace_back();
    } else {
      items.back() += c;
    }
  }
  if (items.back().empty()) {
    items.pop_back();  // a closing separator ends the list
  }
  return items;
}

const Quantity* quantity_of(const std::string& item) {
  const auto found = std::find_if(quantities.begin(), quantities.end(),
                                  [&](const Quantity& q) { return q.item == item; });
  return found == quantities.end() ? nullptr : &*found;
}

const char* in_words(int region) {
  switch (region) {
    case classic::water:
      return "water (subregion 1)";
    case classic::steam:
      return "steam (subregion 2)";
    case classic::steam_side_3:
      return "near-critical or supercritical steam (subregion 3)";
    case classic::water_side_3:
      return "near-critical water (subregion 3)";
    case classic::wet_above_350:
      return "wet steam above 350 °C (subregion 3)";
    case classic::wet:
      return "wet steam (subregions 1 and 2)";
    default:
      return "no state can be placed";
  }
}

const char* flag_in_words(int flag) {
  return flag == 1 ? "a floating-point fault, or a function argument out of its domain"
                   : "a diagnostic was written";
}

/// The module leaves slots without a value as they are: a slot that still holds this has none.
constexpr double untouched = -std::numeric_limits<double>::max();

/// Where the module refuses a heat capacity, viscosity or conductivity it gives 0.
bool has_value(const Quantity& q, double value) {
  const bool refused = value == 0 && q.refused_when_wet;
  return value != untouched && !refused;
}

int region_of(const StateOptions& options) {
  double a = options.first;
  double b = options.second;
  double tolerance = 1e-8;
  return pair_named(options.pair).finder(&a, &b, &tolerance);
}

std::vector<double> request(const StateOptions& options, const Items& items) {
  std::vector<double> values(items.size(), untouched);
  const std::string list = fmt::format("{} ", fmt::join(items, ","));
  vek(pair_named(options.pair).finder, &options.first, &options.second, list.c_str(),
      values.data());
  return values;
}

void print_line(const std::string& item, const char* name, const std::string& value,
                const char* unit) {
  fmt::print("{:<3} {:<23} {} {}\n", item, name, value, unit);
}

void print_value(const std::string& item, const char* name, double value, const char* unit) {
  print_line(item, name, fmt::format("{:>18.10g}", value), unit);
}

/// Prints each item; says on standard error which have no value.
/// @return whether all have one
bool print_items(const Items& items, const std::vector<double>& values) {
  bool complete = true;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Quantity& q = *quantity_of(items[i]);
    if (!has_value(q, values[i])) {
      print_line(q.item, q.name, fmt::format("{:>18}", "-"), "");
      fmt::print(stderr, "vek: {} ({}) has no value in this region\n", q.item, q.name);
      complete = false;
    } else {
      print_value(q.item, q.name, values[i], q.unit);
    }
  }
  return complete;
}

/// What the module has no list item for.
void print_derived(const StateOptions& options) {
  const std::vector<double> pvh = request(options, {"P", "V", "H"});
  print_value("", "internal energy", pvh[2] - 100 * pvh[0] * pvh[1], "kJ/kg");
  print_value("", "density", 1 / pvh[1], "kg/m³");
}

}  // namespace

std::string check_list(const std::string& list) {
  for (const std::string& item : split(list)) {
    if (quantity_of(item) == nullptr) {
      return fmt::format(
          "'{}' is not a property; accepted are {}, separated by commas, points or "
          "blanks",
          item, fmt::join(all_items(), ", "));
    }
  }
  return {};
}

int show_state(const StateOptions& options) {
  const int region = region_of(options);
  const Items items = options.list.empty() ? all_items() : split(options.list);
  const std::vector<double> values = request(options, items);
  const int flag = VEKHasError();
  if (region == classic::refused) {
    fmt::print(stderr, "vek: {} {} {}: no state can be placed\n", options.pair, options.first,
               options.second);
    return 1;
  }
  const bool complete = print_items(items, values);
  if (options.list.empty()) {
    print_derived(options);
    print_line("", "region", fmt::format("{:>18}", region), in_words(region));
  }
  if (flag != 0) {
    fmt::print(stderr, "vek: error flag {}: {}\n", flag, flag_in_words(flag));
  }
  return flag == 0 && complete ? 0 : 1;
}

}  // namespace command
