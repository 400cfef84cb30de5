#include "classic/solve/root_solvers.hpp"

#include <ostream>

#include "classic/frame/diagnostics.hpp"
#include "classic/solve/bracketing.hpp"

namespace classic {

void warn_of_limit(const char* code) {
  WriteDiagnostic(ErrorStream, "*** VEKFTN-WARNING: Maximum number of ")
      << "iterations exceeded (code: " << code << ") ***" << std::endl;
}

namespace {

/// A bracket between the caller's start values, to which its ends return when it goes.
struct CallersBracket {
  CallersBracket(double* x1, double* x2) : first(x1), second(x2), b{*x1, *x2, 0, 0} {}
  CallersBracket(const CallersBracket&) = delete;
  CallersBracket& operator=(const CallersBracket&) = delete;
  ~CallersBracket() {
    *first = b.x1;
    *second = b.x2;
  }

  double* first;
  double* second;
  Bracket b;
};

/// The secant iteration of `VEKQI2`. The residual at the new x1 is evaluated again although it is
/// known: intended, the functions leave their terms behind.
template <class F>
double secant(const F& residual, Bracket& b, double tolerance) {
  b.x1 = 0.0045;
  double xs = 0;
  for (int n = 1; n <= iteration_limit; ++n) {
    b.f1 = residual(b.x1);
    xs = false_position(b);
    const double fs = residual(xs);
    if (vanishes(fs, tolerance)) {
      return xs;
    }
    b = {xs, b.x1, fs, b.f1};
  }
  warn_of_limit("VEKQI2-b");
  return xs;
}

template <class F>
double bracket_or_secant(const F& residual, Bracket& b, double eps, double tolerance) {
  if (const auto end = root_at_an_end(residual, b, tolerance)) {
    return *end;
  }
  if (!of_opposite_sign(b.f1, b.f2)) {
    return secant(residual, b, tolerance);
  }
  const Root root = bracket(residual, b, eps, tolerance);
  if (!root.found) {
    warn_of_limit("VEKQI2-a");
    return (b.x1 + b.x2) * 0.5;  // intended: the middle, where the others return the last point
  }
  return root.x;
}

}  // namespace

double VEKQI1(Function f, const double* param, const double* target, double* x1, double* x2,
              const double* eps) {
  CallersBracket ends(x1, x2);
  return solve_or_warn([=](double x) { return f(param, &x) - *target; }, ends.b, *eps,
                       std::abs(*eps * *target), "VEKQI1");
}

double VEKQI2(Function f, const double* param, const double* target, double* x1, double* x2,
              const double* eps) {
  CallersBracket ends(x1, x2);
  return bracket_or_secant([=](double x) { return f(&x, param) - *target; }, ends.b, *eps,
                           std::abs(*eps * *target));
}

double VEKQI3(Residual f, const double* param, const double* target, double* x1, double* x2,
              double* eps) {
  CallersBracket ends(x1, x2);
  return solve_or_warn([=](double x) { return f(&x, param, eps) - *target; }, ends.b, *eps,
                       std::abs(*eps * *target), "VEKQI3");
}

int VEKQID(Function F, const double* targetF, Function G, const double* targetG, double* ylo,
           double* yhi, double* x1, double* x2, const double* eps) {
  const double tolerance = std::abs(*eps * *targetF);
  const double inner_eps = std::pow(*eps, 1.25);
  double y = 0;  // inner solution at the point evaluated last
  const auto residual = [&](double x) {
    double y1 = *ylo;
    double y2 = *yhi;
    y = VEKQI2(G, &x, targetG, &y1, &y2, &inner_eps);
    return F(&y, &x) - *targetF;
  };
  CallersBracket ends(x1, x2);
  Bracket& b = ends.b;
  b.f1 = residual(b.x1);
  double xs = b.x1;
  double ys = y;
  double fs = b.f1;
  b.f2 = residual(b.x2);  // intended: not tested, unlike in the single solvers
  for (int n = 1; n <= iteration_limit; ++n) {
    // Tested at the top, and the last point is the result even when the bracket is narrow:
    // intended.
    if (vanishes(fs, tolerance) || is_narrow(*eps, b.x1, b.x2)) {
      *ylo = *yhi = ys;
      b.x1 = b.x2 = xs;
      return 0;
    }
    xs = false_position(b);
    fs = residual(xs);
    ys = y;
    narrow(residual, b, xs, fs);
  }
  warn_of_limit("VEKQID");
  return 0;
}

}  // namespace classic
