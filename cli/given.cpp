#include "given.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "failure.hpp"

namespace command {
namespace {

using steam::Phase;
using steam::Property;

/// What a state knows without being asked again.
struct Recorded {
  Property property;
  double Phase::*value;
};
constexpr std::array in_records{
    Recorded{Property::p, &Phase::p},
    Recorded{Property::t, &Phase::t},
    Recorded{Property::v, &Phase::v},
    Recorded{Property::h, &Phase::h},
    Recorded{Property::s, &Phase::s},
    Recorded{Property::u, &Phase::u},
    Recorded{Property::density, &Phase::density},
    Recorded{Property::cp, &Phase::cp},
    Recorded{Property::cv, &Phase::cv},
    Recorded{Property::speed_of_sound, &Phase::speed_of_sound},
    Recorded{Property::isentropic_exponent, &Phase::isentropic_exponent},
    Recorded{Property::viscosity, &Phase::viscosity},
    Recorded{Property::conductivity, &Phase::conductivity},
    Recorded{Property::prandtl, &Phase::prandtl}};

bool is_first(const steam::State& state, const Given& given) {
  const steam::Result first = steam::state(given.pair, given.first, given.second);
  return first && first->t == state.t && first->p == state.p && first->v == state.v;
}

/// The pair that names one state for itself: the one that its equations take.
Given location(const steam::State& state) {
  if (!std::isnan(state.x)) {
    return {steam::Pair::tx, state.t, state.x};
  }
  const bool by_volume =
      state.region == steam::Region::dense_steam || state.region == steam::Region::hot_water;
  return by_volume ? Given{steam::Pair::tv, state.t, state.v}
                   : Given{steam::Pair::pt, state.p, state.t};
}

std::optional<double> recorded(const steam::Phase& phase, Property property) {
  const auto* const found = std::find_if(in_records.begin(), in_records.end(),
                                         [&](const auto& row) { return row.property == property; });
  return found == in_records.end() ? std::nullopt : std::optional(phase.*(found->value));
}

/// A property of a phase as one of the whole state.
Property asked_for(Side side, Property property) {
  return side == Side::liquid   ? steam::of_liquid(property)
         : side == Side::vapour ? steam::of_vapour(property)
                                : property;
}

}  // namespace

std::vector<steam::Pair> all_pairs() {
  std::vector<steam::Pair> pairs;
  pairs.reserve(steam::pair_count);
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    pairs.push_back(static_cast<steam::Pair>(i));
  }
  return pairs;
}

steam::State state_or_failure(const Given& given, const Units& units) {
  const steam::Result result = steam::state(given.pair, given.first, given.second);
  if (!result) {
    throw Failure(no_answer, text(result.refusal(), units));
  }
  return *result;
}

std::vector<double> values_of(const steam::State& state, Side side, const Given& given,
                              const std::vector<Property>& wanted) {
  std::vector<Property> asked;
  asked.reserve(wanted.size());
  for (const Property property : wanted) {
    asked.push_back(asked_for(side, property));
  }
  const Given from = is_first(state, given) ? given : location(state);
  std::vector<double> values(wanted.size());
  steam::values(from.pair, from.first, from.second, asked, values);
  const steam::Phase& phase = side == Side::liquid   ? state.saturated_liquid
                              : side == Side::vapour ? state.saturated_vapour
                                                     : state;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    values[i] = recorded(phase, wanted[i]).value_or(values[i]);
  }
  return values;
}

}  // namespace command
