#pragma once

#include <string_view>
#include <vector>

#include "units.hpp"

namespace command {

/// Values of one property from a list such as "0.01,5:370:5,374.15": single ones, which may have a
/// unit, and ranges FROM:TO:STEP. A range that begins within a hundredth of a step beside a
/// multiple of the step, as 0.01:374:5, goes on with the multiples: 0.01, 5, 10, ….
/// @return   in the engine's unit, in the list's order
/// @outside  throws Failure
std::vector<double> parse_ranges(std::string_view list, steam::Property property,
                                 const Units& units);

}  // namespace command
