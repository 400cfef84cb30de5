#pragma once

#include "steam/search/margins.hpp"
#include "steam/search/newton.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/quick.hpp"
#include "steam/search/several.hpp"

namespace steam {

// The quick search in the equation of one subregion, and beside a boundary in the neighbour's too.

/// Where Newton's iteration in one equation ended: inside its subregion or not, or nowhere.
template <class Num>
struct ConvergedOf {
  MaskOf<Num> ended = false;
  VariablesOf<Num> at, end;  // where the equation was evaluated last, and after the last step
  Num p = missing;
  MaskOf<Num> falls_with_p = false;  // the second value, where a pair leaves the pressure open
};
using Converged = ConvergedOf<double>;

/// Takes the last step in some lanes, with the wanted parts of the basis.
template <Pair P, class Equation, Parts parts, class Terms, class Num>
[[gnu::always_inline]] inline void end_in(MaskOf<Num> lanes, ConvergedOf<Num>& result,
                                          const Terms& terms, VariablesOf<Num> x,
                                          VariablesOf<Num> step, Num a, BasisOf<Num>& basis) {
  constexpr Moves moves = newton::Solver<P, Equation>::moves;
  const auto take = [lanes](Num & to, Num from) __attribute__((always_inline)) {
    to = numbers::select(lanes, from, to);
  };
  result.ended |= lanes;
  take(result.at.z, x.z);
  take(result.at.t, x.t);
  take(result.end.z, x.z + step.z);
  take(result.end.t, x.t + step.t);
  if constexpr (Equation::by_pressure) {
    result.p = result.end.z;
  } else if constexpr (known_of(P).first == Quantity::p) {
    result.p = a;
  } else {
    take(result.p, after_step<Equation, Quantity::p, moves>(terms, x, step));
  }
  BasisOf<Num> here;
  const VariablesOf<Num> moved{result.end.z - x.z, result.end.t - x.t};
  evaluate_first<Equation, parts, moves>(terms, x, moved, here);
  if constexpr (parts.v || !Equation::by_pressure) {
    take(basis.v, here.v);
  }
  if constexpr (parts.h) {
    take(basis.h, here.h);
  }
  if constexpr (parts.s) {
    take(basis.s, here.s);
  }
}

/// Newton steps in the equation of one phase.
template <Pair P, class Equation, Parts parts, class Num>
ConvergedOf<Num> converged(Num a, Num b, VariablesOf<Num> start, BasisOf<Num>& basis) {
  using Solver = newton::Solver<P, Equation>;
  constexpr double hopeless = 10;
  ConvergedOf<Num> result;
  VariablesOf<Num> x = Solver::with_given(start, a, b);
  MaskOf<Num> open = true;
  for (int n = 0; n < newton::most_steps; ++n) {
    const auto terms = Equation::terms(x.z, x.t);
    const newton::System<Num> system = Solver::system(terms, x, a, b);
    const VariablesOf<Num> step = Solver::step(system, x);
    const Num size = newton::relative_size<Equation>(step, x);
    MaskOf<Num> ends = size <= Equation::small_step;
    if (n > 0) {
      ends |= Solver::is_rounding(system, a, b);
    }
    ends &= open;
    if (numbers::any(ends)) {
      end_in<P, Equation, parts>(ends, result, terms, x, step, a, basis);
      if constexpr (P == Pair::th) {
        result.falls_with_p |= ends & (system.second.over_1 < 0);
      }
    }
    open &= (!ends) & (size < hopeless);
    if (!numbers::any(open)) {
      break;
    }
    const VariablesOf<Num> next = Solver::limited(step, x);
    x = {x.z + next.z, x.t + next.t};
  }
  return result;
}

/// The state where the iteration ended.
template <class Equation>
Site site_of(Region region, const Converged& end) {
  if (!end.ended) {
    return {};
  }
  Site site;
  if constexpr (Equation::by_pressure) {
    site = at_pressure(region, end.end.z, end.end.t);
  } else {
    site = at_volume(region_in_3(end.end.z, end.end.t), end.p, end.end.z, end.end.t);
  }
  site.at = end.at;
  return site;
}

/// Parts of the basis that an evaluation in one phase brings.
template <class Equation>
constexpr Parts with_own(Parts parts) {
  parts.v = parts.v || !Equation::by_pressure;
  return parts;
}

/// With the state that the neighbour's equation has of the pair: the lower rank counts.
/// @param quick  sure but for the neighbour
template <Pair P, class Neighbour, Parts parts>
void compare(Quick& quick, Region across, double a, double b, Basis& basis) {
  const double z = Neighbour::by_pressure ? quick.site.p : quantity(quick.site, Quantity::v);
  Basis basis_there;
  const Converged end =
      converged<P, Neighbour, parts>(a, b, Variables{z, quick.site.t}, basis_there);
  const Site there = site_of<Neighbour>(across, end);
  const bool comes_first = rank(quick.site.region) < rank(across);
  const bool inside = there && margins::of<Neighbour>(there, overlap_of(P)).first;
  const auto presence =
      there ? margins::presence(across, there, inside) : margins::Presence::doubtful;
  quick.is_first = comes_first || presence != margins::Presence::doubtful;
  quick.is_only = presence == margins::Presence::absent;
  if (presence == margins::Presence::present && !comes_first) {
    quick.site = there;
    quick.has = with_own<Neighbour>(parts);
    basis = basis_there;
  }
}

/// The state of a pair in the equation of one phase.
template <Pair P, class Equation, Parts parts>
Quick one_phase_search(Region region, double a, double b, Variables start, Basis& basis) {
  const Converged here = converged<P, Equation, parts>(a, b, start, basis);
  Quick quick{.site = site_of<Equation>(region, here), .has = with_own<Equation>(parts)};
  if (!quick.site) {
    return quick;
  }
  const Sure sure = among_several<P>(region, quick.site.t, 0, here.falls_with_p,
                                     margins::of<Equation>(quick.site, overlap_of(P)));
  quick.is_first = sure.first;
  quick.is_only = sure.only;
  switch (sure.across) {
    case Region::none:
      break;
    case Region::water:
      compare<P, Water, parts>(quick, sure.across, a, b, basis);
      break;
    case Region::steam:
      compare<P, Steam, parts>(quick, sure.across, a, b, basis);
      break;
    default:
      compare<P, Dense, parts>(quick, sure.across, a, b, basis);
  }
  return quick;
}

}  // namespace steam
