#pragma once

#include "steam/site.hpp"

namespace steam {

/// A set of properties.
class Wanted {
 public:
  constexpr Wanted() = default;
  constexpr Wanted(std::initializer_list<Property> properties) {
    for (const Property p : properties) {
      add(p);
    }
  }
  constexpr void add(Property p) { bits_ |= bit(p); }
  constexpr void add(Wanted more) { bits_ |= more.bits_; }
  [[nodiscard]] constexpr bool has(Property p) const { return (bits_ & bit(p)) != 0; }
  [[nodiscard]] constexpr bool within(Wanted other) const { return (bits_ & ~other.bits_) == 0; }
  /// Those that are in both sets.
  [[nodiscard]] constexpr Wanted both(Wanted other) const {
    Wanted common;
    common.bits_ = bits_ & other.bits_;
    return common;
  }
  [[nodiscard]] constexpr bool any(Wanted other) const { return (bits_ & other.bits_) != 0; }

 private:
  static constexpr unsigned bit(Property p) { return 1U << static_cast<unsigned>(p); }
  unsigned bits_ = 0;
};

/// Values by `Property`; those that were not wanted are of no meaning.
using Values = std::array<double, property_count>;
inline double& at(Values& values, Property p) { return values[static_cast<std::size_t>(p)]; }

/// The wanted properties of a state.
void properties(const Site& site, Wanted wanted, Values& out);

/// A phase from all its properties.
Phase phase_of(const Values& values);

/// One of the saturated phases of a wet state, as a state of one phase.
Site saturated_liquid(const Site& wet);
Site saturated_vapour(const Site& wet);

}  // namespace steam
