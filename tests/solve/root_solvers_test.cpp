#include "solve/root_solvers.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "api/vek.h"
#include "frame/error_flag.hpp"
#include "solve/solver_expectations.hpp"
#include "support/diagnostic_lines.hpp"
#include "support/edges.hpp"

using namespace classic;

namespace {

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
double unknown_first(const double* x, const double* param) {
  EXPECT_EQ(param, &parameter);
  return at(*x);
}
double with_tolerance(const double* x, const double* param, double* eps) {
  EXPECT_EQ(param, &parameter);
  EXPECT_EQ(eps, &tolerance);
  return at(*x);
}

struct Problem {
  Curve curve;
  double target, x1, x2, eps;
};

/// All that a caller can observe.
struct Outcome {
  double root, x1, x2;
  std::vector<double> evaluated;
  std::string text;
};

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

Outcome solve(Solver solver, const Problem& problem) {
  DiagnosticLines lines;
  set_error_flag(0);
  curve = problem.curve;
  evaluated.clear();
  tolerance = problem.eps;
  Outcome out{0, problem.x1, problem.x2, {}, {}};
  out.root = solver(&problem.target, &out.x1, &out.x2);
  out.evaluated = evaluated;
  out.text = lines.take();
  EXPECT_EQ(ErrorCount, 0) << "a warning is no report";
  EXPECT_EQ(VEKHasError(), out.text.empty() ? 0 : 2);
  return out;
}

/// 0 below the root and 2 from it on: with the target 1, each false-position point is a middle.
Curve step(double root) {
  return [root](double x) { return std::isnan(x) ? x : x < root ? 0.0 : 2.0; };
}
Curve with(double value, double at, const Curve& f) {
  return [=](double x) { return x == at ? value : f(x); };
}
Curve nan_at(double gap, const Curve& f) { return with(not_a_number, gap, f); }
double twice(double x) { return 2 * x; }

}  // namespace

// All numbers are sums of powers of two, so that each step can be followed by hand.
TEST(BracketingSolvers, EvaluateInTheStatedOrderAndLeaveTheirBracketToTheCaller) {
  const Curve ends_at_8th = [](double x) { return x == 1 ? 1.125 : 0.0; };
  struct Row {
    const char* what;
    Problem problem;
    std::vector<double> evaluated;
    double root, x1, x2;
  };
  const Row rows[] = {
      {"left half twice",
       {step(1.3), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.25, 1.375, 1.3125},
       1.28125,
       1.25,
       1.3125},
      {"right half twice",
       {step(1.7), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.75, 1.625, 1.6875},
       1.71875,
       1.6875,
       1.75},
      {"ends in reverse",
       {step(1.3), 1, 2, 1, 0.125},
       {2, 1, 1.5, 1.25, 1.375, 1.3125},
       1.28125,
       1.3125,
       1.25},
      {"root at x1", {twice, 2, 1, 2, 1e-8}, {1}, 1, 1, 2},
      {"root at x2", {twice, 4, 1, 2, 1e-8}, {1, 2}, 2, 1, 2},
      {"root at the false-position point", {twice, 3, 1, 2, 1e-8}, {1, 2, 1.5}, 1.5, 1, 2},
      {"a negative target", {twice, -3, -2, -1, 1e-8}, {-2, -1, -1.5}, -1.5, -2, -1},
      {"residual of just the tolerance is no root",
       {ends_at_8th, 1, 1, 1.0625, 0.125},
       {1, 1.0625},
       1.03125,
       1,
       1.0625},
      {"narrow from the start",
       {step(-1.03), 1, -1.0625, -1, 0.125},
       {-1.0625, -1},
       -1.03125,
       -1.0625,
       -1},
      {"not narrow at just the tolerance",
       {step(1.1), 1, 1, 1.125, 0.125},
       {1, 1.125, 1.0625, 1.09375},
       1.109375,
       1.09375,
       1.125},
      {"root in the middle of the left half",
       {with(1, 1.25, step(1.3)), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.25, 1.25},
       1.25,
       1.25,
       1.5},
      {"root in the middle of the right half",
       {with(1, 1.75, step(1.7)), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.75, 1.75},
       1.75,
       1.5,
       1.75},
      {"not a number at x1", {nan_at(1, step(1.3)), 1, 1, 2, 0.125}, {1}, 1, 1, 2},
      {"not a number at x2", {nan_at(2, step(1.3)), 1, 1, 2, 0.125}, {1, 2}, 2, 1, 2},
      {"not a number at the false-position point",
       {nan_at(1.5, step(1.3)), 1, 1, 2, 0.125},
       {1, 2, 1.5},
       1.5,
       1,
       2},
      {"not a number in the middle of the left half",
       {nan_at(1.25, step(1.3)), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.25, not_a_number},
       not_a_number,
       1,
       1.25},
      {"not a number in the middle of the right half",
       {nan_at(1.75, step(1.7)), 1, 1, 2, 0.125},
       {1, 2, 1.5, 1.75, not_a_number},
       not_a_number,
       1.75,
       2},
  };
  for (const Row& row : rows) {
    for (const Solver solver : {qi1, qi2, qi3}) {
      SCOPED_TRACE(row.what);
      const Outcome out = solve(solver, row.problem);
      expect_same(out.evaluated, row.evaluated);
      EXPECT_TRUE(same(out.root, row.root)) << out.root;
      EXPECT_EQ(out.x1, row.x1);
      EXPECT_EQ(out.x2, row.x2);
      EXPECT_EQ(out.text, "");
    }
  }
}

// The tolerance of the residual is zero then: only the width of the bracket ends the iteration, and
// the product of residuals that is exactly zero keeps the right part.
TEST(BracketingSolvers, EndByWidthAloneWhenTheTargetIsZero) {
  for (const Solver solver : {qi1, qi2, qi3}) {
    const Outcome out = solve(solver, {[](double x) { return x - 0.5; }, 0, 0, 1, 0x1p-10});
    EXPECT_EQ(out.root, 0.5 + 0x1p-13);
    EXPECT_EQ(out.x1, 0.5);
    EXPECT_EQ(out.evaluated.size(), 24U);
  }
}

TEST(BracketingSolvers, GoToTheirLimitAtX1ZeroAndDifferInWhatTheyReturn) {
  struct Row {
    Solver solver;
    const char* code;
    double root;
  };
  const Row rows[] = {
      {qi1, "VEKQI1", 0x1p-79}, {qi2, "VEKQI2-a", 0x1p-81}, {qi3, "VEKQI3", 0x1p-79}};
  for (const Row& row : rows) {
    const Outcome out = solve(row.solver, {step(0x1p-1000), 1, 0, 1, 0x1p-10});
    EXPECT_EQ(out.root, row.root) << row.code;
    EXPECT_EQ(out.x1, 0);
    EXPECT_EQ(out.x2, 0x1p-80);
    EXPECT_EQ(out.evaluated.size(), 82U);
    EXPECT_EQ(out.text, warning(row.code));
  }
}

TEST(BracketingSolvers, DoNotAskThatTheStartValuesEncloseTheRoot) {
  for (const Solver solver : {qi1, qi3}) {
    const Outcome outside = solve(solver, {twice, 10, 1, 2, 1e-8});
    EXPECT_EQ(outside.root, 5);
    expect_same(outside.evaluated, {1, 2, 5});
    const Outcome equal = solve(solver, {twice, 10, 2, 2, 1e-8});
    EXPECT_EQ(equal.root, 2);
    expect_same(equal.evaluated, {2, 2});
    const Outcome zeros = solve(solver, {twice, 10, 0, 0, 1e-8});
    EXPECT_TRUE(std::isnan(zeros.root)) << "0 / 0 is not guarded";
    expect_same(zeros.evaluated, {0, 0, not_a_number});
  }
}

TEST(SecantSolver, BeginsAt00045WhenTheStartValuesDoNotEncloseTheRoot) {
  const Outcome out = solve(qi2, {twice, 10, 1, 2, 1e-8});
  EXPECT_NEAR(out.root, 5, 1e-14);
  expect_same(out.evaluated, {1, 2, 0.0045, out.root});
  EXPECT_EQ(out.x1, 0.0045);
  EXPECT_EQ(out.x2, 2);
  EXPECT_EQ(out.text, "");
}

TEST(SecantSolver, EvaluatesEachNewPointTwice) {
  const Outcome out = solve(qi2, {[](double x) { return x * x; }, 4, 3, 5, 1e-10});
  EXPECT_NEAR(out.root, 2, 1e-9);
  const auto& x = out.evaluated;
  ASSERT_GT(x.size(), 8U);
  ASSERT_EQ(x.size() % 2, 0U);
  expect_same({x.begin(), x.begin() + 3}, {3, 5, 0.0045});
  for (std::size_t i = 3; i + 1 < x.size(); i += 2) {
    EXPECT_EQ(x[i], x[i + 1]);
  }
  EXPECT_EQ(out.root, x.back());
  EXPECT_EQ(out.x1, x[x.size() - 2]);
  EXPECT_EQ(out.x2, x[x.size() - 4]);
}

TEST(SecantSolver, ReturnsItsLastPointAtTheLimit) {
  const Outcome out = solve(qi2, {[](double x) { return 1 + x * x; }, 0.5, 1, 2, 1e-10});
  EXPECT_EQ(out.evaluated.size(), 82U);
  EXPECT_EQ(out.root, out.evaluated.back());
  EXPECT_EQ(out.x1, out.root);
  EXPECT_EQ(out.text, warning("VEKQI2-b"));
}

TEST(SecantSolver, IsChosenByTheSignOfTheProductOfBothResiduals) {
  struct Row {
    double f1, f2;
    bool secant;
  };
  const Row rows[] = {{1, 1, true}, {-1, -1, true}, {-1, 1, false},
                      {0, 1, true}, {-1, 0, true},  {inf, 0, false}};  // inf · 0: not a number
  for (const Row& row : rows) {
    const Curve f = [&row](double x) { return x == 1 ? row.f1 : x == 2 ? row.f2 : not_a_number; };
    const Outcome out = solve(qi2, {f, 0, 1, 2, 1e-8});
    ASSERT_GE(out.evaluated.size(), 3U);
    EXPECT_EQ(out.evaluated[2] == 0.0045, row.secant) << row.f1 << ' ' << row.f2;
  }
}
