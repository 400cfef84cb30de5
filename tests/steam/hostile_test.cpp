#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <vector>

#include "answers.hpp"
#include "round_trips.hpp"
#include "support/edges.hpp"

namespace {

/// Values anywhere between the limits of a quantity, by size and by magnitude, and any doubles.
double hostile(char letter, std::mt19937_64& random) {
  const double share = std::uniform_real_distribution(0.0, 1.0)(random);
  const auto choice = random() % 8;
  if (choice < 2) {
    return choice == 0 ? std::bit_cast<double>(random()) : std::exp(40 * share - 20);
  }
  return letter == 'p'   ? 0.0061 * std::pow(1000 / 0.0061, share)
         : letter == 'v' ? 9.5e-4 * std::pow(811 / 9.5e-4, share * share)
         : letter == 't' ? 801 * share
         : letter == 'h' ? 4160 * share
         : letter == 'u' ? 3665 * share
         : letter == 's' ? 11.93 * share - 0.01
                         : share;
}

TEST(Hostile, AnyPairOfDoublesEndsInAStateThatHasItOrAReason) {
  std::mt19937_64 random(67);
  for (const steam::Pair pair : answers::all_pairs) {
    for (int n = 0; n < 3000; ++n) {
      const double first = hostile(round_trips::name(pair)[0], random);
      const double second = hostile(round_trips::name(pair)[1], random);
      EXPECT_EQ(answers::fault_of_any(pair, first, second), "");
    }
  }
}

TEST(Hostile, LimitsAndTheirNeighbours) {
  std::vector<double> values{not_a_number, inf, -inf};
  for (const double x : {0.0, -0.0, 0.006112444, 1000.0, 0.01, 350.0, 374.15, 590.0, 800.0, 221.2,
                         165.3512406, 0.00317, 1.0, 5e-324}) {
    values.insert(values.end(), {x, up(x), down(x)});
  }
  for (const steam::Pair pair : answers::all_pairs) {
    for (const double first : values) {
      for (const double second : values) {
        EXPECT_EQ(answers::fault_of_any(pair, first, second), "");
      }
    }
  }
}

}  // namespace
