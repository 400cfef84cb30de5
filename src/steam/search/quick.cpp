#include "steam/search/quick.hpp"

#include <utility>

#include "steam/search/lines.hpp"
#include "steam/search/margins.hpp"
#include "steam/search/newton.hpp"
#include "steam/search/wet_search.hpp"
#include "steam/tables/charts.hpp"

namespace steam {
namespace {

// Where water, below this temperature, may have two states of one pressure and volume, and of one
// temperature and energy or entropy: the density maximum is below 4.8 °C.
constexpr double t_maximum = 6;
/// Above this water has left the volumes that it has below the maximum.
constexpr double t_past_maximum = 15;
/// Share of vapour up to which compressed water of the same temperature may have the enthalpy of a
/// wet state.
constexpr double x_compressed = 0.1;

/// Of a pressure and a volume the warmer state counts.
inline Sure around_maximum(Region region, double t, Sure sure) {
  const bool doubtful = region == Region::water && t < t_maximum;
  const bool twofold = region == Region::water && t < t_past_maximum;
  return {sure.first && !doubtful, sure.only && !twofold};
}

/// Of a temperature and an enthalpy the state of the lowest pressure counts: in water the one where
/// the enthalpy falls with pressure from the saturated value.
inline Sure under_pressure(Region region, double x, bool falls_with_p, Sure sure) {
  const bool water = region == Region::water;
  const bool like_water = region == Region::wet && x < x_compressed;
  return {sure.first && (!water || falls_with_p), sure.only && !water && !like_water};
}

/// Of a temperature and an energy or entropy the same, but only in cold water.
inline Sure in_cold_water(Region region, double t, double x, Sure sure) {
  const bool wet = region == Region::wet;
  const bool cold = t < t_maximum && (wet || region == Region::water);
  return cold ? Sure{sure.first && wet && x > x_compressed, false} : sure;
}

/// What is sure where a pair belongs to several states.
template <Pair P>
Sure among_several(Region region, double t, double x, bool falls_with_p, Sure sure) {
  if constexpr (P == Pair::pv) {
    return around_maximum(region, t, sure);
  } else if constexpr (P == Pair::th) {
    return under_pressure(region, x, falls_with_p, sure);
  } else if constexpr (P == Pair::tu || P == Pair::ts) {
    return in_cold_water(region, t, x, sure);
  } else {
    return sure;
  }
}

/// The state at the end of the last step, whether it is sure, and the wanted parts of its basis.
template <Pair P, class Equation, Parts parts, class Terms>
[[gnu::always_inline]] inline void finish(Quick& quick, Region region, const Terms& terms,
                                          Variables x, Variables end, const newton::System& system,
                                          double a, Basis& basis) {
  constexpr Moves moves = newton::Solver<P, Equation>::moves;
  constexpr Overlap overlap = overlap_of(P);
  const Variables step{end.z - x.z, end.t - x.t};
  Site& site = quick.site;
  Sure sure{};
  if constexpr (Equation::by_pressure) {
    site = at_pressure(region, end.z, end.t);
    sure = region == Region::water ? margins::of_water(site, overlap)
                                   : margins::of_steam(site, overlap);
  } else {
    double p = a;
    if constexpr (known_of(P).first != Quantity::p) {
      p = after_step<Equation, Quantity::p, moves>(terms, x, step);
    }
    const bool liquid = end.t < t_critical && end.z < v_critical;
    site = at_volume(liquid ? Region::hot_water : Region::dense_steam, p, end.z, end.t);
    sure = margins::of_dense(site, overlap);
  }
  if (!sure.first || !margins::is_in_range(site.p, site.t)) {
    return;
  }
  site.at = x;
  evaluate_first<Equation, parts, moves>(terms, x, step, basis);
  sure = among_several<P>(region, site.t, 0, P == Pair::th && system.second.over_1 < 0, sure);
  quick.is_first = sure.first;
  quick.is_only = sure.only;
  quick.has = parts;
  quick.has.v = parts.v || !Equation::by_pressure;
}

/// Newton steps in the equation of one phase.
template <Pair P, class Equation, Parts parts>
Quick attempt(Region region, double a, double b, Variables start, Basis& basis) {
  using Solver = newton::Solver<P, Equation>;
  constexpr double hopeless = 10;
  Quick quick;
  Variables x = Solver::with_given(start, a, b);
  double size = 0;
  while (++quick.evaluations <= newton::most_steps && size < hopeless) {
    const auto terms = Equation::terms(x.z, x.t);
    const newton::System system = Solver::system(terms, x, a, b);
    const Variables step = Solver::step(system);
    size = newton::relative_size<Equation>(step, x);
    const bool by_rounding = quick.evaluations > 1 && Solver::is_rounding(system, a, b);
    if (size <= Equation::small_step || by_rounding) {
      finish<P, Equation, parts>(quick, region, terms, x, {x.z + step.z, x.t + step.t}, system, a,
                                 basis);
      return quick;
    }
    const Variables next = newton::limited(step, x);
    x = {x.z + next.z, x.t + next.t};
  }
  return quick;
}

constexpr double fourth_power(double x) { return (x * x) * (x * x); }

/// Variable z of a region's equation, p or v, from what a polynomial gives.
template <Pair P>
double from_polynomial(Region region, double value) {
  if (is_3(region)) {
    return 1 / value;
  }
  // With two unknowns the roots of p are used in every pair.
  const bool is_root = region == Region::steam && (gives_root_of_p(P) || !is_line(P));
  return is_root ? fourth_power(value) : value;
}

/// What the polynomials of a patch say.
template <Pair P>
Variables start_in(const Place& here, const Patch& patch) {
  const int count = unknowns(P, patch.region);
  if (count == 0) {
    return {};
  }
  const double first = here(patch, 0);
  if (count == 2) {
    return {from_polynomial<P>(patch.region, first), here(patch, 1)};
  }
  if (is_wet(patch.region) || !is_line(P) || known_of(P).first == Quantity::p) {
    return {0, first};
  }
  return {from_polynomial<P>(patch.region, first), 0};
}

/// Whether a start looks as if it were in its subregion, as far as the tables know.
template <Pair P>
bool is_plausible(Region region, Variables start, double a, double b) {
  constexpr Known k = known_of(P);
  const double t = k.first == Quantity::t ? a : start.t;
  if (is_3(region)) {
    const double v = k.second == Quantity::v ? b : k.first == Quantity::v ? a : start.z;
    if (t < t_350 || t > t_line_end) {
      return false;
    }
    const SaturatedVolumes saturated = rough_saturated_volumes(t);
    return t >= t_critical || v < saturated.liquid || v > saturated.vapour;
  }
  const double p = k.first == Quantity::p ? a : start.z;
  if (t > t_350) {
    return region == Region::steam && (t > t_line_end || p <= line_pressure(t));
  }
  return (p >= tabulated_saturation_pressure(t)) == (region == Region::water);
}

/// A wet state of a pressure or a temperature, at once; its quality is left to whoever wants it.
template <Pair P>
Quick wet_on_line(double a, double b) {
  constexpr Quantity q = known_of(P).second;
  constexpr bool by_pressure = known_of(P).first == Quantity::p;
  Quick quick;
  if (a >= (by_pressure ? p_critical : t_critical)) {
    return quick;
  }
  const double t = by_pressure ? saturation_temperature(a) : a;
  const double x = TabulatedSaturation(t).ends<q>().quality(b);
  quick.site.t = t;
  Sure sure = margins::of_wet(quick.site, x, overlap_of(P));
  if (!by_pressure) {  // no line of one temperature crosses 350 °C
    const bool inside = x > margins::quality_doubt && x < 1 - margins::quality_doubt;
    sure = {inside && t < margins::t_doubtful, inside && t < margins::t_doubtful};
  }
  if (!sure.first) {
    return quick;
  }
  sure = among_several<P>(t <= t_350 ? Region::wet : Region::wet_above_350, t, x, false, sure);
  quick.site = at_quality(by_pressure ? saturated_pressure(a) : saturation_pressure(t), t, missing);
  quick.site.given = q;
  quick.site.value = b;
  quick.is_first = sure.first;
  quick.is_only = sure.only;
  return quick;
}

/// A wet state of two values that both depend on temperature and quality.
template <Pair P>
Quick wet_in_plane(Region region, double a, double b, double t_start) {
  constexpr Known k = known_of(P);
  Quick quick;
  const Site site = region == Region::wet
                        ? wet_search<k.first, k.second, LowSaturation>(a, b, t_start, region)
                        : wet_search<k.first, k.second, HighSaturation>(a, b, t_start, region);
  if (!site || (region == Region::wet) != (site.t <= t_350)) {
    return quick;
  }
  const Sure sure = margins::of_wet(site, site.x, overlap_of(P));
  quick.site = site;
  quick.is_first = sure.first;
  quick.is_only = sure.only;
  return quick;
}

template <Pair P, Parts parts>
Quick in_patch(const Patch& patch, Variables start, double a, double b, Basis& basis) {
  switch (patch.region) {
    case Region::water:
      return attempt<P, Water, parts>(Region::water, a, b, start, basis);
    case Region::steam:
      return attempt<P, Steam, parts>(Region::steam, a, b, start, basis);
    case Region::wet:
    case Region::wet_above_350:
      if constexpr (is_line(P)) {
        return wet_on_line<P>(a, b);
      } else {
        return wet_in_plane<P>(patch.region, a, b, start.t);
      }
    default:
      return attempt<P, Dense, parts>(patch.region, a, b, start, basis);
  }
}

/// One subregion that reaches into the cell, if the start looks right or there is no other.
template <Pair P, Parts parts>
Quick in_patch_of(const Place& here, const Patch& patch, double a, double b, Basis& basis) {
  const Variables start = start_in<P>(here, patch);
  const bool alone = here.patches.size() == 1;
  if (!alone && !is_wet(patch.region) && !is_plausible<P>(patch.region, start, a, b)) {
    return {};
  }
  return in_patch<P, parts>(patch, start, a, b, basis);
}

/// Tries the subregions that reach into the cell. For two caloric values the wet ones come first:
/// their table tells at once, while one phase beside them looks much like them.
template <Pair P, Parts parts>
Quick in_cell(double a, double b, Basis& basis) {
  const Place here = place(charts[static_cast<std::size_t>(P)], a, b);
  constexpr bool begins_with_wet = P == Pair::hs || P == Pair::us;
  int evaluations = 0;
  for (const bool first_turn : {true, false}) {
    for (const Patch& patch : here.patches) {
      if (first_turn != (!begins_with_wet || is_wet(patch.region))) {
        continue;
      }
      Quick quick = in_patch_of<P, parts>(here, patch, a, b, basis);
      evaluations = quick.evaluations += evaluations;
      if (quick.is_first) {
        return quick;
      }
    }
  }
  Quick none;
  none.evaluations = evaluations;
  return none;
}

/// In subregion 3 only the volume is open; elsewhere nothing is.
template <Parts parts>
Quick at_p_and_t(double p, double t, Basis& basis) {
  Quick quick;
  if (t > t_350 && t <= t_line_end && std::abs(t - t_critical) > 2 && p >= line_pressure(t)) {
    quick = in_cell<Pair::pt, parts>(p, t, basis);
  }
  if (!quick.is_first) {
    quick = {};
    quick.site = at_pressure_temperature(p, t);
  }
  quick.is_first = quick.is_only = true;
  return quick;
}

template <std::size_t pair, Parts parts>
Quick search(double a, double b, Basis& basis) {
  constexpr auto P = static_cast<Pair>(pair);
  constexpr Known k = known_of(P);
  Quick quick;
  if constexpr (P == Pair::pt) {
    return at_p_and_t<parts>(a, b, basis);
  } else if constexpr (k.second != Quantity::x) {
    return in_cell<P, parts>(a, b, basis);
  } else if constexpr (k.first == Quantity::p || k.first == Quantity::t) {
    const bool by_pressure = k.first == Quantity::p;
    quick.site = by_pressure ? at_quality(saturated_pressure(a), saturation_temperature(a), b)
                             : at_quality(saturation_pressure(a), a, b);
    quick.is_first = quick.is_only = true;
  }
  return quick;
}

using Search = Quick (*)(double, double, Basis&);
template <Parts parts, std::size_t... pair>
constexpr std::array<Search, pair_count> searches_of(std::index_sequence<pair...>) {
  return {&search<pair, parts>...};
}
template <Parts parts>
constexpr std::array<Search, pair_count> searches =
    searches_of<parts>(std::make_index_sequence<pair_count>{});

}  // namespace

Quick quick_search(Pair pair, double first, double second, Parts wanted, Basis& basis) {
  const auto i = static_cast<std::size_t>(pair);
  if (wanted.within(nothing)) {
    return searches<nothing>[i](first, second, basis);
  }
  if (wanted.within(h_and_s)) {
    return searches<h_and_s>[i](first, second, basis);
  }
  return searches<first_order>[i](first, second, basis);
}

}  // namespace steam
