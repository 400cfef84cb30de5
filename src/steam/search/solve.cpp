#include "steam/search/solve.hpp"

#include <algorithm>

#include "steam/search/lines.hpp"
#include "steam/search/plane_lines.hpp"
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

/// @param only_first  only the first one is wanted
/// By searches along the line of the value that leaves one variable open everywhere.
Solutions line_search_of(Pair pair, double a, double b, const Site* known, bool only_first) {
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
  return in_plane(Isentrope(b), {k.first, a, known});
}

}  // namespace

Quick solve(Pair pair, double a, double b, Parts wanted, Basis& basis) {
  Quick quick = quick_search(pair, a, b, wanted, basis);
  if (quick.is_first) {
    return quick;
  }
  const Solutions all = line_search_of(pair, a, b, nullptr, true);
  Quick found;
  found.evaluations = quick.evaluations + all.evaluations;
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
  all.evaluations += quick.evaluations;
  return all;
}

}  // namespace steam
