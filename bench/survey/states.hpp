#pragma once

#include <string>
#include <vector>

namespace survey {

/// A state computed forwards, from the pair on which its region is evaluated.
struct State {
  int region;
  double p, t, v, h, s, u, x;  // x is not a number for a single phase
};

/// A part of the range in which the finders behave alike.
struct Band {
  std::string name;
  int region;
  State (*state)(double a, double b);  // spreads the states over the band, a and b in (0, 1)
};

const std::vector<Band>& bands();

/// Number k of a sequence that covers a band evenly.
State state_in(const Band& band, int k);

}  // namespace survey
