#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "answers.hpp"
#include "round_trips.hpp"

namespace {

using steam::Pair;

/// Values anywhere between the limits of a quantity, by size and by magnitude, and any doubles.
double hostile(char letter, std::mt19937_64& random) {
  const double share = std::uniform_real_distribution(0.0, 1.0)(random);
  switch (random() % 8) {
    case 0:
      return std::bit_cast<double>(random());
    case 1:
      return std::exp(40 * share - 20);
    default:
      break;
  }
  switch (letter) {
    case 'p':
      return std::exp(std::log(0.0061) + share * std::log(1000 / 0.0061));
    case 't':
      return 801 * share;
    case 'v':
      return std::exp(std::log(9.5e-4) + share * share * std::log(811 / 9.5e-4));
    case 'h':
      return 4160 * share;
    case 's':
      return 11.93 * share - 0.01;
    case 'u':
      return 3665 * share;
    default:
      return share;
  }
}

void check(std::size_t pair, double first, double second) {
  EXPECT_EQ(answers::fault_of_any(static_cast<Pair>(pair), first, second), "");
}

TEST(Hostile, AnyPairOfDoublesEndsInAStateThatHasItOrAReason) {
  std::mt19937_64 random(67);
  constexpr int count = 3000;
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    const char* letters = round_trips::name(static_cast<Pair>(i));
    for (int n = 0; n < count; ++n) {
      const double first = hostile(letters[0], random);
      check(i, first, hostile(letters[1], random));
    }
  }
}

TEST(Hostile, LimitsAndTheirNeighbours) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<double> values{0.0,    -0.0,     0.006112444, 1000,  0.01,        350,
                             374.15, 590,      800,         221.2, 165.3512406, 0.00317,
                             1,      infinity, -infinity,   nan,   5e-324};
  for (std::size_t i = values.size(); i-- > 0;) {
    values.push_back(std::nextafter(values[i], infinity));
    values.push_back(std::nextafter(values[i], -infinity));
  }
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    for (const double first : values) {
      for (const double second : values) {
        check(i, first, second);
      }
    }
  }
}

}  // namespace
