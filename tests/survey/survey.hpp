#pragma once

#include <string>
#include <vector>

#include "states.hpp"
#include "vek/vek.h"

namespace survey {

/// A finder and the two values of a state that it is given.
struct Finder {
  std::string name;  // the pair
  VekFinder find;
  double State::*first;
  double State::*second;

  /// Single phases have no quality, and a pressure and temperature do not place a wet state.
  bool applies_to(const Band& band) const;
};

const std::vector<Finder>& finders();

/// What a finder leaves: its code and the evaluation pair, whose first is p, v or x by the region.
struct Answer {
  int region;
  double first, t;
  bool flagged, unconverged;  // the error flag was raised, a solver warned
};

/// The tolerance that the finders are given.
constexpr double finder_tolerance = 1e-8;

Answer ask(const Finder& finder, const State& state);

/// Largest error of the evaluation pair that a finder left in the state's region: relative, of
/// qualities absolute, of t relative to 0 K.
double error_of(const State& state, const Answer& answer);

/// How a finder does in a band. Shares are of all states; errors of those placed right.
struct Result {
  double placed_right;                 // share in the region the state was made in
  double median_error, largest_error;  // relative; of qualities absolute, of t relative to 0 K
  double flagged;                      // share with the error flag raised
  double unconverged;                  // share with a solver's warning
  double evaluations;                  // mean number of evaluations of the equations
};

/// Evaluations of the equations and of the saturation line so far.
long evaluations();

/// Places `count` states of a band with a finder.
Result place_all(const Finder& finder, const Band& band, int count);

}  // namespace survey
