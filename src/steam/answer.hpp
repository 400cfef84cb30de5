#pragma once

#include <optional>

#include "steam/basis_of.hpp"

namespace steam {

/// The basis of a state that belongs to a pair, as far as the needs go. The given values come back
/// as they are; only an approximate state has its own in place of the second.
/// @param basis  holds the parts that `has` names
void complete_for_pair(Basis& basis, Pair pair, double first, double second, const Site& site,
                       const Needs& needs, const Parts& has);

/// The properties that a caller wants, by their numbers, and what they need together.
struct Wanted {
  Wanted(std::size_t count, const int* properties);
  std::size_t count;
  const int* properties;
  Needs needs, of_liquid, of_vapour;

 private:
  [[gnu::noinline]] void add_of_phase(Property property);
};

/// The state of a pair that counts, with what is wanted of it.
class Answer {
 public:
  Answer(Pair pair, double first, double second, const Wanted& wanted);
  /// One of the states of a pair.
  /// @param site     where it is
  /// @param several  whether there are others
  Answer(const Site& site, bool several, Pair pair, double first, double second,
         const Wanted& wanted);
  /// Why there is no state.
  [[nodiscard]] Reason reason() const { return reason_; }
  /// A wanted property, missing without a state.
  [[nodiscard]] double operator[](Property property) const {
    return number_of(property) < liquid_numbers ? value_of(row_of(property), basis_, kind_)
                                                : of_phase(property);
  }

 private:
  void complete_at(const Site& site, Pair pair, double first, double second, const Wanted& wanted,
                   const Parts& has);
  [[gnu::noinline]] void add_phases(const Site& site, const Wanted& wanted);
  [[nodiscard]] double of_phase(Property property) const;

  Reason reason_ = Reason::none;
  Exists kind_ = nowhere;
  Basis basis_;
  std::optional<Basis> liquid_, vapour_;
};

/// Calls write(i, value) with each wanted property of a pair's state, missing when there is none.
/// @return  why there is no state
template <class Write>
Reason answer(Pair pair, double first, double second, const Wanted& wanted, const Write& write) {
  const Answer state(pair, first, second, wanted);
  for (std::size_t i = 0; i < wanted.count; ++i) {
    write(i, state[static_cast<Property>(wanted.properties[i])]);
  }
  return state.reason();
}

}  // namespace steam
