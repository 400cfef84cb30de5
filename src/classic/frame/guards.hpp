#pragma once

#include <cmath>

#include "formulation/elementary.hpp"

namespace classic {

/// Natural logarithm; for x = 0 or not a number -HUGE_VAL, for x < 0 the value 1, both with flag 1.
double SafeLog(double x);

/// Square root; for x < 0 or not a number 1, with flag 1.
double SafeSqrt(double x);

/// e to the x through the extended-precision exponential; for x >= 11357 the value 0, with flag 1.
double SafeExp(double x);

/// The elementary functions as the classic module calls them.
struct Guarded : formulation::PublishedArithmetic {
  static double exp(double x) { return SafeExp(x); }
  static double log(double x) { return SafeLog(x); }
  static double sqrt(double x) { return SafeSqrt(x); }
  template <int N>
  static double whole_power(double x) {
#ifdef _WIN64
    // The runtime multiplies whole powers out, each product rounded: in extended precision, then.
    return static_cast<double>(std::pow(static_cast<long double>(x), static_cast<long double>(N)));
#else
    return std::pow(x, double{N});
#endif
  }
};

/// 1 while a request runs.
extern int FpeGuardActive;

/// SIGFPE handler: sets the error flag to 1 and, while a request runs, registers itself again.
void FpeHandler(int signal);

/// For the time of a request installs the SIGFPE handler and switches the host's traps off. However
/// the request ends, the host gets back its own. A host's own finder may make a request within a
/// request: only the outermost one takes and gives back.
class FpeGuard {
 public:
  FpeGuard();
  FpeGuard(const FpeGuard&) = delete;
  FpeGuard& operator=(const FpeGuard&) = delete;
  ~FpeGuard() { release(); }
  /// Ends the guard before its time.
  /// @return what the last signal registration returned; it carries no information
  int release();

 private:
  bool holds_;  // has something to give back
};

}  // namespace classic
