#pragma once

#include <cmath>
#include <optional>

namespace classic {

constexpr int iteration_limit = 40;

/// The ends of a bracket and their residuals.
struct Bracket {
  double x1, x2, f1, f2;
};

struct Root {
  double x;
  bool found;  // false: the limit was reached, and x is the last false-position point
};

/// Residual test; a residual that is not a number passes.
inline bool vanishes(double f, double tolerance) { return !(std::abs(f) >= tolerance); }

/// Product test; a product that is not a number counts as negative.
inline bool of_opposite_sign(double f, double g) { return !(f * g >= 0); }

inline bool is_narrow(double eps, double x1, double x2) {
  return eps * std::abs(x1) > std::abs(x1 - x2);
}

inline double false_position(const Bracket& b) {
  return b.x1 + (b.x2 - b.x1) * b.f1 / (b.f1 - b.f2);
}

/// Halves the part of the bracket that holds the root, seen from the point xs with the residual fs.
template <class F>
void narrow(const F& residual, Bracket& b, double xs, double fs) {
  if (of_opposite_sign(b.f1, fs)) {
    const double xm = (b.x1 + xs) * 0.5;
    const double fm = residual(xm);
    if (b.f1 * fm >= 0) {
      b = {xm, xs, fm, fs};
    } else {
      b.x2 = xm;
      b.f2 = fm;
    }
  } else {
    const double xm = (b.x2 + xs) * 0.5;
    const double fm = residual(xm);
    if (b.f2 * fm >= 0) {
      b = {xs, xm, fs, fm};
    } else {
      b.x1 = xm;
      b.f1 = fm;
    }
  }
}

/// Writes the line that says that a solver reached its limit.
void warn_of_limit(const char* code);

/// False position and halving from a bracket whose residuals are known.
/// @param b  holds the final ends on return
template <class F>
Root bracket(const F& residual, Bracket& b, double eps, double tolerance) {
  double xs = 0;
  for (int n = 1; n <= iteration_limit; ++n) {
    if (is_narrow(eps, b.x1, b.x2)) {
      return {(b.x1 + b.x2) * 0.5, true};
    }
    xs = false_position(b);
    const double fs = residual(xs);
    if (vanishes(fs, tolerance)) {
      return {xs, true};
    }
    narrow(residual, b, xs, fs);
  }
  return {xs, false};
}

/// Evaluates both ends.
/// @return  an end that is the root already; the second is not evaluated when the first is
template <class F>
std::optional<double> root_at_an_end(const F& residual, Bracket& b, double tolerance) {
  b.f1 = residual(b.x1);
  if (vanishes(b.f1, tolerance)) {
    return b.x1;
  }
  b.f2 = residual(b.x2);
  if (vanishes(b.f2, tolerance)) {
    return b.x2;
  }
  return std::nullopt;
}

/// The bracketing iteration from two start values.
/// @param code  names the solver in its warning
/// @return      the root; the last false-position point, with a warning, when not converged
template <class F>
double solve_or_warn(const F& residual, Bracket& b, double eps, double tolerance,
                     const char* code) {
  if (const auto end = root_at_an_end(residual, b, tolerance)) {
    return *end;
  }
  const Root root = bracket(residual, b, eps, tolerance);
  if (!root.found) {
    warn_of_limit(code);
  }
  return root.x;
}

}  // namespace classic
