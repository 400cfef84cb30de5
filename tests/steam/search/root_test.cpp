#include "steam/search/root.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// Functions on which published root finders are tried: steep, flat, multiple, with a jump, with a
// slope that misleads. Each with its slope and without it, where secants take its place.

namespace {

using steam::Slope;

struct Function {
  const char* name;
  Slope (*f)(double);
  double low, high, root;
  int most;  // evaluations
  double error = 1e-15;
};

constexpr Function functions[]{
    {"line",
     [](double x) {
       return Slope{x - 3, 1};
     },
     0, 10, 3, 4},
    {"square",
     [](double x) {
       return Slope{x * x - 2, 2 * x};
     },
     0, 100, 1.4142135623730951, 20},
    {"steep",
     [](double x) {
       return Slope{std::exp(x) - 1e8, std::exp(x)};
     },
     0, 100, 18.420680743952367, 20},
    {"a step",
     [](double x) {
       return Slope{std::atan(1e6 * (x - 1)), 1e6 / (1 + 1e12 * (x - 1) * (x - 1))};
     },
     0, 7, 1, 30},
    {"pole",
     [](double x) {
       return Slope{1e3 - 1 / x, 1 / (x * x)};
     },
     1e-9, 1, 1e-3, 20},
    {"waves",
     [](double x) {
       return Slope{x - 2 + std::sin(9 * x) / 10, 1 + 0.9 * std::cos(9 * x)};
     },
     0, 9, 2.0438985361606012, 15},
    {"triple",
     [](double x) {
       return Slope{std::pow(x - 1, 3), 3 * (x - 1) * (x - 1)};
     },
     0, 3.3, 1, 90, 1e-10},
    {"ninefold",
     [](double x) {
       return Slope{std::pow(x - 1, 9), 9 * std::pow(x - 1, 8)};
     },
     0, 3.3, 1, 90, 2e-8},
    {"jump",
     [](double x) {
       return Slope{x < 1 ? -1.0 : 1.0, 0};
     },
     0, 3, 1, 60},
    {"wrong slope",
     [](double x) {
       return Slope{x - 2, -1};
     },
     0, 9, 2, 60, 2e-15},
};

/// Rising, or falling, over a bracket in either order.
void check(const Function& function, bool with_slope, double start, bool rises) {
  int calls = 0;
  const auto f = [&](double x) {
    EXPECT_TRUE(x >= function.low && x <= function.high) << x;
    ++calls;
    const Slope y = function.f(x);
    const double sign = rises ? 1 : -1;
    return Slope{sign * y.value,
                 with_slope ? sign * y.derivative : std::numeric_limits<double>::quiet_NaN()};
  };
  const double from = rises ? function.low : function.high;
  const steam::Root root = steam::root(f, from, function.low + function.high - from, start, rises);
  EXPECT_TRUE(root.found);
  EXPECT_EQ(root.evaluations, calls);
  EXPECT_LE(calls, function.most);
  EXPECT_NEAR(root.x, function.root, function.error * (1 + function.root));
}

TEST(Root, IsFoundInFewEvaluations) {
  for (const Function& function : functions) {
    SCOPED_TRACE(function.name);
    for (const double start : {function.low, function.high, HUGE_VAL}) {
      for (const bool rises : {true, false}) {
        check(function, true, start, rises);
        check(function, false, start, rises);
      }
    }
  }
}

/// Where there is none: the end that is nearest to one.
TEST(Root, IsNotFoundWithoutAChangeOfSign) {
  for (const bool rises : {true, false}) {
    const steam::Root root = steam::root([](double x) { return Slope{x + 1, 1}; }, 1, 5, 4, rises);
    EXPECT_LE(root.evaluations, 120);
    EXPECT_NEAR(root.x, rises ? 1 : 5, 1e-12);
  }
  const auto nowhere = [](double) { return Slope{NAN, NAN}; };
  EXPECT_LE(steam::root(nowhere, 1, 2, 1.5, true).evaluations, 120);
}

}  // namespace
