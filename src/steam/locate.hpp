#pragma once

#include "steam/lines.hpp"
#include "steam/site.hpp"

namespace steam {

/// The state of a pair, of region none when there is none. The values must be in the ranges that
/// `refusal` checks.
Site locate(Pair pair, double first, double second);

/// All states of a pair, the preferred one first.
Solutions locate_all(Pair pair, double first, double second);

/// State of a volume or an entropy and one more quantity by nested searches along isotherms or
/// isobars: sure where the quick iteration fails, about a hundred times as slow.
Site nested_search(Pair pair, double first, double second);

}  // namespace steam
