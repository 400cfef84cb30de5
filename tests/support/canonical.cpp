#include "support/canonical.hpp"

#include <array>
#include <boost/multiprecision/cpp_bin_float.hpp>

namespace canonical {
namespace {

using Real = boost::multiprecision::cpp_bin_float_50;

Real reduced_temperature(const Real& t) { return (t + Real("273.15")) / Real("647.3"); }

/// Σ c[v] x^(v + first)
template <std::size_t N>
Real sum(const std::array<double, N>& c, const Real& x, int first) {
  Real total = 0;
  for (std::size_t v = 0; v < N; ++v) {
    total += c[v] * pow(x, static_cast<int>(v) + first);
  }
  return total;
}

Real zeta1(const Real& beta, const Real& theta) {
  const std::array<double, 10> A{-5.422063673e2, -2.096666205e4, 3.941286787e4, -6.733277739e4,
                                 9.902381028e4,  -1.093911774e5, 8.590841667e4, -4.511168742e4,
                                 1.418138926e4,  -2.017271113e3};
  const Real Y = 1 - 8.438375405e-1 * pow(theta, 2) - 5.362162162e-4 * pow(theta, -6);
  const Real Z = Y + sqrt(1.720 * Y * Y - 2 * 7.342278489e-2 * theta + 2 * 4.975858870e-2 * beta);
  return 6.824687741e3 * theta * (1 - log(theta)) + sum(A, theta, 0) +
         7.982692717 * (Real(17) / 29 * Z - Real(17) / 12 * Y) * pow(Z, Real(12) / 17) +
         (-2.616571843e-2 + 1.522411790e-3 * theta + 2.284279054e-2 * pow(theta, 2) +
          2.421647003e2 * pow(6.537154300e-1 - theta, 10) +
          1.269716088e-10 / (1.150e-6 + pow(theta, 19))) *
             beta -
         (2.074838328e-7 * beta + 2.174020350e-8 * pow(beta, 2) + 1.105710498e-9 * pow(beta, 3)) /
             (1.5108e-5 + pow(theta, 11)) -
         1.293441934e1 * pow(theta, 18) * (1.4188e-1 + pow(theta, 2)) *
             (pow(7.002753165 + beta, -3) + 2.995284926e-4 * beta) +
         1.308119072e-5 * (2.040e-1 - theta) * pow(beta, 3) +
         6.047626338e-14 * pow(theta, -20) * pow(beta, 4);
}

Real zeta2(const Real& beta, const Real& theta) {
  const std::array<double, 5> B0{2.856067796e1, -5.438923329e1, 4.330662834e-1, -6.547711697e-1,
                                 8.565182058e-2};
  const std::array<double, 7> B9{1.936587558e2, -1.388522425e3, 4.126607219e3, -6.508211677e3,
                                 5.745984054e3, -2.693088365e3, 5.235718623e2};
  const Real X = exp(Real(7.633333333e-1) * (1 - theta));
  const Real beta_L = 1.574373327e1 - 3.417061978e1 * theta + 1.931380707e1 * pow(theta, 2);
  const auto x = [&X](int n) { return Real(pow(X, n)); };
  return 4.260321148 * theta * log(beta) + 1.683599274e1 * theta * (1 - log(theta)) +
         sum(B0, theta, 0) - beta * (6.670375918e-2 * x(13) + 1.388983801 * x(3)) -
         pow(beta, 2) * (8.390104328e-2 * x(18) + 2.614670893e-2 * x(2) - 3.373439453e-2 * X) -
         pow(beta, 3) * (4.520918904e-1 * x(18) + 1.069036614e-1 * x(10)) -
         pow(beta, 4) * (-5.975336707e-1 * x(25) - 8.847535804e-2 * x(14)) -
         pow(beta, 5) * (5.958051609e-1 * x(32) - 5.159303373e-1 * x(28) + 2.075021122e-1 * x(24)) -
         (1.190610271e-1 * x(12) - 9.867174132e-2 * x(11)) /
             (pow(beta, -4) + 4.006073948e-1 * x(14)) -
         (1.683998803e-1 * x(24) - 5.809438001e-2 * x(18)) /
             (pow(beta, -5) + 8.636081627e-2 * x(19)) -
         (6.552390126e-3 * x(24) + 5.710218649e-4 * x(14)) /
             (pow(beta, -6) - 8.532322921e-1 * x(54) + 3.460208861e-1 * x(27)) +
         beta * pow(beta / beta_L, 10) * sum(B9, X, 0);
}

Real conditional_group(const Real& chi, const Real& theta, bool with_last_sum) {
  const std::array<double, 5> D3{-1.717616747, 3.526389875, -2.690899373, 9.070982605e-1,
                                 -1.138791156e-1};
  const std::array<double, 5> D4{1.301023613, -2.642777743, 1.996765362, -6.661557013e-1,
                                 8.270860589e-2};
  const std::array<double, 3> D5{3.426663535e-4, -1.236521258e-3, 1.155018309e-3};
  const Real y = (1 - theta) / (1 - Real("623.15") / Real("647.3"));
  const Real w = 1 / chi;
  const Real first_sums = pow(y, 3) * sum(D3, w, 0) + pow(y, 4) * sum(D4, w, 0);
  return with_last_sum ? Real(first_sums + pow(y, 32) * sum(D5, chi, 0)) : first_sums;
}

Real psi3(const Real& chi, const Real& theta, Conditional part) {
  // Coefficients of χ^-1, χ^-2, … of the first four groups.
  const std::array<double, 10> C0{-7.77175039,   4.20460752,    -2.76807038,   2.10419707,
                                  -1.14649588,   2.23138085e-1, 1.16250363e-1, -8.20900544e-2,
                                  1.94129239e-2, -1.69470576e-3};
  const std::array<double, 5> C1{1.23679455e1, -1.20389004e1, 5.40437422, -9.93865043e-1,
                                 6.27523182e-2};
  const std::array<double, 6> C2{4.31430538e1, -1.41619313e1, 4.04172459,
                                 1.55546326,   -1.66568935,   3.24881158e-1};
  const std::array<double, 8> C3{8.08859747e1,  -8.36153380e1, 3.58636517e1, 7.51895954,
                                 -1.26160640e1, 1.09717462,    2.12145492,   -5.46529566e-1};
  const std::array<double, 5> C6{5.528935335e-2, -2.336365955e-1, 3.69707142e-1, -2.59641547e-1,
                                 6.828087013e-2};
  const std::array<double, 9> C7{-2.571600553e2, -1.518783715e2, 2.220723208e1,
                                 -1.802039570e2, 2.357096220e3,  -1.462335698e4,
                                 4.542916630e4,  -7.053556432e4, 4.381571428e4};
  const Real w = 1 / chi;
  const Real tau = theta - 1;
  Real psi = -6.8399 - 1.7226042e-2 * chi + sum(C0, w, 1) - 4.311577033 * log(chi);
  psi += tau * (7.08636085e-1 * chi + sum(C1, w, 1) - 7.74743016 * log(chi));
  psi += pow(tau, 2) * (-4.29885092 * chi + sum(C2, w, 1) + 2.93655325e1 * log(chi));
  psi += pow(tau, 3) * (7.94841842e-6 * chi + sum(C3, w, 1) + 8.32875413 * log(chi));
  psi += (2.75971776e-6 - 5.09073985e-4 * pow(chi, -5)) * pow(theta, -23) * tau;
  psi += 2.10636332e2 * theta * log(theta);
  psi += pow(chi, 6) * sum(C6, Real(1 / theta), 2) + sum(C7, tau, 1);
  return part == Conditional::none
             ? psi
             : Real(psi + conditional_group(chi, theta, part == Conditional::all));
}

Real pressure_on_the_saturation_line(const Real& t) {
  const std::array<double, 5> k{-7.691234564, -26.08023696, -168.1706546, 64.23285504,
                                -118.9646225};
  const Real theta = reduced_temperature(t);
  const Real x = 1 - theta;
  return Real("221.2") * exp(sum(k, x, 1) / theta / (1 + 4.167117320 * x + 20.97506760 * x * x) -
                             x / (1.0e9 * x * x + 6));
}

/// A function of (a, θ) with its derivatives, by central differences.
struct Derivatives {
  Real f, f_a, f_t, f_aa, f_at, f_tt;
};

template <class F>
Derivatives derivatives(const F& f, const Real& a, const Real& theta) {
  const Real d("1e-12");
  const Real centre = f(a, theta);
  const Real a_up = f(a + d, theta);
  const Real a_down = f(a - d, theta);
  const Real t_up = f(a, theta + d);
  const Real t_down = f(a, theta - d);
  const Real corners =
      f(a + d, theta + d) - f(a + d, theta - d) - f(a - d, theta + d) + f(a - d, theta - d);
  return {centre,
          (a_up - a_down) / (2 * d),
          (t_up - t_down) / (2 * d),
          (a_up - 2 * centre + a_down) / (d * d),
          corners / (4 * d * d),
          (t_up - 2 * centre + t_down) / (d * d)};
}

Properties scaled(const Real& beta, const Real& chi, const Real& epsilon, const Real& sigma,
                  const Real& cp) {
  const Real h = (epsilon + Real("1.0416781631075301e-08")) * Real("70.1204");
  const Real s = (sigma + Real("1.592689186543051e-06")) * Real("0.1083275143");
  const Real p = beta * Real("221.2");
  const Real v = chi * Real("0.00317");
  const auto rounded = [](const Real& x) { return x.convert_to<double>(); };
  return {rounded(p),
          rounded(v),
          rounded(h),
          rounded(s),
          rounded(h - 100 * p * v),
          rounded(cp * Real("0.1083275143"))};
}

/// From a Gibbs function ζ(β, θ).
template <class F>
Properties from_zeta(const F& zeta, double p, double t) {
  const Real beta = p / Real("221.2");
  const Real theta = reduced_temperature(t);
  const Derivatives d = derivatives(zeta, beta, theta);
  return scaled(beta, d.f_a, d.f - theta * d.f_t, -d.f_t, -theta * d.f_tt);
}

}  // namespace

Properties subregion1(double p, double t) { return from_zeta(zeta1, p, t); }
Properties subregion2(double p, double t) { return from_zeta(zeta2, p, t); }

Properties subregion3(double v, double t, Conditional part) {
  const Real chi = v / Real("0.00317");
  const Real theta = reduced_temperature(t);
  const auto psi = [=](const Real& x, const Real& y) { return psi3(x, y, part); };
  const Derivatives d = derivatives(psi, chi, theta);
  return scaled(-d.f_a, chi, d.f - theta * d.f_t - chi * d.f_a, -d.f_t,
                -theta * d.f_tt + theta * d.f_at * d.f_at / d.f_aa);
}

Saturation saturation(double t) {
  const Real d("1e-12");
  const Real up = pressure_on_the_saturation_line(t + d);
  const Real down = pressure_on_the_saturation_line(t - d);
  return {pressure_on_the_saturation_line(t).convert_to<double>(),
          Real((up - down) / (2 * d)).convert_to<double>()};
}

}  // namespace canonical
