#include "steam/basis_of.hpp"

#include "steam/completion.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/wet_search.hpp"

namespace steam {
namespace {

void one_phase(const Site& site, const Parts& wanted, const Parts& has, Basis& out) {
  with_equation(site.region, [&]<class Equation>() {
    completion::one_phase<Equation>(site.at, variables(site), wanted, has, out);
  });
}

Site phase_of(const Site& wet, bool vapour) {
  if (wet.region == Region::wet) {
    return at_pressure(vapour ? Region::steam : Region::water, wet.p, wet.t);
  }
  const SaturatedVolumes v = saturated_volumes(wet.t, wet.p);
  return vapour ? at_volume(Region::dense_steam, wet.p, v.vapour, wet.t)
                : at_volume(Region::hot_water, wet.p, v.liquid, wet.t);
}

completion::Phases<double> phases_of(const Site& wet, const Parts& wanted) {
  if (wet.region == Region::wet) {
    return completion::low_phases(wet.p, wet.t, wanted);
  }
  const SaturatedVolumes v = saturated_volumes(wet.t, wet.p);
  return {completion::phase<Dense>(Variables{v.liquid, wet.t}, wanted),
          completion::phase<Dense>(Variables{v.vapour, wet.t}, wanted)};
}

/// At a quality of 0 or 1 what the only phase has.
[[gnu::noinline]] void add_one_phase(const Site& site, const Needs& needs, Basis& out) {
  take_one_phase(out, saturated_phase(site, out.x == 1, needs));
}

/// What changes along the saturation line, and so along an isentrope of both phases.
[[gnu::noinline]] void add_equilibrium(const Site& site, Basis& out) {
  const SaturationPressure line{site.p, sloped_saturation_pressure(site.t).over_t};
  const Ends h = saturated_ends(Quantity::h, site.t, site.p);
  const auto [s, v] = sloped_saturated_ends(Quantity::s, Quantity::v, site.t, line);
  out.heat_of_evaporation = h.vapour - h.liquid;
  out.wet_v_over_p_s = wet::slopes(s, v, out.x).excess / line.over_t;
}

}  // namespace

void complete(Basis& basis, const Site& site, const Needs& needs, const Parts& has) {
  completion::take_place(basis, site);
  if (is_wet(site.region)) {
    completion::mixture(site, needs, basis,
                        [&site](const Parts& wanted) { return phases_of(site, wanted); });
    if (needs.saturation) {
      add_equilibrium(site, basis);
    }
    if ((basis.x == 0 || basis.x == 1) && completion::wants_one_phase(needs)) {
      add_one_phase(site, needs, basis);
    }
    return;
  }
  one_phase(site, needs.parts, has, basis);
}

void take_one_phase(Basis& basis, const Basis& phase) {
  basis.cp = phase.cp;
  basis.cv = phase.cv;
  basis.v_over_p_s = phase.v_over_p_s;
  basis.p_over_v = phase.p_over_v;
  basis.p_over_t = phase.p_over_t;
  basis.viscosity = phase.viscosity;
  basis.conductivity = phase.conductivity;
}

Basis saturated_phase(const Site& wet, bool vapour, const Needs& needs) {
  Basis basis;
  const Site site = phase_of(wet, vapour);
  complete(basis, site, needs, nothing);
  basis.x = vapour ? 1 : 0;
  basis.u = basis.h - kj_per_bar_m3 * basis.p * basis.v;
  completion::transport(basis, needs);
  return basis;
}

}  // namespace steam
