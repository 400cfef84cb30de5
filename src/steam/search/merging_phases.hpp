#pragma once

#include "steam/search/mixed_quantity.hpp"
#include "steam/search/wet_states.hpp"

namespace steam {

/// Above and below the jump of the saturated volumes, within a millikelvin of the critical point.
constexpr double above_jump = t_jump + 1e-8, below_jump = t_jump - 1e-8;

/// The states of a mixed quantity where the two phases merge and the table does not tell all.
/// @param states  takes them
/// @return        where a bracket closed on a jump, °C; 0 if none did
double where_phases_merge(const MixedQuantity& target, WetList& states);

}  // namespace steam
