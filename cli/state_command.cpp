#include "state_command.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <limits>
#include <map>
#include <vector>

#include "classic/frame/diagnostics.hpp"
#include "classic/regions/region.hpp"
#include "pairs.hpp"

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

/// The diagnostic lines of the module go to standard error while this lives.
class ShownDiagnostics {
 public:
  ShownDiagnostics() { stream().rdbuf(std::cerr.rdbuf()); }
  ShownDiagnostics(const ShownDiagnostics&) = delete;
  ShownDiagnostics& operator=(const ShownDiagnostics&) = delete;
  ~ShownDiagnostics() { stream().rdbuf(nullptr); }

 private:
  static std::ios& stream() { return static_cast<std::ios&>(classic::ErrorStream); }
};

/// Values of the items, from a request of their own.
std::vector<double> silently(const StateOptions& options, const Items& items) {
  std::vector<double> values(items.size(), untouched);
  const std::string list = fmt::format("{} ", fmt::join(items, ","));
  vek(pair_named(options.pair).finder, &options.first, &options.second, list.c_str(),
      values.data());
  return values;
}

std::vector<double> request(const StateOptions& options, const Items& items) {
  const ShownDiagnostics shown;
  return silently(options, items);
}

void print_line(const std::string& item, const char* name, const std::string& value,
                const char* unit) {
  fmt::print("{:<3} {:<23} {}{}{}\n", item, name, value, *unit != 0 ? " " : "", unit);
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
/// @param values  of all items
void print_derived(const std::vector<double>& values) {
  const double p = values[0];
  const double v = values[2];
  const double h = values[3];
  print_value("", "internal energy", h - 100 * p * v, "kJ/kg");
  print_value("", "density", 1 / v, "kg/m³");
}

/// Some finders misplace states without a sign: says so when the state does not have the known
/// pair.
bool reproduces(const StateOptions& options) {
  const auto v = silently(options, {"P", "T", "V", "H", "S", "X"});
  const std::map<char, double> found{{'p', v[0]}, {'t', v[1]}, {'v', v[2]},
                                     {'h', v[3]}, {'s', v[4]}, {'u', v[3] - 100 * v[0] * v[2]},
                                     {'x', v[5]}};
  bool all = true;
  for (const auto& [letter, value] :
       {std::pair{options.pair[0], options.first}, std::pair{options.pair[1], options.second}}) {
    const std::string wrong = check_reproduced(letter, value, found.at(letter));
    if (!wrong.empty()) {
      fmt::print(stderr, "vek: {}\n", wrong);
      all = false;
    }
  }
  return all;
}

bool is_wet(int region) { return region == classic::wet || region == classic::wet_above_350; }

/// On the saturation line a pressure and a temperature leave the quality open.
void note_saturation(const StateOptions& options, int region) {
  if (options.pair == "pt" && is_wet(region)) {
    fmt::print(stderr,
               "vek: {} bar and {} °C lie on the saturation line, where the module takes the "
               "pressure for the quality; give the quality with px or tx\n",
               options.first, options.second);
  }
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
  const Items items = options.list.empty() ? all_items() : split(options.list);
  const std::vector<double> values = request(options, items);
  const int flag = VEKHasError();
  const int region = region_of(options);
  if (region == classic::refused) {
    fmt::print(stderr, "vek: {} {} {}: no state can be placed\n", options.pair, options.first,
               options.second);
    return 1;
  }
  note_saturation(options, region);
  const bool complete = print_items(items, values);
  if (options.list.empty()) {
    print_derived(values);
    print_line("", "region", fmt::format("{:>18}", region), in_words(region));
  }
  if (flag != 0) {
    fmt::print(stderr, "vek: error flag {}: {}\n", flag, flag_in_words(flag));
  }
  return reproduces(options) && flag == 0 && complete ? 0 : 1;
}

}  // namespace command
