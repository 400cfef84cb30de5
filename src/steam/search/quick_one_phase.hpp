#pragma once

#include "steam/search/margins.hpp"
#include "steam/search/newton.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/quick.hpp"
#include "steam/search/several.hpp"

namespace steam {

// The quick search in the equation of one subregion, and beside a boundary in the neighbour's too.

/// Where Newton's iteration in one equation ended: inside its subregion or not, or nowhere.
struct Converged {
  Site site{};
  bool falls_with_p = false;  ///< the second value, where a pair leaves the pressure open
  int evaluations = 0;
};

/// The state at the end of the last step, and the wanted parts of its basis.
template <Pair P, class Equation, Parts parts, class Terms>
[[gnu::always_inline]] inline Site site_after(Region region, const Terms& terms, Variables x,
                                              Variables end, double a, Basis& basis) {
  constexpr Moves moves = newton::Solver<P, Equation>::moves;
  const Variables step{end.z - x.z, end.t - x.t};
  Site site{};
  if constexpr (Equation::by_pressure) {
    site = at_pressure(region, end.z, end.t);
  } else {
    double p = a;
    if constexpr (known_of(P).first != Quantity::p) {
      p = after_step<Equation, Quantity::p, moves>(terms, x, step);
    }
    const bool liquid = end.t < t_critical && end.z < v_critical;
    site = at_volume(liquid ? Region::hot_water : Region::dense_steam, p, end.z, end.t);
  }
  site.at = x;
  evaluate_first<Equation, parts, moves>(terms, x, step, basis);
  return site;
}

/// Newton steps in the equation of one phase.
template <Pair P, class Equation, Parts parts>
Converged converged(Region region, double a, double b, Variables start, Basis& basis) {
  using Solver = newton::Solver<P, Equation>;
  constexpr double hopeless = 10;
  Converged end;
  Variables x = Solver::with_given(start, a, b);
  double size = 0;
  while (++end.evaluations <= newton::most_steps && size < hopeless) {
    const auto terms = Equation::terms(x.z, x.t);
    const newton::System system = Solver::system(terms, x, a, b);
    const Variables step = Solver::step(system);
    size = newton::relative_size<Equation>(step, x);
    const bool by_rounding = end.evaluations > 1 && Solver::is_rounding(system, a, b);
    if (size <= Equation::small_step || by_rounding) {
      end.site =
          site_after<P, Equation, parts>(region, terms, x, {x.z + step.z, x.t + step.t}, a, basis);
      end.falls_with_p = P == Pair::th && system.second.over_1 < 0;
      return end;
    }
    const Variables next = newton::limited(step, x);
    x = {x.z + next.z, x.t + next.t};
  }
  return end;
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
  const Converged there =
      converged<P, Neighbour, parts>(across, a, b, {z, quick.site.t}, basis_there);
  quick.evaluations += there.evaluations;
  const bool comes_first = rank(quick.site.region) < rank(across);
  const bool inside = there.site && margins::of<Neighbour>(there.site, overlap_of(P)).first;
  const auto presence =
      there.site ? margins::presence(across, there.site, inside) : margins::Presence::doubtful;
  quick.is_first = comes_first || presence != margins::Presence::doubtful;
  quick.is_only = presence == margins::Presence::absent;
  if (presence == margins::Presence::present && !comes_first) {
    quick.site = there.site;
    quick.has = with_own<Neighbour>(parts);
    basis = basis_there;
  }
}

/// The state of a pair in the equation of one phase.
template <Pair P, class Equation, Parts parts>
Quick in_one_phase(Region region, double a, double b, Variables start, Basis& basis) {
  const Converged here = converged<P, Equation, parts>(region, a, b, start, basis);
  Quick quick{.site = here.site, .has = with_own<Equation>(parts), .evaluations = here.evaluations};
  if (!here.site) {
    return quick;
  }
  const Sure sure = among_several<P>(region, here.site.t, 0, here.falls_with_p,
                                     margins::of<Equation>(here.site, overlap_of(P)));
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
