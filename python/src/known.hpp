#pragma once

#include <array>
#include <string>

#include "conversion.hpp"
#include "vek/steam.hpp"

namespace python {

/// The properties that can be given are the first of the engine's table.
constexpr int quantity_count = VEK_STEAM_X + 1;

/// The pair that two properties make, whichever is named first.
struct Known {
  int pair = VEK_STEAM_NO_SUCH_PAIR;
  bool swapped = false;  ///< the pair's second property was named first
};

/// @param first, second  numbers of properties that can be given
Known known_of(int first, int second);

/// What Python calls a property: its letter, with "_" for what no name can have, and behind a word
/// of the language. A saturated phase's ends in "_liquid" or "_vapour".
/// @param property  as vek_steam_evaluate takes it
std::string identifier(int property);

/// Of a property, also of a saturated phase.
const Conversion& conversion_of(int property);

/// Takes a pair's values from SI units to the engine's.
void from_si(int pair, double& first, double& second);

}  // namespace python
