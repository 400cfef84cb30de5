#include "survey/evaluations.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "answers.hpp"
#include "round_trips.hpp"
#include "survey/boundary_states.hpp"

// How many evaluations a call may take at the most, inner iterations included. One takes 20 to 40
// ns.

namespace {

using steam::Pair;

/// Of the pairs with p, with t, with x, and of the others; each away from the critical point and,
/// where the isotherms are so flat that every step needs the saturated volumes anew, within 0.3 K
/// of it.
struct Limit {
  long away, critical;
};

Limit limit_of(Pair pair) {
  const char* letters = round_trips::name(pair);
  return letters[1] == 'x'   ? Limit{700, 1000}
         : letters[0] == 'p' ? Limit{800, 300}
         : letters[0] == 't' ? Limit{120, 200}
         : pair == Pair::hu  ? Limit{1000, 1300}  // its lines turn, and it has no chart
                             : Limit{800, 1100};
}

class MostEvaluations : public testing::TestWithParam<Pair> {};

TEST_P(MostEvaluations, AreBounded) {
  const Pair pair = GetParam();
  std::mt19937_64 random(1967);
  long most_away = 0, most_critical = 0;
  for (const auto& boundary : boundary_states::boundaries()) {
    for (int i = 0; i < 45 && boundary_states::applies(pair, boundary); ++i) {
      const auto origin = boundary.beside(random);
      const auto state = steam::state(origin.pair, origin.first, origin.second);
      if (!state) {
        continue;
      }
      const auto [first, second] = round_trips::given(pair, *state);
      const long before = evaluations::count_all();
      const steam::Results all = steam::states(pair, first, second);
      const bool critical = std::any_of(all.begin(), all.end(), [](const steam::State& s) {
        return std::abs(s.t - 374.15) < 0.3;
      });
      long& most = critical || all.empty() ? most_critical : most_away;
      most = std::max(most, evaluations::count_all() - before);
    }
  }
  RecordProperty("away", static_cast<int>(most_away));
  RecordProperty("critical", static_cast<int>(most_critical));
  EXPECT_LE(most_away, limit_of(pair).away);
  EXPECT_LE(most_critical, limit_of(pair).critical);
  EXPECT_GT(most_away, 0);  // they are counted
}

INSTANTIATE_TEST_SUITE_P(All, MostEvaluations, testing::ValuesIn(answers::all_pairs),
                         [](const auto& test) {
                           return std::string(round_trips::name(test.param));
                         });

}  // namespace
