#pragma once

#include <optional>

#include "steam/diagrams/diagram.hpp"

namespace steam::diagrams {

/// All states that have one property in common, in order: a pair, of which one value is held and
/// the other runs so that every line goes through all regions without a gap.
struct Run {
  Pair pair;
  bool holds_first;
  double held;
  bool logarithmic;
  FixedList<double, 4> stations;  ///< of the other: both ends, and the corners at saturation if the
                                  ///< way from one to the other is short in one phase

  /// The pair after so many pieces of the way, which lie between the stations.
  [[nodiscard]] std::array<double, 2> at(double way) const;
  [[nodiscard]] int pieces() const { return static_cast<int>(stations.size()) - 1; }
};

/// The line of a property's value on a diagram. Isobars and isotherms end at the limits of the
/// formulation; the ends of the others may lie beyond.
Run run_of(const DiagramRow& diagram, Property property, double value);

}  // namespace steam::diagrams
