#pragma once

#include <string>
#include <vector>

#include "vek/steam.hpp"
#include "vek/vek.h"

/// The classic module with its diagnostic lines. Calls must not overlap, as those of the module.
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

/// The engine beside the module.
struct Answer : steam::Comparison {
  std::string diagnostics;  ///< all lines of the request
};

/// @param number  as of `steam::compare`
Answer compare(steam::Pair pair, double first, double second, std::size_t number);

/// The properties that are compared.
std::vector<steam::Property> classic_properties();

}  // namespace comparison
