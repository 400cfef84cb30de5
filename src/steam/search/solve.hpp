#pragma once

#include "steam/search/quick.hpp"

namespace steam {

/// The state of a pair that counts, of region none when there is none; the values must be in the
/// ranges that `refusal` checks.
/// @param wanted  parts of the basis that had better come along; what did is in the result
Quick solve(Pair pair, double first, double second, Parts wanted, Basis& basis);

/// All states of a pair, that one first.
Solutions solve_all(Pair pair, double first, double second);

}  // namespace steam
