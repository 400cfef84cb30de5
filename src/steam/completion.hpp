#pragma once

#include "formulation/transport.hpp"
#include "steam/equations/basis.hpp"
#include "steam/property_table.hpp"
#include "steam/tables/tabulated_saturation.hpp"

namespace steam {

// What a state's basis holds beside what its search has left there.

namespace completion {

/// All parts of a set at the point where the equation was evaluated last, and those that follow
/// no straight line at the state itself.
template <class Equation, Parts parts, class Num>
[[gnu::noinline]] void evaluate(const VariablesOf<Num>& at, const VariablesOf<Num>& end,
                                BasisOf<Num>& out) {
  const auto terms = Equation::terms(at.z, at.t);
  if (numbers::all((at.z == end.z) & (at.t == end.t))) {
    evaluate_first<Equation, parts, Moves{}>(terms, at, VariablesOf<Num>{0, 0}, out);
    evaluate_second<Equation, parts>(terms, at, out);
    return;
  }
  evaluate_first<Equation, parts, Moves{.z = true, .t = true}>(
      terms, at, VariablesOf<Num>{end.z - at.z, end.t - at.t}, out);
  if constexpr (parts.cp) {
    evaluate_second<Equation, parts>(Equation::terms(end.z, end.t), end, out);
  }
}

template <class Equation, Parts parts, class Num>
[[gnu::noinline]] void evaluate_at_end(const VariablesOf<Num>& end, BasisOf<Num>& out) {
  evaluate_second<Equation, parts>(Equation::terms(end.z, end.t), end, out);
}

/// An evaluation takes the first of some sets of parts that holds all that is wanted.
template <class Equation, class Num>
void one_phase(const VariablesOf<Num>& at, const VariablesOf<Num>& end, const Parts& wanted,
               const Parts& has, BasisOf<Num>& out) {
  if (Parts{wanted.v, wanted.h, wanted.s}.within(has)) {
    if (wanted.slopes) {
      evaluate_at_end<Equation, all_parts>(end, out);
    } else if (wanted.cp) {
      evaluate_at_end<Equation, all_but_slopes>(end, out);
    }
  } else if (wanted.within(only_h)) {
    evaluate<Equation, only_h>(at, end, out);
  } else if (wanted.within(only_v)) {
    evaluate<Equation, only_v>(at, end, out);
  } else if (wanted.within(first_order)) {
    evaluate<Equation, first_order>(at, end, out);
  } else if (wanted.within(all_but_slopes)) {
    evaluate<Equation, all_but_slopes>(at, end, out);
  } else {
    evaluate<Equation, all_parts>(at, end, out);
  }
}

/// A state of which the equation is evaluated at itself.
template <class Equation, class Num>
BasisOf<Num> phase(const VariablesOf<Num>& at, const Parts& wanted) {
  BasisOf<Num> basis;
  one_phase<Equation>(at, at, wanted, nothing, basis);
  return basis;
}

/// The two phases of a wet state.
template <class Num>
struct Phases {
  BasisOf<Num> liquid, vapour;
};

/// Up to 350 °C.
template <class Num>
Phases<Num> low_phases(Num p, Num t, const Parts& wanted) {
  const VariablesOf<Num> at{p, t};
  return {phase<Water>(at, wanted), phase<Steam>(at, wanted)};
}

constexpr Parts parts_of(Quantity q) {
  return {.v = q == Quantity::v || q == Quantity::u,
          .h = q == Quantity::h || q == Quantity::u,
          .s = q == Quantity::s};
}

/// A quantity of a phase at a pressure.
template <class Num>
Num quantity_of(const BasisOf<Num>& phase, Quantity q, Num p) {
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

/// The parts of both phases that the mixture takes, but for those that tell the quality.
constexpr Parts mixed_parts(const Needs& needs) {
  return {.v = needs.parts.v, .h = needs.parts.h, .s = needs.parts.s};
}

/// Whether a wet state needs its phases.
/// @param given  what the quality follows from; x if it is known
constexpr bool needs_phases(Quantity given, const Needs& needs) {
  const bool wants_quality = needs.quality || wants_one_phase(needs);
  return !mixed_parts(needs).within(nothing) || (wants_quality && given != Quantity::x);
}

/// Quality and mixed quantities.
/// @param phases_of  gives the parts of both phases that are asked for
template <class Num, class PhasesOf>
void mixture(const SiteOf<Num>& site, const Needs& needs, BasisOf<Num>& out,
             const PhasesOf& phases_of) {
  if (!needs_phases(site.given, needs)) {
    out.x = site.x;
    return;
  }
  const bool is_open = site.given != Quantity::x;
  const Parts mixed = mixed_parts(needs), for_quality = parts_of(site.given);
  const Parts wanted{mixed.v || for_quality.v, mixed.h || for_quality.h, mixed.s || for_quality.s};
  const Phases<Num> phases = phases_of(wanted);
  const auto& [liquid, vapour] = phases;
  const EndsOf<Num> given{quantity_of(liquid, site.given, site.p),
                          quantity_of(vapour, site.given, site.p)};
  const Num x = is_open ? given.quality(site.value) : site.x;
  out.x = x;
  out.v = EndsOf<Num>{liquid.v, vapour.v}.mixed(x);
  out.h = EndsOf<Num>{liquid.h, vapour.h}.mixed(x);
  out.s = EndsOf<Num>{liquid.s, vapour.s}.mixed(x);
}

/// Viscosity and conductivity as needed, from v and t.
template <class Num>
[[gnu::noinline]] void transport(BasisOf<Num>& basis, const Needs& needs) {
  if (needs.viscosity) {
    basis.viscosity = formulation::viscosity<SharedDivisions<Num>>(basis.v, basis.t);
  }
  if (needs.conductivity) {
    basis.conductivity = formulation::conductivity<SharedDivisions<Num>>(basis.v, basis.t);
  }
}

/// Where a basis keeps a quantity.
template <class Num>
Num& at(BasisOf<Num>& basis, Quantity q) {
  using B = BasisOf<Num>;
  constexpr std::array<Num B::*, 7> place{&B::p, &B::t, &B::v, &B::h, &B::s, &B::u, &B::x};
  return basis.*place[static_cast<std::size_t>(q)];
}

/// Where a state is.
template <class Num>
void take_place(BasisOf<Num>& basis, const SiteOf<Num>& site) {
  basis.region = site.region;
  basis.p = site.p;
  basis.t = site.t;
  basis.approximate = site.approximate;
}

/// What follows from the pair: the given values come back as they are, and the energy, and the
/// transport of one phase. Only an approximate state has its own in place of the second value.
template <class Num>
[[gnu::always_inline]] inline void for_pair(BasisOf<Num>& basis, Pair pair, Num first, Num second,
                                            const SiteOf<Num>& site, const Needs& needs) {
  const Known& k = known_of(pair);
  // Of two values that are neither p nor t, an approximate state has the one whose line was
  // followed.
  const bool follows_second = k.second == Quantity::s && k.first != Quantity::p &&
                              k.first != Quantity::t && k.first != Quantity::v;
  if (!site.approximate || !follows_second) {
    at(basis, k.first) = first;
  }
  if (!site.approximate || follows_second) {
    at(basis, k.second) = second;
  }
  const bool gives_u = k.first == Quantity::u || k.second == Quantity::u;
  if (!gives_u || (site.approximate && !(k.first == Quantity::u && !follows_second))) {
    basis.u = basis.h - kj_per_bar_m3 * site.p * basis.v;
  }
  if (!is_wet(site.region) && (needs.viscosity || needs.conductivity)) {
    transport(basis, needs);
  }
}

}  // namespace completion

}  // namespace steam
