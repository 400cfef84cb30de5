#pragma once

#include "steam/search/dense_volume.hpp"
#include "steam/tables/charts.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {

// Where Newton's iteration starts: what the chart of a pair says.

namespace starts {

template <class Num>
constexpr Num fourth_power(Num x) {
  return (x * x) * (x * x);
}

/// Variable z of a region's equation, p or v, from what a polynomial gives.
template <Pair P, class Num>
Num from_polynomial(Region region, Num value) {
  if (is_3(region)) {
    return 1 / value;
  }
  // With two unknowns the roots of p are used in every pair.
  const bool is_root = region == Region::steam && (gives_root_of_p(P) || !is_line(P));
  return is_root ? fourth_power(value) : value;
}

}  // namespace starts

/// Whether a pressure and a temperature are where no search is needed to tell the subregion; in 3
/// the chart starts their volume.
template <class Num>
struct ClearRegion {
  MaskOf<Num> water = false, steam = false, dense = false;
};
template <class Num>
ClearRegion<Num> clear_region(Num p, Num t) {
  ClearRegion<Num> clear;
  clear.steam = t > t_line_end;
  const auto cool = t <= t_350;
  const MaskOf<Num> warm = !(clear.steam | cool);
  if (numbers::any(warm)) {
    const auto beside_critical =
        (numbers::abs(t - t_critical) <= 2) & (numbers::abs(p - p_critical) <= 15);
    const auto below = p < line_pressure<SharedDivisions<Num>>(t);
    clear.steam |= warm & below;
    clear.dense = warm & !(below | beside_critical);
  }
  if (numbers::any(cool)) {
    const Num about = tabulated_saturation_pressure(t);
    clear.water = cool & (p > about * (1 + table_doubt));
    clear.steam |= cool & (p < about * (1 - table_doubt));
  }
  return clear;
}

/// What the polynomials of a region in a cell say.
/// @param here  gives the value of polynomial 0 and 1
template <Pair P, class Num, class Here>
[[gnu::always_inline]] inline VariablesOf<Num> start_in(Region region, const Here& here) {
  const int count = unknowns(P, region);
  if (count == 0) {
    return {};
  }
  const Num first = here(0);
  if (count == 2) {
    return {starts::from_polynomial<P>(region, first), here(1)};
  }
  constexpr Known k = known_of(P);
  const bool is_t =
      is_wet(region) || !is_line(P) || (k.first == Quantity::p && k.second != Quantity::t);
  if (is_t) {
    return {0, first};
  }
  return {starts::from_polynomial<P>(region, first), 0};
}

/// Whether a volume of subregion 3 is on the side of the wet states where its pressure and
/// temperature are.
template <class Num>
MaskOf<Num> is_on_its_side(Num p, Num t, Num v) {
  const MaskOf<Num> is_liquid = p >= tabulated_saturation_pressure(t);
  const MaskOf<Num> is_small = v < v_critical;
  return (t >= t_critical) | (is_liquid & is_small) | !(is_liquid | is_small);
}

/// Whether a temperature and a volume look as if they were in subregion 3.
template <class Num>
MaskOf<Num> is_dense(Num t, Num v) {
  const MaskOf<Num> warm = (t >= t_350) & (t <= t_line_end);
  if (!numbers::any(warm)) {
    return warm;
  }
  const SaturatedVolumesOf<Num> saturated = rough_saturated_volumes(t);
  return warm & ((t >= t_critical) | (v < saturated.liquid) | (v > saturated.vapour));
}

/// Whether a start looks as if it were in its subregion, as far as the tables know.
template <Pair P, class Num>
MaskOf<Num> is_plausible(Region region, VariablesOf<Num> start, Num a, Num b) {
  constexpr Known k = known_of(P);
  if constexpr (P == Pair::pt) {
    return is_on_its_side(a, b, start.z);
  }
  const Num t = k.first == Quantity::t ? a : start.t;
  if (is_3(region)) {
    return is_dense(t, k.second == Quantity::v ? b : k.first == Quantity::v ? a : start.z);
  }
  const Num p = k.first == Quantity::p ? a : start.z;
  const MaskOf<Num> hot = t > t_350;
  MaskOf<Num> plausible = false;
  if (region == Region::steam && numbers::any(hot)) {
    plausible = hot & ((t > t_line_end) | (p <= line_pressure<SharedDivisions<Num>>(t)));
  }
  if (!numbers::all(hot)) {
    const MaskOf<Num> dense = p >= tabulated_saturation_pressure(t);
    plausible |= (!hot) & (region == Region::water ? dense : MaskOf<Num>(!dense));
  }
  return plausible;
}

}  // namespace steam
