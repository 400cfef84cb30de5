#pragma once

#include "survey.hpp"

/// `--compare` over states of the whole range, beside what is known of each.
namespace comparisons {

struct Counts {
  int states = 0;
  int misplaced = 0;             ///< the module leaves another state, or none
  int differ = 0;                ///< a difference is reported
  int unnoticed = 0;             ///< misplaced without a difference
  int reported = 0;              ///< a difference although the module is right
  double first = 0, second = 0;  ///< the last pair that was unnoticed or reported for nothing
};

Counts compare(const survey::Finder& finder, const survey::Band& band, int count);

}  // namespace comparisons
