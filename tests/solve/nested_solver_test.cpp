#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "api/vek.h"
#include "solve/root_solvers.hpp"
#include "solve/solver_expectations.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"

using namespace classic;

namespace {

/// The two functions of the nested solver, recording.
struct Point {
  double y, x;
};
std::function<double(double, double)> outer;
std::vector<Point> outer_evaluated;
std::function<double(double, double)> inner;
std::vector<double> inner_evaluated;

double F(const double* y, const double* x) {
  outer_evaluated.push_back({*y, *x});
  return outer(*y, *x);
}
double G(const double* y, const double* x) {
  inner_evaluated.push_back(*y);
  return inner(*y, *x);
}

struct NestedProblem {
  std::function<double(double, double)> outer;
  double target_outer;
  double x1 = 1, x2 = 2, eps = 0.125;
  std::function<double(double, double)> inner = [](double y, double) { return y; };
  double target_inner = 3, ylo = 1, yhi = 5;
};
struct NestedOutcome {
  double x1, x2, ylo, yhi;
  std::vector<double> x;  // where F was evaluated
  std::string text;
};

NestedOutcome solve(const NestedProblem& problem) {
  DiagnosticLines lines;
  outer = problem.outer;
  inner = problem.inner;
  outer_evaluated.clear();
  inner_evaluated.clear();
  NestedOutcome out{problem.x1, problem.x2, problem.ylo, problem.yhi, {}, {}};
  EXPECT_EQ(VEKQID(F, &problem.target_outer, G, &problem.target_inner, &out.ylo, &out.yhi, &out.x1,
                   &out.x2, &problem.eps),
            0);
  for (const Point& point : outer_evaluated) {
    out.x.push_back(point.x);
  }
  out.text = lines.take();
  return out;
}

double product(double y, double x) { return y * x; }
std::function<double(double, double)> outer_step(double root) {
  return [root](double, double x) { return x < root ? 0.0 : 2.0; };
}

}  // namespace

TEST(NestedSolver, TestsForConvergenceAtTheTopAndReturnsTheLastPoint) {
  struct Row {
    const char* what;
    NestedProblem problem;
    std::vector<double> x;
    double solution;
  };
  const Row rows[] = {
      {"the halving after a root is still made", {product, 4.5}, {1, 2, 1.5, 1.75}, 1.5},
      {"root at x1: x2 is evaluated all the same", {product, 3}, {1, 2}, 1},
      {"root at x2 is not seen as such", {product, 6}, {1, 2, 2, 2}, 2},
      {"narrow from the start", {product, 4.5, 1, 1}, {1, 1}, 1},
      {"narrow: the last point, not the middle",
       {outer_step(1.3), 1},
       {1, 2, 1.5, 1.25, 1.375, 1.3125},
       1.375},
      {"not a number at x1", {[](double, double) { return not_a_number; }, 1}, {1, 2}, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const NestedOutcome out = solve(row.problem);
    expect_same(out.x, row.x);
    EXPECT_EQ(out.x1, row.solution);
    EXPECT_EQ(out.x2, row.solution);
    EXPECT_EQ(out.ylo, 3);
    EXPECT_EQ(out.yhi, 3);
    EXPECT_EQ(out.text, "");
  }
}

TEST(NestedSolver, PassesTheInnerUnknownFirst) {
  NestedProblem problem{[](double y, double x) { return y + 10 * x; }, 18.5};
  problem.inner = [](double y, double x) { return y - x; };
  problem.target_inner = 2;
  const NestedOutcome out = solve(problem);
  EXPECT_EQ(out.x1, 1.5);
  EXPECT_EQ(out.ylo, 3.5);
}

TEST(NestedSolver, BeginsEachInnerSolutionFromTheSameStartValues) {
  solve({product, 4.5});
  expect_same(inner_evaluated, {1, 5, 3, 1, 5, 3, 1, 5, 3, 1, 5, 3});
}

// The tolerance 1/16 gives 1/32 within.
TEST(NestedSolver, SolvesWithinToThePower125OfItsTolerance) {
  NestedProblem problem{product, 100, 1, 1, 0.0625};
  problem.target_inner = 1;
  problem.ylo = 1.03126;
  solve(problem);
  EXPECT_GT(inner_evaluated.size(), 2U);
  problem.ylo = 1.03124;
  const NestedOutcome out = solve(problem);
  EXPECT_EQ(inner_evaluated.size(), 2U);
  EXPECT_EQ(out.ylo, 1.03124);
}

TEST(NestedSolver, WritesNoResultAtItsLimit) {
  const NestedOutcome out = solve({outer_step(0x1p-1000), 1, 0, 1});
  EXPECT_EQ(out.x.size(), 82U);
  EXPECT_EQ(out.x1, 0);
  EXPECT_EQ(out.x2, 0x1p-80);
  EXPECT_EQ(out.ylo, 1);
  EXPECT_EQ(out.yhi, 5);
  EXPECT_EQ(out.text, warning("VEKQID"));
  EXPECT_EQ(VEKHasError(), 2);
}
