#pragma once

#include "classic/regions/region.hpp"
#include "classic/solve/root_solvers.hpp"

namespace classic {

// How the finders replace their two arguments by the pair on which the region found is evaluated.
// Each returns the region it is given.

/// The two arguments become these values.
inline Region leave(Region region, double* a, double* b, double first, double second) {
  *a = first;
  *b = second;
  return region;
}

/// The arguments become the quality, from the second one and its saturated values, and the
/// saturation temperature.
inline Region leave_wet(Region region, double* a, double* y, double y_water, double y_steam,
                        double ts) {
  return leave(region, a, y, (*y - y_water) / (y_steam - y_water), ts);
}

/// The second argument becomes the temperature at which f(p, t) has its value.
inline Region solve_temperature(Region region, Function f, const double* p, double* y, double t1,
                                double t2, const double* tol) {
  *y = VEKQI1(f, p, y, &t1, &t2, tol);
  return region;
}

/// The first argument becomes the pressure or volume x at which f(x, t) has the second one's value,
/// the second one the temperature.
inline Region solve_first(Region region, Function f, double* t, double* y, double x1, double x2,
                          const double* tol) {
  const double x = VEKQI2(f, t, y, &x1, &x2, tol);
  return leave(region, t, y, x, *t);
}

}  // namespace classic
