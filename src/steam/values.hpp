#pragma once

#include "steam/properties.hpp"

namespace steam {

/// The wanted properties of a pair's state, NaN when there is none.
Reason values_of(Pair pair, double first, double second, Wanted wanted, Values& out);

}  // namespace steam
