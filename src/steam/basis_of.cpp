#include "steam/basis_of.hpp"

#include "formulation/transport.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/wet_search.hpp"

namespace steam {
namespace {

/// All parts of a set at the point where the equation was evaluated last, and those that follow
/// no straight line at the state itself.
template <class Equation, Parts parts>
[[gnu::noinline]] void evaluate(const Site& site, Basis& out) {
  const Variables end = variables(site), at = site.at;
  const auto terms = Equation::terms(at.z, at.t);
  if (at.z == end.z && at.t == end.t) {
    evaluate_first<Equation, parts, Moves{}>(terms, at, {0, 0}, out);
    evaluate_second<Equation, parts>(terms, at, out);
    return;
  }
  evaluate_first<Equation, parts, Moves{.z = true, .t = true}>(terms, at,
                                                               {end.z - at.z, end.t - at.t}, out);
  if constexpr (parts.cp) {
    evaluate_second<Equation, parts>(Equation::terms(end.z, end.t), end, out);
  }
}

template <class Equation, Parts parts>
void evaluate_at_end(const Site& site, Basis& out) {
  const Variables end = variables(site);
  evaluate_second<Equation, parts>(Equation::terms(end.z, end.t), end, out);
}

/// An evaluation takes the first of some sets of parts that holds all that is wanted.
template <class Equation>
void one_phase(const Site& site, const Parts& wanted, const Parts& has, Basis& out) {
  if (Parts{wanted.v, wanted.h, wanted.s}.within(has)) {
    if (wanted.slopes) {
      evaluate_at_end<Equation, all_parts>(site, out);
    } else if (wanted.cp) {
      evaluate_at_end<Equation, all_but_slopes>(site, out);
    }
  } else if (wanted.within(only_h)) {
    evaluate<Equation, only_h>(site, out);
  } else if (wanted.within(only_v)) {
    evaluate<Equation, only_v>(site, out);
  } else if (wanted.within(first_order)) {
    evaluate<Equation, first_order>(site, out);
  } else if (wanted.within(all_but_slopes)) {
    evaluate<Equation, all_but_slopes>(site, out);
  } else {
    evaluate<Equation, all_parts>(site, out);
  }
}

void one_phase(const Site& site, const Parts& wanted, const Parts& has, Basis& out) {
  with_equation(site.region,
                [&]<class Equation>() { one_phase<Equation>(site, wanted, has, out); });
}

Site phase_of(const Site& wet, bool vapour) {
  if (wet.region == Region::wet) {
    return at_pressure(vapour ? Region::steam : Region::water, wet.p, wet.t);
  }
  const SaturatedVolumes v = saturated_volumes(wet.t, wet.p);
  return vapour ? at_volume(Region::dense_steam, wet.p, v.vapour, wet.t)
                : at_volume(Region::hot_water, wet.p, v.liquid, wet.t);
}

/// The two phases of a wet state.
struct Phases {
  Basis liquid, vapour;
};

Phases phases_of(const Site& wet, const Parts& wanted) {
  Phases phases;
  if (wet.region == Region::wet) {
    one_phase<Water>(phase_of(wet, false), wanted, nothing, phases.liquid);
    one_phase<Steam>(phase_of(wet, true), wanted, nothing, phases.vapour);
    return phases;
  }
  const SaturatedVolumes v = saturated_volumes(wet.t, wet.p);
  one_phase<Dense>(at_volume(Region::hot_water, wet.p, v.liquid, wet.t), wanted, nothing,
                   phases.liquid);
  one_phase<Dense>(at_volume(Region::dense_steam, wet.p, v.vapour, wet.t), wanted, nothing,
                   phases.vapour);
  return phases;
}

constexpr Parts parts_of(Quantity q) {
  return {.v = q == Quantity::v || q == Quantity::u,
          .h = q == Quantity::h || q == Quantity::u,
          .s = q == Quantity::s};
}

/// A quantity of a phase at a pressure.
double quantity_of(const Basis& phase, Quantity q, double p) {
  switch (q) {
    case Quantity::v:
      return phase.v;
    case Quantity::h:
      return phase.h;
    case Quantity::s:
      return phase.s;
    default:
      return phase.h - kj_per_bar_m3 * p * phase.v;
  }
}

/// Whether something is wanted that wet states have only where they are of one phase.
constexpr bool wants_one_phase(const Needs& needs) {
  return needs.parts.cp || needs.parts.slopes || needs.viscosity || needs.conductivity;
}

/// Quality and mixed quantities.
void mixture(const Site& site, const Needs& needs, Basis& out) {
  Parts wanted{.v = needs.parts.v, .h = needs.parts.h, .s = needs.parts.s};
  const bool is_open = site.given != Quantity::x;
  const bool wants_quality = needs.quality || wants_one_phase(needs);
  if (wanted.within(nothing) && !(wants_quality && is_open)) {
    out.x = site.x;
    return;
  }
  const Parts for_quality = parts_of(site.given);
  wanted = {wanted.v || for_quality.v, wanted.h || for_quality.h, wanted.s || for_quality.s};
  const auto [liquid, vapour] = phases_of(site, wanted);
  const Ends given{quantity_of(liquid, site.given, site.p),
                   quantity_of(vapour, site.given, site.p)};
  const double x = is_open ? given.quality(site.value) : site.x;
  out.x = x;
  out.v = Ends{liquid.v, vapour.v}.mixed(x);
  out.h = Ends{liquid.h, vapour.h}.mixed(x);
  out.s = Ends{liquid.s, vapour.s}.mixed(x);
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
  basis.region = site.region;
  basis.p = site.p;
  basis.t = site.t;
  basis.approximate = site.approximate;
  if (is_wet(site.region)) {
    mixture(site, needs, basis);
    if (needs.saturation) {
      add_equilibrium(site, basis);
    }
    if ((basis.x == 0 || basis.x == 1) && wants_one_phase(needs)) {
      add_one_phase(site, needs, basis);
    }
    return;
  }
  one_phase(site, needs.parts, has, basis);
}

void complete_transport(Basis& basis, const Needs& needs) {
  if (needs.viscosity) {
    basis.viscosity = formulation::viscosity<SharedDivisions<>>(basis.v, basis.t);
  }
  if (needs.conductivity) {
    basis.conductivity = formulation::conductivity<SharedDivisions<>>(basis.v, basis.t);
  }
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
  basis.u = basis.h - kj_per_bar_m3 * basis.p * basis.v;
  complete_transport(basis, needs);
  return basis;
}

}  // namespace steam
