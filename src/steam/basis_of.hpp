#pragma once

#include "steam/property_table.hpp"

namespace steam {

/// What is needed of the basis of a state, without the transport of one phase.
/// @param has  parts that the search has left in the basis already
void complete(Basis& basis, const Site& site, const Needs& needs, const Parts& has);

/// What a wet state of quality 0 or 1 has of its only phase.
void take_one_phase(Basis& basis, const Basis& phase);

/// The basis of a saturated phase of a wet state.
Basis saturated_phase(const Site& wet, bool vapour, const Needs& needs);

}  // namespace steam
