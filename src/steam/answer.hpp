#pragma once

#include "steam/basis_of.hpp"

namespace steam {

/// The basis of a state that belongs to a pair, as far as the needs go. The given values come back
/// as they are; only an approximate state has its own in place of the second.
/// @param basis  holds the parts that `has` names
void complete_for_pair(Basis& basis, Pair pair, double first, double second, const Site& site,
                       const Needs& needs, Parts has);

/// The needs of some properties together.
Needs needs_of(std::span<const Property> wanted);

/// The basis of a pair's state.
/// @return  why there is no state; the basis then is of no meaning
Reason answer(Pair pair, double first, double second, const Needs& needs, Basis& basis);

}  // namespace steam
