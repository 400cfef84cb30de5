#include "formulation/saturation.hpp"

#include <array>
#include <cmath>
#include <limits>

#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/frame/guards.hpp"

namespace classic {
namespace {

using formulation::extended_product;
using formulation::k;
using Terms = formulation::SaturationTerms<double>;

bool refuses(double t) {
  if (t > formulation::critical_temperature) {  // not a number is accepted
    constexpr int code = 2;
    ReportError("VEKQPT", &code, &t, &t);
    return true;
  }
  return false;
}

double slope(const Terms& s, double p) {
  // intended: not the multiples of k2 … k8 but rounded copies, and not 1/647.3 as the factor
  const double dS =
      -((((-594.823113 * s.x + 256.93142) * s.x - 504.511964) * s.x - 52.1604739) * s.x + k[0]);
  const double N = s.theta * s.D1;
  const double dN = s.D1 - (41.9501352 * s.x + k[5]) * s.theta;
  const double dD2 = -2.0e9 * s.x;
  constexpr long double one_over_80_3334 = 0.0124481224496909131196L;
  return ((N * dS - s.S * dN) / (N * N) + (s.x * dD2 + s.D2) / (s.D2 * s.D2)) *
         extended_product(p, one_over_80_3334);
}

/// First temperature of `VEKQTP`: a Chebyshev series in a transformed logarithm of the pressure.
double start_temperature(double p) {
  constexpr std::array<double, 12> c{1.52264682686,     -0.682309517937,    0.164114951723,
                                     -0.00202321648831, -0.00192391110748,  -0.000574549418696,
                                     6.84115542402e-05, 3.36500068426e-05,  -1.23422483951e-05,
                                     1.48265501702e-06, -1.02116445578e-06, -4.09080904092e-06};
  const double y = std::pow(SafeLog(243.3196 / p), 0.4);
  const double scaled = extended_product(y - 1.48047125, -0.917478324111266317658L);
  // intended: the conversion below leaves z near -18, far outside [-1, 1]
  const double z = extended_product(scaled - 32, 0.555555555555555555556L);
  double sum = c[0] + c[1] * z;
  double before = 1;
  double last = z;
  for (auto j = 2U; j < c.size(); ++j) {
    const double next = 2 * z * last - before;
    before = last;
    last = next;
    sum += c[j] * last;
  }
  return formulation::reducing_temperature / sum - formulation::celsius_offset;
}

double newton_tolerance(double p) {
  double tolerance = 1.0e-4;
  if (p > 186.1581) {
    tolerance = 1.0e-9;
  }
  if (p > 220.6318) {
    tolerance = 1.0e-10;
  }
  return tolerance;
}

}  // namespace

double saturation_slope;

double VEKQPT(const double* t) {
  return refuses(*t) ? -1.0
                     : formulation::saturation_pressure<Guarded>(formulation::saturation_terms(*t));
}

double VEKQPT_with_slope(const double* t) {
  if (refuses(*t)) {
    return -1.0;
  }
  const Terms s = formulation::saturation_terms(*t);
  const double p = formulation::saturation_pressure<Guarded>(s);
  saturation_slope = slope(s, p);
  return p;
}

double VEKQTP(const double* p) {
  constexpr double t_critical = formulation::critical_temperature;
  int kind = 1;
  const double tolerance = newton_tolerance(*p);
  double relaxation = 1.0;
  if (*p > formulation::reducing_pressure) {
    ReportError("VEKQTP", &kind, p, p);
    return std::numeric_limits<double>::quiet_NaN();
  }
  double t = t_critical;
  if (*p < formulation::reducing_pressure) {
    kind = -1;
    t = start_temperature(*p);
  }
  double back_off = static_cast<double>(0.01F);
  if (t > t_critical) {
    t = t_critical;
  }
  for (double n = 1.0;; n = n + 1) {
    const double difference = *p - VEKQPT_with_slope(&t);
    t = relaxation * difference / saturation_slope + t;
    // The residual before the step decides, the temperature after the step is the result.
    if (std::abs(difference / *p) < tolerance) {
      return t;
    }
    if (n > 29) {
      ReportError("VEKQTP", &kind, p, p);
      return t;
    }
    relaxation = static_cast<double>(0.99F) * relaxation;
    if (t - t_critical >= 0) {
      back_off = static_cast<double>(0.9F) * back_off;
      t = t - back_off;
    }
  }
}

}  // namespace classic
