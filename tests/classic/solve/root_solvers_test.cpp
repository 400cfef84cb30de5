#include "classic/solve/root_solvers.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "classic/frame/error_flag.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

/// The line that says that a solver reached its limit.
std::string warning(const std::string& code) {
  return "*** VEKFTN-WARNING: Maximum number of iterations exceeded (code: " + code + ") ***\n";
}

void expect_same(const std::vector<double>& values, const std::vector<double>& expected) {
  ASSERT_EQ(values.size(), expected.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_TRUE(same(values[i], expected[i])) << "number " << i << " is " << values[i];
  }
}

using Curve = std::function<double(double)>;

/// The function being solved: a curve that records where it is evaluated.
Curve curve;
std::vector<double> evaluated;

const double parameter = 7;
double tolerance;

double at(double x) {
  evaluated.push_back(x);
  return curve(x);
}
double parameter_first(const double* param, const double* x) {
  EXPECT_EQ(param, &parameter);
  return at(*x);
}
double unknown_first(const double* x, const double* param) { return parameter_first(param, x); }
double with_tolerance(const double* x, const double* param, double* eps) {
  EXPECT_EQ(eps, &tolerance);
  return parameter_first(param, x);
}

using Solver = double (*)(const double* target, double* x1, double* x2);
double qi1(const double* target, double* x1, double* x2) {
  return VEKQI1(parameter_first, &parameter, target, x1, x2, &tolerance);
}
double qi2(const double* target, double* x1, double* x2) {
  return VEKQI2(unknown_first, &parameter, target, x1, x2, &tolerance);
}
double qi3(const double* target, double* x1, double* x2) {
  return VEKQI3(with_tolerance, &parameter, target, x1, x2, &tolerance);
}

/// The first of two nested functions, and the second one's value, which is solved to be 3.
using Outer = std::function<double(double, double)>;
Outer outer;

double F(const double* y, const double* x) {
  evaluated.push_back(*x);
  return outer(*y, *x);
}
double G(const double* y, const double* /*x*/) { return *y; }

/// All that a caller can observe.
struct Outcome {
  double root, x1, x2;
  std::vector<double> evaluated;
  std::string text;
  double y_low = 1, y_high = 5;
};

template <class Solve>
Outcome observed(double x1, double x2, const Solve& solve) {
  DiagnosticLines lines;
  set_error_flag(0);
  evaluated.clear();
  Outcome out{0, x1, x2, {}, {}};
  solve(out);
  out.evaluated = evaluated;
  out.text = lines.take();
  EXPECT_EQ(ErrorCount, 0) << "a warning is no report";
  EXPECT_EQ(VEKHasError(), out.text.empty() ? 0 : 2);
  return out;
}

Outcome solve(Solver solver, const Curve& f, double target, double x1, double x2, double eps) {
  curve = f;
  tolerance = eps;
  return observed(x1, x2, [&](Outcome& out) { out.root = solver(&target, &out.x1, &out.x2); });
}

Outcome nested(const Outer& f, double target, double x1, double x2) {
  outer = f;
  return observed(x1, x2, [&](Outcome& out) {
    const double eps = 0.125, inner = 3;
    EXPECT_EQ(VEKQID(F, &target, G, &inner, &out.y_low, &out.y_high, &out.x1, &out.x2, &eps), 0);
  });
}

/// 0 below the root and 2 from it on: with the target 1, each false-position point is a middle.
Curve step(double root) {
  return [root](double x) { return std::isnan(x) ? x : x < root ? 0.0 : 2.0; };
}
Outer outer_step(double root) {
  return [root](double, double x) { return x < root ? 0.0 : 2.0; };
}
Curve with(double value, double at, const Curve& f) {
  return [=](double x) { return x == at ? value : f(x); };
}
double twice(double x) { return 2 * x; }
double product(double y, double x) { return y * x; }

struct Search {
  Curve curve;
  double x1, x2;
  std::vector<double> evaluated;
  double root, x1_left, x2_left;
  double target = 1, eps = 0.125;
};

}  // namespace

// All numbers are sums of powers of two, so that each step can be followed by hand.
TEST(BracketingSolvers, EvaluateInTheStatedOrderAndLeaveTheirBracketToTheCaller) {
  const Curve ends_at_8th = [](double x) { return x == 1 ? 1.125 : 0.0; };
  const double nan = not_a_number;
  const Search rows[] = {
      // A half is kept twice: the left one, the right one, and with the ends in reverse.
      {step(1.3), 1, 2, {1, 2, 1.5, 1.25, 1.375, 1.3125}, 1.28125, 1.25, 1.3125},
      {step(1.7), 1, 2, {1, 2, 1.5, 1.75, 1.625, 1.6875}, 1.71875, 1.6875, 1.75},
      {step(1.3), 2, 1, {2, 1, 1.5, 1.25, 1.375, 1.3125}, 1.28125, 1.3125, 1.25},
      // A root at either end or at the false-position point; the last target is negative.
      {twice, 1, 2, {1}, 1, 1, 2, 2, 1e-8},
      {twice, 1, 2, {1, 2}, 2, 1, 2, 4, 1e-8},
      {twice, 1, 2, {1, 2, 1.5}, 1.5, 1, 2, 3, 1e-8},
      {twice, -2, -1, {-2, -1, -1.5}, -1.5, -2, -1, -3, 1e-8},
      // Just the tolerance is no root; narrow from the start, and not at just the tolerance.
      {ends_at_8th, 1, 1.0625, {1, 1.0625}, 1.03125, 1, 1.0625},
      {step(-1.03), -1.0625, -1, {-1.0625, -1}, -1.03125, -1.0625, -1},
      {step(1.1), 1, 1.125, {1, 1.125, 1.0625, 1.09375}, 1.109375, 1.09375, 1.125},
      // A root in the middle of the left and of the right half.
      {with(1, 1.25, step(1.3)), 1, 2, {1, 2, 1.5, 1.25, 1.25}, 1.25, 1.25, 1.5},
      {with(1, 1.75, step(1.7)), 1, 2, {1, 2, 1.5, 1.75, 1.75}, 1.75, 1.5, 1.75},
      // Not a number at each place.
      {with(nan, 1, step(1.3)), 1, 2, {1}, 1, 1, 2},
      {with(nan, 2, step(1.3)), 1, 2, {1, 2}, 2, 1, 2},
      {with(nan, 1.5, step(1.3)), 1, 2, {1, 2, 1.5}, 1.5, 1, 2},
      {with(nan, 1.25, step(1.3)), 1, 2, {1, 2, 1.5, 1.25, nan}, nan, 1, 1.25},
      {with(nan, 1.75, step(1.7)), 1, 2, {1, 2, 1.5, 1.75, nan}, nan, 1.75, 2},
  };
  for (const Search& row : rows) {
    SCOPED_TRACE(testing::Message() << "row " << &row - rows);
    for (const Solver solver : {qi1, qi2, qi3}) {
      const Outcome out = solve(solver, row.curve, row.target, row.x1, row.x2, row.eps);
      expect_same(out.evaluated, row.evaluated);
      expect_same({out.root, out.x1, out.x2}, {row.root, row.x1_left, row.x2_left});
      EXPECT_EQ(out.text, "");
    }
  }
}

// The tolerance of the residual is zero then: only the width of the bracket ends the iteration, and
// the product of residuals that is exactly zero keeps the right part.
TEST(BracketingSolvers, EndByWidthAloneWhenTheTargetIsZero) {
  for (const Solver solver : {qi1, qi2, qi3}) {
    const Outcome out = solve(
        solver, [](double x) { return x - 0.5; }, 0, 0, 1, 0x1p-10);
    EXPECT_EQ(out.root, 0.5 + 0x1p-13);
    EXPECT_EQ(out.x1, 0.5);
    EXPECT_EQ(out.evaluated.size(), 24U);
  }
}

TEST(BracketingSolvers, GoToTheirLimitAtX1ZeroAndDifferInWhatTheyReturn) {
  const std::tuple<Solver, const char*, double> rows[] = {
      {qi1, "VEKQI1", 0x1p-79}, {qi2, "VEKQI2-a", 0x1p-81}, {qi3, "VEKQI3", 0x1p-79}};
  for (const auto& [solver, code, root] : rows) {
    const Outcome out = solve(solver, step(0x1p-1000), 1, 0, 1, 0x1p-10);
    expect_same({out.root, out.x1, out.x2}, {root, 0, 0x1p-80});
    EXPECT_EQ(out.evaluated.size(), 82U);
    EXPECT_EQ(out.text, warning(code));
  }
}

TEST(BracketingSolvers, DoNotAskThatTheStartValuesEncloseTheRoot) {
  for (const Solver solver : {qi1, qi3}) {
    expect_same(solve(solver, twice, 10, 1, 2, 1e-8).evaluated, {1, 2, 5});
    const Outcome equal = solve(solver, twice, 10, 2, 2, 1e-8);
    EXPECT_EQ(equal.root, 2);
    expect_same(equal.evaluated, {2, 2});
    // 0 / 0 is not guarded.
    expect_same(solve(solver, twice, 10, 0, 0, 1e-8).evaluated, {0, 0, not_a_number});
  }
}

TEST(SecantSolver, ReturnsItsLastPointAtTheLimit) {
  const Outcome out = solve(
      qi2, [](double x) { return 1 + x * x; }, 0.5, 1, 2, 1e-10);
  EXPECT_EQ(out.evaluated.size(), 82U);
  EXPECT_EQ(out.root, out.evaluated.back());
  EXPECT_EQ(out.x1, out.root);
  EXPECT_EQ(out.text, warning("VEKQI2-b"));
}

TEST(SecantSolver, IsChosenByTheSignOfTheProductOfBothResiduals) {
  const std::tuple<double, double, bool> rows[] = {
      {1, 1, true}, {-1, -1, true}, {-1, 1, false},
      {0, 1, true}, {-1, 0, true},  {inf, 0, false}};  // inf · 0: not a number
  for (const auto& row : rows) {
    const auto f = [&row](double x) {
      return x == 1 ? std::get<0>(row) : x == 2 ? std::get<1>(row) : not_a_number;
    };
    const Outcome out = solve(qi2, f, 0, 1, 2, 1e-8);
    ASSERT_GE(out.evaluated.size(), 3U);
    EXPECT_EQ(out.evaluated[2] == 0.0045, std::get<2>(row));
  }
}

TEST(NestedSolver, TestsForConvergenceAtTheTopAndReturnsTheLastPoint) {
  struct Row {
    Outer outer;
    double target, x1, x2;
    std::vector<double> x;
    double solution;
  };
  const auto no_number = [](double, double) { return not_a_number; };
  const Row rows[] = {
      {product, 4.5, 1, 2, {1, 2, 1.5, 1.75}, 1.5},  // the halving after a root is still made
      {product, 3, 1, 2, {1, 2}, 1},                 // root at x1: x2 is evaluated all the same
      {product, 6, 1, 2, {1, 2, 2, 2}, 2},           // root at x2 is not seen as such
      {product, 4.5, 1, 1, {1, 1}, 1},               // narrow from the start
      // Narrow: the last point, not the middle.
      {outer_step(1.3), 1, 1, 2, {1, 2, 1.5, 1.25, 1.375, 1.3125}, 1.375},
      {no_number, 1, 1, 2, {1, 2}, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.target);
    const Outcome out = nested(row.outer, row.target, row.x1, row.x2);
    expect_same(out.evaluated, row.x);
    expect_same({out.x1, out.x2, out.y_low, out.y_high}, {row.solution, row.solution, 3, 3});
    EXPECT_EQ(out.text, "");
  }
}

TEST(NestedSolver, WritesNoResultAtItsLimit) {
  const Outcome out = nested(outer_step(0x1p-1000), 1, 0, 1);
  EXPECT_EQ(out.evaluated.size(), 82U);
  expect_same({out.x1, out.x2, out.y_low, out.y_high}, {0, 0x1p-80, 1, 5});
  EXPECT_EQ(out.text, warning("VEKQID"));
}
