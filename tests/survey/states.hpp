#pragma once

#include <string>
#include <vector>

namespace survey {

/// A state computed forwards, from the pair on which its region is evaluated.
struct State {
  int region;
  double p, t, v, h, s, u, x;  // x is not a number for a single phase
};

/// The state of a region at its evaluation pair.
/// @param first  p in regions 1 and 2, v in 3 and 4, x in 5 and 6
State state_at(int region, double first, double t);

/// A part of the range in which the finders behave alike: temperatures, and between the limits of
/// its region pressures or qualities.
struct Band {
  std::string name;
  int region;
  double t_low, t_high, low, high;
};

const std::vector<Band>& bands();

/// Number k of a sequence that covers a band evenly.
State state_in(const Band& band, int k);

}  // namespace survey
