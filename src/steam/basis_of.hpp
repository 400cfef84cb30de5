#pragma once

#include "steam/property_table.hpp"

namespace steam {

/// What is needed of the basis of a state.
/// @param has  parts that the search has left in the basis already
void complete(Basis& basis, const Site& site, const Needs& needs, Parts has);

/// Viscosity and conductivity as needed, from v and t.
void complete_transport(Basis& basis, const Needs& needs);

/// The basis of a saturated phase of a wet state.
Basis saturated_phase(const Site& wet, bool vapour, const Needs& needs);

}  // namespace steam
