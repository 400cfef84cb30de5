#include "differences.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "comparison/classic_answer.hpp"

namespace command {
namespace {

using ::comparison::classic_properties;
using steam::Property;

/// The zeros of temperature, enthalpy and entropy are conventions, so a small value is not a share.
double size_of(Property property, double value) {
  const std::string_view unit = steam::info(property).unit;
  const double least = unit == "°C" || unit == "kJ/kg"       ? 100
                       : unit == "kJ/(kg K)" || unit.empty() ? 1
                                                             : 0;
  return std::max(std::abs(value), least);
}

/// How far each property is from that of the same phase with given values as far apart as the
/// module's tolerance lets them be.
std::vector<double> spread(const steam::State& state, const Given& given,
                           const std::vector<double>& values) {
  const std::vector<Property> all = classic_properties();
  std::vector<double> widest(values.size());
  for (const double share : {-2 * module_tolerance, 2 * module_tolerance}) {
    for (const Given& beside : {Given{given.pair, given.first * (1 + share), given.second},
                                Given{given.pair, given.first, given.second * (1 + share)}}) {
      const steam::Result moved = steam::state(beside.pair, beside.first, beside.second);
      if (!moved || moved->region != state.region) {
        continue;
      }
      const std::vector<double> others = values_of_states(beside, Side::whole, all).front();
      for (std::size_t i = 0; i < values.size(); ++i) {
        widest[i] = std::fmax(widest[i], std::abs(others[i] - values[i]));
      }
    }
  }
  return widest;
}

/// What states of one phase do not have, such as a quality, either may lack.
bool is_lacking(Property property, double module) {
  return std::isnan(module) && property <= Property::s;
}

/// @param values  of the state, as the engine gives them
EngineAnswer beside(const steam::State& state, const Given& given,
                    const std::vector<double>& values, const std::vector<double>& module) {
  const std::vector<Property> all = classic_properties();
  EngineAnswer answer{values};
  const std::vector<double> widest = spread(state, given, answer.values);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const double engine = answer.values[i], difference = std::abs(engine - module[i]),
                 same = same_to * size_of(all[i], engine);
    answer.differs.push_back(difference > same + widest[i] || is_lacking(all[i], module[i]));
    answer.within_tolerance = answer.within_tolerance || difference > same;
  }
  return answer;
}

}  // namespace

EngineAnswer engine_beside(const Given& given, const std::vector<double>& module) {
  EngineAnswer chosen{std::vector<double>(module.size(), steam::missing),
                      std::vector<bool>(module.size(), true)};
  const steam::Results states = steam::states(given.pair, given.first, given.second);
  const auto values = values_of_states(given, Side::whole, classic_properties());
  for (std::size_t i = 0; i < states.size(); ++i) {
    EngineAnswer answer = beside(states[i], given, values[i], module);
    answer.number = i + 1;
    answer.of = states.size();
    const bool same =
        std::none_of(answer.differs.begin(), answer.differs.end(), [](bool d) { return d; });
    if (same) {
      return answer;
    }
    chosen = i == 0 ? answer : chosen;
  }
  return chosen;
}

}  // namespace command
