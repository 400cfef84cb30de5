#pragma once

#include "steam/equations/basis.hpp"
#include "steam/search/solutions.hpp"
#include "steam/tables/charts.hpp"

namespace steam {

/// What the quick search has found, and what is sure of it.
struct Quick {
  Site site{};
  bool is_first = false;  ///< surely the state that counts, if the pair belongs to several
  bool is_only = false;   ///< surely the only one
  Parts has{};            ///< parts of the basis that came along
};

/// The state of a pair by a Newton step or a few from the chart. It is sure of the state far enough
/// inside a subregion, and beside a boundary where the neighbour tells; else of nothing.
/// @param wanted  parts of the basis that had better come along
Quick quick_search(Pair pair, double first, double second, Parts wanted, Basis& basis);

}  // namespace steam
