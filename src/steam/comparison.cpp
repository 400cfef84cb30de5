#include <algorithm>
#include <array>
#include <cfenv>
#include <cmath>
#include <limits>
#include <string_view>

#include "steam/arguments.hpp"
#include "steam/host_environment.hpp"
#include "steam/property_table.hpp"

// The engine beside the classic module, which the host passes: a program that links the engine does
// not get the module along.

using namespace steam;

namespace {

constexpr std::size_t count = VEK_STEAM_COMPARED;
constexpr std::size_t finder_count = sizeof(vek_steam_module::finders) / sizeof(vek_steam_finder);
constexpr std::size_t capacity = 8;            // states that a pair has at most
using Values = std::array<double, count + 1>;  // of the properties compared, and the region

struct Item {
  const char* item;
  Property property;
  double unit = 1;                 // in the engine's unit
  bool only_in_one_phase = false;  // 0 where the module has no value
};
using P = Property;
constexpr std::array<Item, count> items{{{"P ", P::p},
                                         {"T ", P::t},
                                         {"V ", P::v},
                                         {"H ", P::h},
                                         {"S ", P::s},
                                         {"X ", P::x},
                                         {"CP ", P::cp, 1, true},
                                         {"DV ", P::viscosity, 1, true},
                                         {"TC ", P::conductivity, 1000, true}}};  // kW/(m K)
/// What the module has of every state, and of one phase.
constexpr const char *list = "P T V H S X CP DV TC ", *wet_list = "P T V H S X ";

constexpr auto wanted = [] {
  std::array<int, count + 1> numbers{};
  for (std::size_t i = 0; i < count; ++i) {
    numbers[i] = static_cast<int>(items[i].property);
  }
  numbers[count] = VEK_STEAM_REGION;
  return numbers;
}();

/// The module leaves slots without a value as they are: a slot that still holds this has none.
constexpr double untouched = -std::numeric_limits<double>::max();

/// Where the module places a state. A finder that is called outside a request takes the host's
/// traps as they are, so there are none.
int region_of(vek_steam_finder finder, double first, double second) {
  double tolerance = 1e-8;
  std::fenv_t host;
  std::feholdexcept(&host);
  const int region = finder(&first, &second, &tolerance);
  std::fesetenv(&host);
  return region;
}

/// What the module says, in its own units; runs in the host's floating-point environment.
void ask(const vek_steam_module& module, int pair, double first, double second,
         vek_steam_comparison& to) {
  const vek_steam_finder finder = module.finders[pair];
  to.region = region_of(finder, first, second);
  const bool wet = to.region == VEK_STEAM_WET || to.region == VEK_STEAM_WET_ABOVE_350;
  std::fill_n(to.module, count, untouched);
  module.request(finder, &first, &second, wet ? wet_list : list, to.module);
  to.flag = module.flag();
}

void put_as_the_engine_does(vek_steam_comparison& to) {
  for (std::size_t i = 0; i < count; ++i) {
    double& value = to.module[i];
    const bool none = value == untouched || (items[i].only_in_one_phase && value == 0);
    value = none ? missing : value * items[i].unit;
  }
}

/// The zeros of temperature, enthalpy and entropy are conventions, so a small value is not a share.
double size_of(Property property, double value) {
  const std::string_view unit = row_of(property).unit;
  const double least = unit == "°C" || unit == "kJ/kg"       ? 100
                       : unit == "kJ/(kg K)" || unit.empty() ? 1
                                                             : 0;
  return std::max(std::abs(value), least);
}

/// How far each property is from that of the same phase with given values as far apart as the
/// module's tolerance lets them be.
Values spread(int pair, double first, double second, const double* state) {
  Values widest{}, moved{};
  const auto widen = [&](double a, double b) {
    const int code = vek_steam_values(pair, a, b, wanted.size(), wanted.data(), moved.data());
    for (std::size_t i = 0; code == VEK_STEAM_OK && moved[count] == state[count] && i < count;
         ++i) {
      widest[i] = std::fmax(widest[i], std::abs(moved[i] - state[i]));
    }
  };
  for (const double share : {-2 * VEK_STEAM_MODULE_TOLERANCE, 2 * VEK_STEAM_MODULE_TOLERANCE}) {
    widen(first * (1 + share), second);
    widen(first, second * (1 + share));
  }
  return widest;
}

/// What states of one phase do not have, such as a quality, either may lack.
bool is_lacking(Property property, double module) {
  return std::isnan(module) && property <= Property::s;
}

/// Puts a state beside the module's. @return whether they are the same
bool put_beside(const double* state, const Values& widest, vek_steam_comparison& to) {
  bool same = true;
  to.within_tolerance = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Property property = items[i].property;
    const double difference = std::abs(state[i] - to.module[i]),
                 limit = VEK_STEAM_SAME_TO * size_of(property, state[i]);
    to.engine[i] = state[i];
    to.difference[i] = to.module[i] - state[i];
    to.differs[i] = difference > limit + widest[i] || is_lacking(property, to.module[i]) ? 1 : 0;
    to.within_tolerance |= difference > limit ? 1 : 0;
    same = same && to.differs[i] == 0;
  }
  return same;
}

int check(const vek_steam_module* module, std::size_t module_size, int pair,
          const vek_steam_comparison* comparison, std::size_t comparison_size) {
  const int wrong =
      first_wrong({is_pair(pair) && pair < static_cast<int>(finder_count) ? VEK_STEAM_OK
                                                                          : VEK_STEAM_NO_SUCH_PAIR,
                   check_record(module, module_size), check_record(comparison, comparison_size)});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  return module->request && module->flag && module->finders[pair] ? VEK_STEAM_OK : VEK_STEAM_NULL;
}

/// Puts beside the module's the state of that number or, of number 0, the module's own where it is
/// among them, else the first.
void put_the_engine_beside(int pair, double first, double second, std::size_t number,
                           const double* states, vek_steam_comparison& to) {
  const auto put = [&](std::size_t i) {
    const double* const state = states + i * (count + 1);
    to.number = i + 1;
    return put_beside(state, spread(pair, first, second, state), to);
  };
  for (std::size_t i = 0; number == 0 && i < to.states; ++i) {
    if (put(i)) {
      return;
    }
  }
  if (const std::size_t i = number > 0 ? number - 1 : 0; i < to.states) {
    put(i);
  }
}

}  // namespace

int vek_steam_compare(const vek_steam_module* module, size_t module_size, int pair, double first,
                      double second, size_t number, vek_steam_comparison* comparison,
                      size_t comparison_size) {
  const int wrong = check(module, module_size, pair, comparison, comparison_size);
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  vek_steam_comparison& to = *comparison;
  to = {};
  ask(*module, pair, first, second, to);
  const HostEnvironment host;
  put_as_the_engine_does(to);
  std::fill_n(to.engine, count, missing);
  std::fill_n(to.difference, count, missing);
  std::fill_n(to.differs, count, 1);
  std::array<double, capacity*(count + 1)> states;
  const int code = vek_steam_values_of_states(pair, first, second, wanted.size(), wanted.data(),
                                              states.data(), capacity, &to.states);
  put_the_engine_beside(pair, first, second, number, states.data(), to);
  return code;
}
