#pragma once

#include "given.hpp"
#include "sheet.hpp"

namespace command {

/// What the classic module says of a pair; its diagnostic lines go to standard error.
struct ClassicSheet {
  Sheet sheet;
  bool good;  ///< flag 0, and for a comparison the same state as the engine's
};

/// @param wanted  empty: all that the module has
/// @outside       throws Failure when the module places no state
ClassicSheet classic_sheet(const Given& given, const std::vector<steam::Property>& wanted,
                           const Units& units);

/// The engine's values, the module's, and their differences.
ClassicSheet comparison(const Given& given, const std::vector<steam::Property>& wanted,
                        const Units& units);

}  // namespace command
