#pragma once

#include <string>
#include <vector>

#include "given.hpp"

namespace command {

/// What the classic module says of a pair.
struct ClassicAnswer {
  int region = 0;
  bool is_placed = false;
  int flag = 0;
  std::string diagnostics;     ///< all lines
  std::vector<double> values;  ///< of `classic_properties`, in the engine's units
};

/// The properties that the module has.
std::vector<steam::Property> classic_properties();

/// @outside  throws Failure when the module has no finder for the pair
ClassicAnswer ask_classic(const Given& given);

}  // namespace command
