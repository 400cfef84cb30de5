#pragma once

#include "steam/search/margins.hpp"
#include "steam/search/quick.hpp"
#include "steam/search/several.hpp"
#include "steam/search/wet_search.hpp"

namespace steam {

// The quick search in wet states.

/// The quality of a wet state of a pressure or a temperature by the table, and whether such a state
/// surely counts.
template <class Num>
struct OnWetLine {
  Num x;
  MaskOf<Num> is_sure, is_first;
};
/// @param t  saturation temperature
template <Pair P, class Num>
[[gnu::always_inline]] inline OnWetLine<Num> on_wet_line(Num t, Num b) {
  const Num x = TabulatedSaturationOf<Num>(t).template ends<known_of(P).second>().quality(b);
  const MaskOf<Num> is_sure = margins::is_wet_on_line(t, x, overlap_of(P));
  return {x, is_sure, MaskOf<Num>(is_sure & comes_first<P>(Region::wet, t, x, MaskOf<Num>(false)))};
}

/// That state; its quality is left to whoever wants it.
template <Pair P, class Num>
[[gnu::always_inline]] inline SiteOf<Num> site_on_wet_line(Region region, Num p, Num t, Num b) {
  return {.region = region, .given = known_of(P).second, .p = p, .t = t, .value = b};
}

/// Saturated states of a pressure or a temperature.
template <class Num>
struct SaturatedAt {
  Num p, t;
  MaskOf<Num> is_clear;  ///< to the rounding; else p and t mean nothing
};
template <bool by_pressure, class Num>
SaturatedAt<Num> clear_saturation(Num given) {
  if constexpr (by_pressure) {
    const MaskOf<Num> is_tabulated = (given >= p_lowest_clear) & (given < p_fitted);
    const auto [t, is_exact] =
        fitted_saturation_temperature(numbers::select(is_tabulated, given, Num(1)));
    return {given, t, MaskOf<Num>(is_tabulated & is_exact)};
  } else {
    return {saturation_pressure(given), given, MaskOf<Num>(given < t_critical)};
  }
}

/// A wet state of a pressure or a temperature, at once.
template <Pair P>
Quick wet_on_line(double a, double b) {
  constexpr bool by_pressure = known_of(P).first == Quantity::p;
  Quick quick;
  if (a >= (by_pressure ? p_critical : t_critical)) {
    return quick;
  }
  const double t = by_pressure ? saturation_temperature(a) : a;
  const auto [x, is_sure, is_first] = on_wet_line<P>(t, b);
  if (!is_sure) {
    return quick;
  }
  const Region region = t <= t_350 ? Region::wet : Region::wet_above_350;
  const double p = by_pressure ? saturated_pressure(a) : saturation_pressure(t);
  quick.site = site_on_wet_line<P>(region, p, t, b);
  quick.is_first = is_first;
  quick.is_only = among_several<P>(region, t, x, false, margins::all_sure).only;
  return quick;
}

namespace wet {

/// The wet state of one band of the table, of region none when it does not converge.
template <Pair P>
Site in_band(Region region, double a, double b, double t_start) {
  constexpr Known k = known_of(P);
  const auto [is_found, p, t, x] =
      region == Region::wet
          ? wet_search<k.first, k.second, LowSaturation>(saturated_to_350, a, b, t_start)
          : wet_search<k.first, k.second, HighSaturation>(saturated_above_350, a, b, t_start);
  return is_found ? Site{.region = region, .p = p, .t = t, .x = x} : Site{};
}

/// Whether the other band has a state of the pair, first by its table.
template <Pair P>
margins::Presence other_band(Region across, double a, double b, double t_start, Site& site) {
  constexpr Known k = known_of(P);
  const SaturatedBand& band = across == Region::wet ? saturated_to_350 : saturated_above_350;
  const StartOf<double> start = tabulated<k.first, k.second>(band, a, b, t_start);
  constexpr double beyond = 0.01;  // K
  const double past = across == Region::wet ? start.t - t_350 : t_350 - start.t;
  if (past > beyond && margins::is_amid(start.x)) {
    return margins::Presence::absent;
  }
  site = in_band<P>(across, a, b, t_start);
  const bool inside = site && (site.t <= t_350) == (across == Region::wet) &&
                      margins::of_wet(site.t, site.x, overlap_of(P)).across != Region::none;
  return inside ? margins::Presence::present : margins::Presence::doubtful;
}

}  // namespace wet

/// A wet state of two values that both depend on temperature and quality.
template <Pair P>
Quick wet_in_plane(Region region, double a, double b, double t_start) {
  Quick quick;
  const Site site = wet::in_band<P>(region, a, b, t_start);
  if (!site || (region == Region::wet) != (site.t <= t_350)) {
    return quick;
  }
  const Sure sure = margins::of_wet(site.t, site.x, overlap_of(P));
  quick.site = site;
  quick.is_first = sure.first;
  quick.is_only = sure.only;
  if (sure.across != Region::none) {
    Site there;
    const auto presence = wet::other_band<P>(sure.across, a, b, site.t, there);
    quick.is_first = presence != margins::Presence::doubtful || region == Region::wet;
    quick.is_only = presence == margins::Presence::absent;
    if (presence == margins::Presence::present && region == Region::wet_above_350) {
      quick.site = there;
    }
  }
  return quick;
}

}  // namespace steam
