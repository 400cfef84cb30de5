#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "classic/solve/root_solvers.hpp"
#include "classic/solve/solver_expectations.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

/// The two functions: the outer one, recording where in x; the inner one is y, solved to be 3.
using Outer = std::function<double(double, double)>;
Outer outer;
std::vector<double> evaluated;

double F(const double* y, const double* x) {
  evaluated.push_back(*x);
  return outer(*y, *x);
}
double G(const double* y, const double* /*x*/) { return *y; }

struct Problem {
  Outer outer;
  double target, x1 = 1, x2 = 2;
};
struct Outcome {
  double x1, x2, ylo = 1, yhi = 5;
  std::string text = {};
};

Outcome solve(const Problem& problem) {
  const double eps = 0.125;
  const double target_inner = 3;
  DiagnosticLines lines;
  outer = problem.outer;
  evaluated.clear();
  Outcome out{problem.x1, problem.x2};
  EXPECT_EQ(
      VEKQID(F, &problem.target, G, &target_inner, &out.ylo, &out.yhi, &out.x1, &out.x2, &eps), 0);
  out.text = lines.take();
  return out;
}

double product(double y, double x) { return y * x; }
Outer outer_step(double root) {
  return [root](double, double x) { return x < root ? 0.0 : 2.0; };
}

}  // namespace

TEST(NestedSolver, TestsForConvergenceAtTheTopAndReturnsTheLastPoint) {
  struct Row {
    Problem problem;
    std::vector<double> x;
    double solution;
  };
  const auto no_number = [](double, double) { return not_a_number; };
  const Row rows[] = {
      {{product, 4.5}, {1, 2, 1.5, 1.75}, 1.5},  // the halving after a root is still made
      {{product, 3}, {1, 2}, 1},                 // root at x1: x2 is evaluated all the same
      {{product, 6}, {1, 2, 2, 2}, 2},           // root at x2 is not seen as such
      {{product, 4.5, 1, 1}, {1, 1}, 1},         // narrow from the start
      // Narrow: the last point, not the middle.
      {{outer_step(1.3), 1}, {1, 2, 1.5, 1.25, 1.375, 1.3125}, 1.375},
      {{no_number, 1}, {1, 2}, 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.problem.target);
    const Outcome out = solve(row.problem);
    expect_same(evaluated, row.x);
    EXPECT_EQ(out.x1, row.solution);
    EXPECT_EQ(out.x2, row.solution);
    EXPECT_EQ(out.ylo, 3);
    EXPECT_EQ(out.yhi, 3);
    EXPECT_EQ(out.text, "");
  }
}

TEST(NestedSolver, WritesNoResultAtItsLimit) {
  const Outcome out = solve({outer_step(0x1p-1000), 1, 0, 1});
  EXPECT_EQ(evaluated.size(), 82U);
  EXPECT_EQ(out.x1, 0);
  EXPECT_EQ(out.x2, 0x1p-80);
  EXPECT_EQ(out.ylo, 1);
  EXPECT_EQ(out.yhi, 5);
  EXPECT_EQ(out.text, warning("VEKQID"));
  EXPECT_EQ(VEKHasError(), 2);
}
