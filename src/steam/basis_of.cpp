#include "steam/basis_of.hpp"

#include "formulation/transport.hpp"
#include "steam/search/quantity.hpp"

namespace steam {
namespace {

/// All parts of a set at the point where the equation was evaluated last, and those that follow
/// no straight line at the state itself.
template <class Equation, Parts parts>
void evaluate(const Site& site, Basis& out) {
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
void one_phase(const Site& site, Parts wanted, Parts has, Basis& out) {
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

void one_phase(const Site& site, Parts wanted, Parts has, Basis& out) {
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

Phases phases_of(const Site& wet, Parts wanted) {
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

/// Quality and mixed quantities.
void mixture(const Site& site, const Needs& needs, Basis& out) {
  Parts wanted{.v = needs.parts.v, .h = needs.parts.h, .s = needs.parts.s};
  const bool is_open = site.given != Quantity::x;
  if (wanted.within(nothing) && !(needs.quality && is_open)) {
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

}  // namespace

void complete(Basis& basis, const Site& site, const Needs& needs, Parts has) {
  basis.region = site.region;
  basis.p = site.p;
  basis.t = site.t;
  if (is_wet(site.region)) {
    mixture(site, needs, basis);
    return;
  }
  one_phase(site, needs.parts, has, basis);
}

void complete_transport(Basis& basis, const Needs& needs) {
  if (needs.viscosity) {
    basis.viscosity = formulation::viscosity<SharedDivisions>(basis.v, basis.t);
  }
  if (needs.conductivity) {
    basis.conductivity = formulation::conductivity<SharedDivisions>(basis.v, basis.t);
  }
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
