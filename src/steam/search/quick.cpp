#include "steam/search/quick.hpp"

#include <utility>

#include "steam/search/lines.hpp"
#include "steam/search/quick_one_phase.hpp"
#include "steam/search/quick_wet.hpp"
#include "steam/search/starts.hpp"

namespace steam {
namespace {

template <Pair P, Parts parts>
Quick in_patch(const Patch& patch, Variables start, double a, double b, Basis& basis) {
  switch (patch.region) {
    case Region::water:
      return one_phase_search<P, Water, parts>(Region::water, a, b, start, basis);
    case Region::steam:
      return one_phase_search<P, Steam, parts>(Region::steam, a, b, start, basis);
    case Region::wet:
    case Region::wet_above_350:
      if constexpr (is_line(P)) {
        return wet_on_line<P>(a, b);
      } else {
        return wet_in_plane<P>(patch.region, a, b, start.t);
      }
    default:
      return one_phase_search<P, Dense, parts>(patch.region, a, b, start, basis);
  }
}

/// One subregion that reaches into the cell, if the start looks right or there is no other.
template <Pair P, Parts parts>
Quick in_patch_of(const Place& here, const Patch& patch, double a, double b, Basis& basis) {
  const Variables start = start_in<P, double>(
      patch.region, [&](std::size_t polynomial) { return here(patch, polynomial); });
  const bool alone = here.patches.size() == 1;
  if (!alone && !is_wet(patch.region) && !is_plausible<P>(patch.region, start, a, b)) {
    return {};
  }
  return in_patch<P, parts>(patch, start, a, b, basis);
}

/// Tries the subregions that reach into the cell.
template <Pair P, Parts parts>
Quick in_cell(double a, double b, Basis& basis) {
  const Place here = place(charts[static_cast<std::size_t>(P)], a, b);
  for (const Patch patch : here.patches) {
    const Quick quick = in_patch_of<P, parts>(here, patch, a, b, basis);
    if (quick.is_first) {
      return quick;
    }
  }
  return {};
}

/// In subregion 3 only the volume is open; elsewhere nothing is.
template <Parts parts>
Quick at_p_and_t(double p, double t, Basis& basis) {
  Quick quick;
  if (clear_region(p, t).dense) {
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
