#pragma once

#include "steam/basis_of.hpp"

namespace steam {

/// The basis of a state that belongs to a pair, as far as the needs go. The given values come back
/// as they are; only an approximate state has its own in place of the second.
/// @param basis  holds the parts that `has` names
void complete_for_pair(Basis& basis, Pair pair, double first, double second, const Site& site,
                       const Needs& needs, Parts has);

/// The basis of a pair's state.
/// @return  why there is no state; the basis then is of no meaning
Reason basis_of_pair(Pair pair, double first, double second, const Needs& needs, Basis& basis);

/// The properties that a caller wants, by their numbers, and what they need together.
struct Wanted {
  Wanted(std::size_t count, const int* properties);
  std::size_t count;
  const int* properties;
  Needs needs;
};

/// Calls write(i, value) with each wanted property of a pair's state, missing when there is none.
/// @return  why there is no state
template <class Write>
Reason answer(Pair pair, double first, double second, const Wanted& wanted, const Write& write) {
  Basis basis;
  const Reason reason = basis_of_pair(pair, first, second, wanted.needs, basis);
  const bool wet = is_wet(basis.region);
  for (std::size_t i = 0; i < wanted.count; ++i) {
    const PropertyRow& row = property_rows[static_cast<std::size_t>(wanted.properties[i])];
    write(i, reason == Reason::none ? value_of(row, basis, wet) : missing);
  }
  return reason;
}

}  // namespace steam
