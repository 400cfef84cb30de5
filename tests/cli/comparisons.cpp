#include "comparisons.hpp"

#include <algorithm>

#include "classic_sheet.hpp"
#include "failure.hpp"

namespace comparisons {
namespace {

steam::Pair pair_of(const survey::Finder& finder) {
  const std::vector<steam::Pair> pairs = command::all_pairs();
  return *std::find_if(pairs.begin(), pairs.end(),
                       [&](steam::Pair pair) { return finder.name == steam::info(pair).letters; });
}

/// The module may leave another of them.
bool has_several(const survey::Finder& finder, double first, double second) {
  return steam::states(pair_of(finder), first, second).size() > 1;
}

/// What the command makes of the pair: false where it reports a difference.
bool agrees(const survey::Finder& finder, double first, double second) {
  try {
    return command::comparison({pair_of(finder), first, second}, {}, command::Units()).good;
  } catch (const command::Failure&) {
    return false;  // the module places no state
  }
}

}  // namespace

Counts compare(const survey::Finder& finder, const survey::Band& band, int count) {
  // Between the two are states whose pair tells them to few digits, and the critical point's.
  constexpr double right = 1e-7, wrong = 1e-2;
  Counts counts;
  for (int i = 0; i < count; ++i) {
    const survey::State state = survey::state_in(band, i);
    const double first = state.*finder.first, second = state.*finder.second;
    const survey::Answer answer = survey::ask(finder, state);
    const bool other = answer.region != state.region;
    const double error = other ? 0 : survey::error_of(state, answer);
    const bool agreed = agrees(finder, first, second);
    const bool unnoticed =
        (other || !(error < wrong)) && agreed && !has_several(finder, first, second);
    const bool reported = !other && error < right && !agreed;
    ++counts.states;
    counts.misplaced += other || !(error < wrong);
    counts.differ += !agreed;
    counts.unnoticed += unnoticed;
    counts.reported += reported;
    if (unnoticed || reported) {
      counts.first = first;
      counts.second = second;
    }
  }
  return counts;
}

}  // namespace comparisons
