#include "steam/domain.hpp"
#include "steam/locate.hpp"
#include "steam/properties.hpp"
#include "steam/refusal.hpp"
#include "steam/saturated.hpp"

namespace steam {
namespace {

constexpr Wanted phase_wanted{Property::v,
                              Property::h,
                              Property::s,
                              Property::u,
                              Property::cp,
                              Property::cv,
                              Property::density,
                              Property::speed_of_sound,
                              Property::isentropic_exponent,
                              Property::viscosity,
                              Property::conductivity,
                              Property::prandtl};
constexpr Wanted wet_wanted{Property::v, Property::h,       Property::s,
                            Property::u, Property::density, Property::surface_tension};

Phase phase_at(const Site& site) {
  Values values;
  values.fill(missing);
  properties(site, phase_wanted, values);
  return phase_of(values);
}

State full_state(const Site& site) {
  State state;
  state.region = site.region;
  state.approximate = site.approximate;
  if (!is_wet(site.region)) {
    static_cast<Phase&>(state) = phase_at(site);
    return state;
  }
  Values values;
  values.fill(missing);
  properties(site, wet_wanted, values);
  static_cast<Phase&>(state) = phase_of(values);
  state.x = site.x;
  state.surface_tension = values[static_cast<std::size_t>(Property::surface_tension)];
  state.saturated_liquid = phase_at(saturated_liquid(site));
  state.saturated_vapour = phase_at(saturated_vapour(site));
  return state;
}

/// Whether several states may have the pair: not in steam, and only for some pairs.
bool may_be_several(Pair pair, const Site& site) {
  switch (pair) {
    case Pair::pv:
    case Pair::th:
    case Pair::tu:
    case Pair::ts:
    case Pair::sx:
    case Pair::vx:
      return site.region != Region::steam;
    default:
      return false;
  }
}

}  // namespace

const char* State::phase() const {
  switch (region) {
    case Region::water:
    case Region::hot_water:
      return "water";
    case Region::steam:
      return t > t_critical && p > p_critical ? "supercritical fluid" : "steam";
    case Region::dense_steam:
      return t < t_critical ? "steam" : p > p_critical ? "supercritical fluid" : "steam";
    case Region::wet:
    case Region::wet_above_350:
      return "wet steam";
    case Region::none:
      break;
  }
  return "none";
}

Result state(Pair pair, double first, double second) {
  const Refusal refused = refusal(pair, first, second);
  if (refused.reason != Reason::none) {
    return Result(refused);
  }
  const Site site = with_quality(locate(pair, first, second));
  if (!site) {
    return Result(no_state());
  }
  State result = full_state(site);
  result.several = may_be_several(pair, site) && locate_all(pair, first, second).count > 1;
  return Result(result);
}

Results states(Pair pair, double first, double second) {
  Results results;
  if (refusal(pair, first, second).reason != Reason::none) {
    return results;
  }
  const Solutions all = locate_all(pair, first, second);
  for (std::size_t i = 0; i < all.count; ++i) {
    State state = full_state(all.sites[i]);
    state.several = all.count > 1;
    results.add(state);
  }
  return results;
}

Result saturation_by_pressure(double p, double x) { return state(Pair::px, p, x); }
Result saturation_by_temperature(double t, double x) { return state(Pair::tx, t, x); }

}  // namespace steam
