#include "classic/regions/region.hpp"
#include "classic/regions/residuals.hpp"
#include "classic/solve/root_solvers.hpp"

// The finders from specific volume: they solve for the pressure or the saturation temperature and
// leave the placing to `vekrpv_` or `vekrtx_`.

namespace classic {
namespace {

/// Lowest pressure of water so dense, bar; of all else the lowest pressure there is.
double lower_pressure(double v) {
  return v < 0.001000223493 ? (0.001000223493 - v) * 22851000 : 0.006112444;
}

/// Highest pressure of steam so thin, bar; of all else the highest pressure there is.
double upper_pressure(double v) { return v > 0.004341059548 ? 4.341059548 / v : 1000; }

/// From volume and a caloric value y whose residual is given.
int place(Residual residual, double* v, double* y, double* tol, double p_low) {
  double p_high = upper_pressure(*v);
  if (p_low < 1 && p_high > 1) {
    constexpr double one = 1;
    const bool above_one = residual(&one, v, tol) - *y < 0;
    (above_one ? p_low : p_high) = one;
  }
  double first = VEKQI3(residual, v, y, &p_high, &p_low, tol);
  const int region = vekrpv_(&first, v, tol);
  if (region >= water && region <= wet) {
    *y = *v;  // where `vekrpv_` has left the temperature
    *v = first;
  }
  return region;
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrvh_(double* v, double* h, double* tol) {
  return place(HOFPV, v, h, tol, lower_pressure(*v));
}

int vekrvu_(double* v, double* u, double* tol) {
  return place(UOFPV, v, u, tol, lower_pressure(*v));
}

int vekrvs_(double* v, double* s, double* tol) {
  // intended: limited here alone
  const double p_low = lower_pressure(*v);
  return place(SOFPV, v, s, tol, p_low > 990 ? 990 : p_low);
}

int vekrvx_(double* v, double* x, double* tol) {
  double t_low = 0.01;
  double t_high = 374.15;
  double first = VEKQI3(VOFTX, x, v, &t_low, &t_high, tol);
  const int region = vekrtx_(&first, x, tol);
  if (region != wet_above_350 && region != wet) {
    return refused;
  }
  *v = first;  // where `vekrtx_` has left the quality
  return region;
}
