#pragma once

namespace classic {

// One-dimensional root finding f(x) = target by false position with a halving after each step. All
// solvers return after at most 40 iterations, overwrite the caller's start values x1 and x2 with
// the ends of their last bracket, and take what the last step gave when the limit is reached (with
// a warning line). x1 and x2 may lie in either order and need not enclose the root.

/// A function of two values; which of them is the unknown differs by solver.
using Function = double (*)(const double*, const double*);

/// A function that places its state with a region finder, and passes the tolerance on to it.
using Residual = double (*)(const double* x, const double* param, double* eps);

/// Solves f(param, x) = target for x.
/// @param eps  relative tolerance: of the target for the residual, of x1 for the bracket
/// @return     the root; the last false-position point when not converged
double VEKQI1(Function f, const double* param, const double* target, double* x1, double* x2,
              const double* eps);

/// Solves f(x, param) = target for x. Start values with residuals of the same sign are given to a
/// secant iteration, which begins at 0.0045 in the place of x1.
/// @return  the root; the middle of the last bracket, or the last secant point, when not converged
double VEKQI2(Function f, const double* param, const double* target, double* x1, double* x2,
              const double* eps);

/// Solves f(x, param, eps) = target for x.
/// @return  the root; the last false-position point when not converged
double VEKQI3(Residual f, const double* param, const double* target, double* x1, double* x2,
              double* eps);

/// Solves F(y, x) = targetF and G(y, x) = targetG: an outer iteration on x, in which each y comes
/// from `VEKQI2` on G with the start values ylo and yhi and a tighter tolerance, eps^1.25.
/// @return  0, always; the solution in ylo and yhi (y), x1 and x2 (x). When not converged, ylo and
///          yhi keep the start values and x1 and x2 hold the last bracket.
int VEKQID(Function F, const double* targetF, Function G, const double* targetG, double* ylo,
           double* yhi, double* x1, double* x2, const double* eps);

}  // namespace classic
