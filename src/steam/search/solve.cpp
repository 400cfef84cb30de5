#include "steam/search/solve.hpp"

#include <algorithm>

#include "steam/search/lines.hpp"
#include "steam/search/plane_lines.hpp"
#include "steam/search/saturated.hpp"
#include "steam/search/wet_states.hpp"

namespace steam {
namespace {

/// The state that counts, then the others from the highest temperature down. Those of one
/// temperature are found in their order: from the lowest pressure up.
Solutions sorted(Solutions solutions) {
  auto& sites = solutions.sites;
  sort_short(sites, [](const Site& a, const Site& b) { return a.t > b.t; });
  const auto first = std::min_element(sites.begin(), sites.end(), [](const Site& a, const Site& b) {
    return rank(a.region) < rank(b.region);
  });
  std::rotate(sites.begin(), first, first == sites.end() ? first : first + 1);
  return solutions;
}

template <class Line>
Solutions in_plane(Line line, Target target) {
  const Pieces pieces = pieces_of(line);
  return sorted(along(line, pieces, target));
}

Solutions of_quality(Quantity q, double value, double x, bool only_first) {
  WetStates wet = wet_states(q, value, x, only_first);
  if (wet.all.sites.empty() && wet.nearest) {
    wet.all.sites.add(wet.nearest);
  }
  // Of the hottest two on the two sides of 350 °C the lower one counts, else the hotter one.
  auto& sites = wet.all.sites;
  constexpr double overlap = 0.5;  // K
  if (sites.size() > 1 && sites[0].t > t_350 && sites[1].t <= t_350 &&
      sites[0].t - sites[1].t < overlap) {
    std::swap(sites[0], sites[1]);
  }
  return wet.all;
}

/// Along the coldest isotherm entropy hardly depends on pressure. Where an isentrope ends there,
/// the other value tells the pressure with more digits.
Solutions at_coldest(double s, Target target) {
  IsothermLine coldest(t_lowest);
  Solutions found;
  for (const Site& site : along(coldest, coldest.pieces(), target).sites) {
    constexpr double room = 4;
    if (site.region == Region::water &&
        std::abs(quantity(site, Quantity::s) - s) <= room * rounding(Quantity::s, s)) {
      found.add(site);
    }
  }
  return found;
}

Solutions of_entropy(double s, Target target) {
  const Solutions found = in_plane(Isentrope(s), target);
  const bool ends_cold = found.sites.size() == 1 && found.sites[0].t == t_lowest;
  if (found.sites.empty() || ends_cold) {
    const Solutions cold = at_coldest(s, target);
    return cold.sites.empty() ? found : cold;
  }
  return found;
}

/// By searches along the line of the value that leaves one variable open everywhere.
/// @param only_first  only the first one is wanted
Solutions along_line_of(Pair pair, double a, double b, const Site* known, bool only_first) {
  const Known& k = known_of(pair);
  if (k.second == Quantity::x) {
    return of_quality(k.first, a, b, only_first);
  }
  if (k.first == Quantity::p) {
    Isobar line(a);
    return sorted(along(line, line.pieces(), {k.second, b, known}));
  }
  if (k.first == Quantity::t) {
    IsothermLine line(a);
    return along(line, line.pieces(), {k.second, b, known});
  }
  if (k.first == Quantity::v) {
    return in_plane(Isochore(a), {k.second, b, known});
  }
  if (k.second == Quantity::u) {
    return in_plane(Isenthalp(a), {k.second, b, known});
  }
  return of_entropy(b, {k.first, a, known});
}

bool is_beyond_ends(const Site& site) { return is_wet(site.region) && (site.x < 0 || site.x > 1); }

/// A wet state whose quality rounding has taken beyond its ends: the state of one phase beside
/// them. To 350 °C, where the steps of the two phases are wide, the end itself.
Site beside_end(Site site) {
  if (site.region == Region::wet_above_350 && !site.approximate) {
    const double v = saturated_ends(Quantity::v, site.t, site.p).mixed(site.x);
    const Region region = site.x < 0 ? Region::hot_water : Region::dense_steam;
    return at_volume(region, sloped_quantity(region, Quantity::p, {v, site.t}).value, v, site.t);
  }
  site.x = std::clamp(site.x, 0.0, 1.0);
  return site;
}

/// Each state once: mostly the one of a single phase has been found too.
Solutions within_ends(const Solutions& all) {
  Solutions kept;
  const auto has_another = [&](const Site& site) {
    constexpr double same = 1e-6;  // K
    return std::any_of(all.sites.begin(), all.sites.end(), [&](const Site& other) {
      return !is_wet(other.region) && std::abs(other.t - site.t) < same;
    });
  };
  for (const Site& site : all.sites) {
    if (!is_beyond_ends(site)) {
      kept.sites.add(site);
    } else if (!has_another(site)) {
      kept.sites.add(beside_end(site));
    }
  }
  return kept;
}

Solutions line_search_of(Pair pair, double a, double b, const Site* known, bool only_first) {
  return within_ends(along_line_of(pair, a, b, known, only_first));
}

}  // namespace

Quick solve(Pair pair, double a, double b, Parts wanted, Basis& basis) {
  Quick quick = quick_search(pair, a, b, wanted, basis);
  if (quick.is_first) {
    return quick;
  }
  const Solutions all = line_search_of(pair, a, b, nullptr, true);
  Quick found;
  if (!all.sites.empty()) {
    found.site = all.sites[0];
    found.is_first = true;
    found.is_only = all.sites.size() == 1;
  }
  return found;
}

Solutions solve_all(Pair pair, double a, double b) {
  Basis basis;
  const Quick quick = quick_search(pair, a, b, nothing, basis);
  Solutions all;
  if (quick.is_only) {
    all.sites.add(quick.site);
  } else {
    all = line_search_of(pair, a, b, quick.is_first ? &quick.site : nullptr, false);
  }
  return all;
}

}  // namespace steam
