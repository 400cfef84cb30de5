#include "pairs.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace command {
namespace {

constexpr std::array pairs{
    Pair{"pt", vekrpt_}, Pair{"px", vekrpx_}, Pair{"tx", vekrtx_}, Pair{"pv", vekrpv_},
    Pair{"ph", vekrph_}, Pair{"ps", vekrps_}, Pair{"pu", vekrpu_}, Pair{"tv", vekrtv_},
    Pair{"th", vekrth_}, Pair{"tu", vekrtu_}, Pair{"ts", vekrts_}, Pair{"sx", vekrsx_},
    Pair{"hs", vekrhs_}, Pair{"us", vekrus_}, Pair{"vh", vekrvh_}, Pair{"vs", vekrvs_},
    Pair{"vu", vekrvu_}, Pair{"vx", vekrvx_},
};

/// A known property by its letter, with the range in which the formulation has states.
struct Known {
  char letter;
  const char* name;
  const char* unit;
  double low, high;
  double slack;  // in which a state reproduces it, beside a thousandth of its value
};
constexpr std::array known_properties{
    Known{'p', "pressure", " bar", 0.006112444, 1000, 0},
    Known{'t', "temperature", " °C", 0.01, 800, 0.1},
    Known{'v', "specific volume", " m³/kg", 0.0009, 1000, 0},
    Known{'h', "enthalpy", " kJ/kg", -1, 5000, 0.3},
    Known{'s', "entropy", " kJ/(kg K)", -0.1, 12, 0.001},
    Known{'u', "internal energy", " kJ/kg", -1, 5000, 0.3},
    Known{'x', "quality", "", 0, 1, 0.001},
};

const Known& known_by(char letter) {
  return *std::find_if(known_properties.begin(), known_properties.end(),
                       [letter](const Known& k) { return k.letter == letter; });
}

std::string check_known(char letter, double value) {
  const Known& k = known_by(letter);
  if (value >= k.low && value <= k.high) {
    return {};
  }
  return fmt::format("{} {} is out of range; accepted is {} to {}{}", k.name, value, k.low, k.high,
                     k.unit);
}

}  // namespace

std::string check_known(const std::string& pair, double first, double second) {
  const std::string wrong = check_known(pair[0], first);
  return wrong.empty() ? check_known(pair[1], second) : wrong;
}

std::string check_reproduced(char letter, double value, double found) {
  const Known& k = known_by(letter);
  if (std::abs(found - value) <= 1e-3 * std::abs(value) + k.slack) {
    return {};
  }
  return fmt::format("the state found has {} {:.6g} instead of {:.6g}{}", k.name, found, value,
                     k.unit);
}

const Pair& pair_named(const std::string& name) {
  return *std::find_if(pairs.begin(), pairs.end(), [&](const Pair& p) { return p.name == name; });
}

std::vector<std::string> pair_names() {
  std::vector<std::string> names;
  names.reserve(pairs.size());
  for (const Pair& p : pairs) {
    names.emplace_back(p.name);
  }
  return names;
}

}  // namespace command
