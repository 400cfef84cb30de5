#pragma once

#include "steam/properties.hpp"

namespace steam {

/// The wanted properties of a pair of p and h, s or u from the chart and one evaluation: in water
/// and steam the chart's temperature is so near that a single step, of the properties as of the
/// temperature, reaches the rounding.
/// @return  false, with `out` of no meaning, where that is not so, beside boundaries, and for
///          other pairs and properties
bool direct_values(Pair pair, double first, double second, Wanted wanted, Values& out);

}  // namespace steam
