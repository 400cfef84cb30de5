#include "steam/locate.hpp"

#include "steam/plausible.hpp"
#include "steam/quantity.hpp"
#include "steam/region_search.hpp"

namespace steam {
namespace {

// Where subregions meet their equations differ slightly, and a pair may belong to both or to
// neither. In an overlap the state to 350 °C counts, and steam before subregion 3.

struct Overlap {
  double kelvins, share;  // widest in temperature and as a part of the pressure
};

/// With two caloric values, whose lines run nearly along each other, overlaps are wider.
template <Pair P>
constexpr Overlap overlap = known_of(P).first == Quantity::p || known_of(P).first == Quantity::t
                                ? Overlap{overlap_350, 5e-3}
                                : Overlap{2, 0.03};

bool may_overlap(const Site& site, Overlap widest) {
  if (is_3(site.region)) {
    return site.t < t_350 + widest.kelvins || site.p < line_pressure(site.t) * (1 + widest.share);
  }
  return site.region == Region::wet_above_350 && site.t < t_350 + widest.kelvins;
}

/// A wet state overlaps with one of a single phase only next to it; a quality that was left open
/// may be anything.
bool may_overlap_with(Region region, const Site& site) {
  constexpr double beside = 0.01;
  return !(region == Region::water && site.x > beside) &&
         !(region == Region::steam && site.x < 1 - beside);
}

template <Pair P>
Site preferred(const Site& site, double a, double b) {
  for (const Region region : {Region::water, Region::steam, Region::wet}) {
    if (!may_overlap_with(region, site)) {
      continue;
    }
    const Site other = search<P>(region, a, b, {site.p, site.t});
    if (other && std::abs(other.t - site.t) < 2 * overlap<P>.kelvins) {
      return other;
    }
  }
  return site;
}

/// Cold water beside a wet state. Enthalpy and entropy tell its pressure to 1e-9 bar only, and one
/// that is less than that below the saturation pressure still counts.
template <Pair P>
Site cold_water(const Site& wet, double a, double b) {
  Variables x{wet.p, wet.t};
  if (!solve<P, Water>(a, b, x)) {
    return {};
  }
  constexpr double rounding = 5e-9;  // bar
  const double p = saturation_pressure(x.t);
  if (x.z < p && x.z > p - rounding) {
    x.z = p;
  }
  return claim_water(x);
}

/// With an entropy a wet state beside the saturation line may share its pair with one of a single
/// phase, which counts then. At the ends of the wet region that is a matter of rounding. But the
/// saturation line and the subregions meet Clapeyron's equation to some 5e-5 only, and the pressure
/// of cold water is so small that this matters: there the entropy of wet states of one enthalpy
/// first falls with the quality, then rises, and two of them share a pair with one of water.
template <Pair P>
Site preferred_to_wet(const Site& site, double a, double b) {
  if ((P != Pair::hs && P != Pair::us) || site.region != Region::wet) {
    return site;
  }
  constexpr double beside = 1e-7, beside_cold = 2e-4;
  const bool cold = P == Pair::hs && site.t < 2 * t_cold;
  Site single;
  if (cold && site.x < beside_cold) {
    single = cold_water<P>(site, a, b);
  } else if (site.x < beside) {
    single = search<P>(Region::water, a, b, {site.p, site.t});
  } else if (site.x > 1 - beside) {
    single = search<P>(Region::steam, a, b, {site.p, site.t});
  }
  return single ? single : site;
}

template <Pair P>
Site attempt(Region region, double a, double b, Variables start) {
  const Site site = search<P>(region, a, b, start);
  if (!site) {
    return site;
  }
  return may_overlap(site, overlap<P>) ? preferred<P>(site, a, b) : preferred_to_wet<P>(site, a, b);
}

/// Pairs of which wet states and those of one phase lie so close together that starts in the wrong
/// region look right.
template <Pair P>
constexpr bool begins_with_wet = P == Pair::hs || P == Pair::us;

/// Wet states come first there: whether it is one shows on the table, while a search in the wrong
/// region of one phase is the most expensive of all.
template <Pair P>
Site attempt_wet(const Place& here, double a, double b) {
  for (const Patch& patch : here.patches) {
    if (!is_wet(patch.region)) {
      continue;
    }
    constexpr double room = 0.002;
    const Variables start = start_in<P>(here, patch);
    if (is_plausibly_wet<P>(patch.region, start.t, a, b, room)) {
      const Site site = attempt<P>(patch.region, a, b, start);
      if (site) {
        return site;
      }
    }
  }
  return {};
}

/// The starts that look right, or the others.
template <Pair P>
Site attempt_starts(const Place& here, double a, double b, bool plausible) {
  for (const Patch& patch : here.patches) {
    const bool is_late = begins_with_wet<P> && is_wet(patch.region);
    if (is_late && plausible) {
      continue;
    }
    const Variables start = start_in<P>(here, patch);
    if (is_late || is_plausible<P>(patch.region, start, a, b) == plausible) {
      const Site site = attempt<P>(patch.region, a, b, start);
      if (site) {
        return site;
      }
    }
  }
  return {};
}

template <Pair P>
Site quick_search(double a, double b) {
  const Place here = place(charts[static_cast<std::size_t>(P)], a, b);
  if (here.patches.size() == 1) {
    const Patch& patch = here.patches[0];
    return attempt<P>(patch.region, a, b, start_in<P>(here, patch));
  }
  Site site;
  if constexpr (begins_with_wet<P>) {
    site = attempt_wet<P>(here, a, b);
  }
  for (const bool plausible : {true, false}) {
    if (!site) {
      site = attempt_starts<P>(here, a, b, plausible);
    }
  }
  return site;
}

/// Pairs with a pressure or a temperature that only one state has.
template <Pair P>
Site search_line(double a, double b) {
  const Site site = quick_search<P>(a, b);
  if (site) {
    return site;
  }
  const Solutions all = locate_all(P, a, b);
  return all.count > 0 ? all.sites[0] : Site{};
}

template <Pair P>
Site search_plane(double a, double b) {
  const Site site = quick_search<P>(a, b);
  return site ? site : preferred_to_wet<P>(nested_search(P, a, b), a, b);
}

Site search_saturated(double t, double p, double x) {
  return {.region = t <= t_350 ? Region::wet : Region::wet_above_350, .p = p, .t = t, .x = x};
}

Site first_of(const WetStates& wet) { return wet.count > 0 ? wet.sites[0] : Site{}; }

}  // namespace

Site locate(Pair pair, double a, double b) {
  switch (pair) {
    case Pair::pt:
      return at_pressure_temperature(a, b);
    case Pair::px:
      return search_saturated(saturation_temperature(a), a, b);
    case Pair::tx:
      return search_saturated(a, saturation_pressure(a), b);
    case Pair::pv:
      return search_line<Pair::pv>(a, b);
    case Pair::ph:
      return search_line<Pair::ph>(a, b);
    case Pair::ps:
      return search_line<Pair::ps>(a, b);
    case Pair::pu:
      return search_line<Pair::pu>(a, b);
    case Pair::tv:
      return search_line<Pair::tv>(a, b);
    case Pair::th:
      return search_line<Pair::th>(a, b);
    case Pair::tu:
      return search_line<Pair::tu>(a, b);
    case Pair::ts:
      return search_line<Pair::ts>(a, b);
    case Pair::sx:
      return first_of(wet_states(Quantity::s, a, b, 1));
    case Pair::hs:
      return search_plane<Pair::hs>(a, b);
    case Pair::us:
      return search_plane<Pair::us>(a, b);
    case Pair::vh:
      return search_plane<Pair::vh>(a, b);
    case Pair::vs:
      return search_plane<Pair::vs>(a, b);
    case Pair::vu:
      return search_plane<Pair::vu>(a, b);
    case Pair::vx:
      return first_of(wet_states(Quantity::v, a, b, 1));
  }
  return {};
}

Solutions locate_all(Pair pair, double a, double b) {
  const Known& k = known_of(pair);
  if (k.second != Quantity::x && pair != Pair::pt) {
    if (k.first == Quantity::p) {
      return along_isobar(a, k.second, b, t_lowest);
    }
    if (k.first == Quantity::t) {
      return along_isotherm(a, k.second, b);
    }
  }
  Solutions solutions;
  if (pair == Pair::sx || pair == Pair::vx) {
    const WetStates wet = wet_states(k.first, a, b, WetStates::capacity);
    for (int i = 0; i < wet.count; ++i) {
      solutions.add(wet.sites[i]);
    }
    return solutions;
  }
  const Site site = locate(pair, a, b);
  if (site) {
    solutions.add(site);
  }
  return solutions;
}

}  // namespace steam
