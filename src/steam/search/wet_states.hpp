#pragma once

#include "steam/search/solutions.hpp"

namespace steam {

/// Wet states of one quality, found from the highest temperature down.
class WetList {
 public:
  explicit WetList(double x) : x_(x) {}
  /// Neighbouring searches may find the same solution.
  void add(double t);
  [[nodiscard]] const Solutions& all() const { return all_; }

 private:
  double x_;
  Solutions all_;
};

/// Wet states of a quality and a volume, an enthalpy, an entropy or an energy.
struct WetStates {
  Solutions all;  ///< from the highest temperature down
  Site nearest;   ///< if there is none: of the two sides of a gap, the nearer
};
/// @param only_first  ends as soon as no state that counts before can follow
WetStates wet_states(Quantity q, double value, double x, bool only_first = false);

}  // namespace steam
