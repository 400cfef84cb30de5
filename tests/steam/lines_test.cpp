#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "vek/steam.hpp"

// Lines of constant entropy and of constant volume through every boundary between regions. Along an
// isentrope dh = v dp, along an isochore du = T ds; what the steps have besides is a jump.

namespace {

using steam::Pair;
using steam::State;

constexpr int steps = 20000;
constexpr double misfit = 0.25;  // kJ/kg: of the equations where they meet
/// kJ/kg, of the sums over a step; and in wet steam the formulation meets Clapeyron's equation to
/// some 1e-4 only.
constexpr double rounding = 2e-4;

bool is_at_boundary(const State& a, const State& b) {
  return a.region != b.region || a.approximate || b.approximate;
}

/// @param excess  energy that the step has besides what the line's law gives it
void check_step(const State& last, const State& now, double excess) {
  ASSERT_LE(std::abs(excess), is_at_boundary(last, now) ? misfit : rounding)
      << "from " << last.p << " bar, " << last.t << " °C";
}

/// Other pairs find the same state, or beside a boundary one that is as good.
void check_same(const State& state, Pair pair, double first, double second) {
  const steam::Result r = steam::state(pair, first, second);
  ASSERT_TRUE(r) << state.p << " bar, " << state.t << " °C";
  constexpr double overlap = 0.7, same = 1e-6;  // K
  ASSERT_NEAR(r->t, state.t, is_at_boundary(state, *r) ? overlap : same);
}

/// Up to 1000 bar or 800 °C.
void follow_isentrope(double s) {
  constexpr double p_lowest = 0.006112444, p_highest = 1000;
  State last = *steam::state(Pair::ps, p_lowest, s);
  for (int i = 1; i <= steps && !testing::Test::HasFatalFailure(); ++i) {
    const double share = static_cast<double>(i) / steps;
    const double p = std::min(p_lowest * std::pow(p_highest / p_lowest, share), p_highest);
    const steam::Result r = steam::state(Pair::ps, p, s);
    if (!r) {
      ASSERT_GT(last.t, 799) << p;
      return;
    }
    ASSERT_GE(r->t, last.t) << p;
    ASSERT_GE(r->h, last.h - (is_at_boundary(last, *r) ? misfit : 0)) << p;
    check_step(last, *r, r->h - last.h - 50 * (r->p - last.p) * (r->v + last.v));
    check_same(*r, Pair::hs, r->h, r->s);
    last = *r;
  }
}

TEST(Lines, OfConstantEntropy) {
  for (const double s : {0.1, 2.0, 3.5, 3.7, 3.75, 3.8, 4.2, 4.45, 4.9, 5.1, 5.2, 5.25, 5.3, 6.3}) {
    SCOPED_TRACE(s);
    follow_isentrope(s);
  }
}

/// Up to 800 °C or 1000 bar.
void follow_isochore(double v) {
  constexpr double t_lowest = 0.01, t_highest = 800;
  State last = *steam::state(Pair::tv, t_lowest, v);
  for (int i = 1; i <= steps && !testing::Test::HasFatalFailure(); ++i) {
    const double t = std::min(t_lowest + (t_highest - t_lowest) * i / steps, t_highest);
    const steam::Result r = steam::state(Pair::tv, t, v);
    if (!r) {
      ASSERT_GT(last.p, 999) << t;
      return;
    }
    const double fall = is_at_boundary(last, *r) ? misfit : 0;
    ASSERT_GE(r->u, last.u - fall) << t;
    ASSERT_GE(r->h, last.h - fall) << t;
    ASSERT_GE(r->p, last.p * (is_at_boundary(last, *r) ? 1 - 1e-3 : 1)) << t;
    const double T = (last.t + r->t) / 2 + 273.15;
    check_step(last, *r, r->u - last.u - T * (r->s - last.s));
    check_same(*r, Pair::vu, v, r->u);
    check_same(*r, Pair::vh, v, r->h);
    last = *r;
  }
}

TEST(Lines, OfConstantVolume) {
  for (const double v : {0.00105, 0.0012, 0.00135, 0.0015, 0.0017, 0.00175, 0.0022, 0.003, 0.00317,
                         0.0035, 0.005, 0.007, 0.0087, 0.0089, 0.02, 1.0}) {
    SCOPED_TRACE(v);
    follow_isochore(v);
  }
}

}  // namespace
