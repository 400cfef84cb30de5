#pragma once

#include <string>
#include <vector>

#include "vek/steam.hpp"
#include "vek/vek.h"

/// What the classic module answers, put as the engine puts it. Calls must not overlap, as those of
/// the module.
namespace comparison {

/// The module's finder for a pair; null when it has none.
VekFinder finder_of(steam::Pair pair);

/// A request with all that came of it.
struct Reply {
  std::vector<double> values;  ///< NaN in slots without a value
  int flag;
  std::string diagnostics;  ///< all lines
};

/// @param list   ends in a separator
/// @param items  how many it has
Reply request(VekFinder finder, double first, double second, const std::string& list,
              std::size_t items);

/// All properties of a state.
struct ClassicAnswer {
  int region;
  bool is_placed;
  Reply reply;  ///< values of `classic_properties`, in the engine's units
};

/// The properties that the module has.
std::vector<steam::Property> classic_properties();

ClassicAnswer ask_classic(VekFinder finder, double first, double second);

}  // namespace comparison
