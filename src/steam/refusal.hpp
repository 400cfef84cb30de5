#pragma once

#include "steam/site.hpp"

namespace steam {

/// Checks each of the two values by itself.
Refusal refusal(Pair pair, double first, double second);

/// What to say when both values are possible but no state has them.
Refusal no_state();

}  // namespace steam
