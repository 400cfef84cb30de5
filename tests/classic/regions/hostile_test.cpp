#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "support/allocations.hpp"
#include "support/edges.hpp"
#include "survey.hpp"
#include "vek/vek.h"

// Input that no state has: the finders end on it, and leave one of their codes.

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double hostile[] = {not_a_number, inf,    -inf,        0,      -0.0,    -1,
                              -273.15,      5e-324, -1e-310,     1e-300, largest, -largest,
                              1e-3,         0.5,    4.442864888, 300,    374.15,  2500};

class Hostile : public testing::TestWithParam<survey::Finder> {};

TEST_P(Hostile, PairsEndWithACodeInTheFinderAndInARequest) {
  std::array<double, 9> result{};
  for (const double first : hostile) {
    for (const double second : hostile) {
      double a = first;
      double b = second;
      double tolerance = 1e-8;
      const int region = GetParam().find(&a, &b, &tolerance);
      EXPECT_TRUE(region >= 1 && region <= 7) << first << ", " << second << ": " << region;
      vek(GetParam().find, &first, &second, "P,T,V,H,S,X,CP,DV,TC ", result.data());
    }
  }
}

TEST_P(Hostile, TolerancesEndAndFindersDoNotAllocate) {
  for (const survey::Band& band : survey::bands()) {
    for (int k = 0; k < 20; ++k) {
      const survey::State state = survey::state_in(band, k);
      double a = state.*GetParam().first, b = state.*GetParam().second;
      std::array<double, 9> result{};
      const long before = allocations();
      if (GetParam().applies_to(band)) {
        vek(GetParam().find, &a, &b, "P,T,V,H,S,X,CP,DV,TC,??? ", result.data());
      }
      EXPECT_EQ(allocations(), before) << band.name;
      const auto tolerances = {0.0, -1.0, 1.0, inf, not_a_number};
      double tolerance = tolerances.begin()[k % 5];
      const int region = GetParam().find(&a, &b, &tolerance);
      EXPECT_TRUE(region >= 0 && region <= 7) << band.name << ": " << region;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Finders, Hostile, testing::ValuesIn(survey::finders()),
                         [](const auto& finder) { return finder.param.name; });

}  // namespace
