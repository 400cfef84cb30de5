#pragma once

#include <cmath>
#include <utility>

#include "steam/equations/site.hpp"

namespace steam {

/// Which of two states of one pair counts where subregions overlap: the one to 350 °C, there the
/// one of a single phase; above, steam at the boundary line.
constexpr int rank(Region region) {
  switch (region) {
    case Region::water:
      return 0;
    case Region::steam:
      return 1;
    case Region::wet:
      return 2;
    case Region::hot_water:
    case Region::dense_steam:
      return 3;
    default:
      return 4;
  }
}

/// Sorts a list of a few items, of equal ones none past another.
template <class List, class Before>
void sort_short(List& list, Before before) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    for (std::size_t k = i; k > 0 && before(list[k], list[k - 1]); --k) {
      std::swap(list[k], list[k - 1]);
    }
  }
}

/// The states of a pair.
struct Solutions {
  FixedList<Site, 8> sites;

  /// A state at the end of two pieces counts once.
  void add(const Site& site) {
    constexpr double same = 1e-9;
    for (Site& other : sites) {
      if (std::abs(other.t - site.t) <= same && std::abs(other.p - site.p) <= same * site.p &&
          !(is_wet(other.region) && is_wet(site.region) && std::abs(other.x - site.x) > same)) {
        if (rank(site.region) < rank(other.region)) {
          other = site;
        }
        return;
      }
    }
    sites.add(site);
  }
};

}  // namespace steam
