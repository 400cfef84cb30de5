#include "steam/answer.hpp"
#include "steam/equations/domain.hpp"
#include "steam/host_environment.hpp"
#include "steam/misuse.hpp"
#include "steam/refusal.hpp"
#include "steam/search/solve.hpp"

namespace steam {
namespace {

constexpr Needs everything = [] {
  Needs all;
  for (const PropertyRow& row : property_rows) {
    all |= row.needs;
  }
  return all;
}();

Phase phase_of(const Basis& basis, bool wet) {
  const auto of = [&](Property p) { return value_of(row_of(p), basis, wet); };
  return {.p = of(Property::p),
          .t = of(Property::t),
          .v = of(Property::v),
          .h = of(Property::h),
          .s = of(Property::s),
          .u = of(Property::u),
          .density = of(Property::density),
          .cp = of(Property::cp),
          .cv = of(Property::cv),
          .speed_of_sound = of(Property::speed_of_sound),
          .isentropic_exponent = of(Property::isentropic_exponent),
          .viscosity = of(Property::viscosity),
          .conductivity = of(Property::conductivity),
          .prandtl = of(Property::prandtl)};
}

/// All of a state that has a pair.
State full_state(Pair pair, double first, double second, const Site& site, bool several) {
  const bool wet = is_wet(site.region);
  Needs needs = everything;
  needs.viscosity = needs.conductivity = !wet;
  Basis basis;
  complete_for_pair(basis, pair, first, second, site, needs, nothing);
  State state;
  static_cast<Phase&>(state) = phase_of(basis, wet);
  state.region = site.region;
  state.approximate = site.approximate;
  state.several = several;
  if (wet) {
    state.x = basis.x;
    state.surface_tension = value_of(row_of(Property::surface_tension), basis, wet);
    state.saturated_liquid = phase_of(saturated_phase(site, false, everything), false);
    state.saturated_vapour = phase_of(saturated_phase(site, true, everything), false);
  }
  return state;
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
  refuse_unknown(pair);
  const HostEnvironment host;
  const Refusal refused = refusal(pair, first, second);
  if (refused.reason != Reason::none) {
    return Result(refused);
  }
  const Solutions all = solve_all(pair, first, second);
  if (all.sites.empty()) {
    return Result(no_state());
  }
  return Result(full_state(pair, first, second, all.sites[0], all.sites.size() > 1));
}

Results states(Pair pair, double first, double second) {
  refuse_unknown(pair);
  const HostEnvironment host;
  Results results;
  if (in_range(pair, first, second)) {
    const Solutions all = solve_all(pair, first, second);
    for (const Site& site : all.sites) {
      results.add(full_state(pair, first, second, site, all.sites.size() > 1));
    }
  }
  return results;
}

Result saturation_by_pressure(double p, double x) { return state(Pair::px, p, x); }
Result saturation_by_temperature(double t, double x) { return state(Pair::tx, t, x); }

}  // namespace steam
