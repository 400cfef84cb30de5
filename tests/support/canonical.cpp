#include "support/canonical.hpp"

#include <algorithm>
#include <array>

#include "support/jet.hpp"

namespace canonical {
namespace {

using Real = Jet::Real;

constexpr Real p_critical = 221.2L, v_critical = 0.00317L, T_critical = 647.3L;  // bar, m³/kg, K

Real reduced_temperature(Real t) { return (t + 273.15L) / T_critical; }

/// Σ c[v] x^(v + first)
template <std::size_t N>
Jet sum(const std::array<double, N>& c, const Jet& x, int first) {
  Jet total = 0;
  for (std::size_t v = 0; v < N; ++v) {
    total = total + c[v] * pow(x, static_cast<int>(v) + first);
  }
  return total;
}

Jet zeta1(const Jet& beta, const Jet& theta) {
  const std::array<double, 10> A{-5.422063673e2, -2.096666205e4, 3.941286787e4, -6.733277739e4,
                                 9.902381028e4,  -1.093911774e5, 8.590841667e4, -4.511168742e4,
                                 1.418138926e4,  -2.017271113e3};
  const Jet Y = 1 - 8.438375405e-1 * pow(theta, 2) - 5.362162162e-4 * pow(theta, -6);
  const Jet Z = Y + sqrt(1.720 * Y * Y - 2 * 7.342278489e-2 * theta + 2 * 4.975858870e-2 * beta);
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

Jet zeta2(const Jet& beta, const Jet& theta) {
  const std::array<double, 5> B0{2.856067796e1, -5.438923329e1, 4.330662834e-1, -6.547711697e-1,
                                 8.565182058e-2};
  const std::array<double, 7> B9{1.936587558e2, -1.388522425e3, 4.126607219e3, -6.508211677e3,
                                 5.745984054e3, -2.693088365e3, 5.235718623e2};
  const Jet X = exp(7.633333333e-1 * (1 - theta));
  const Jet beta_L = 1.574373327e1 - 3.417061978e1 * theta + 1.931380707e1 * pow(theta, 2);
  const auto x = [&X](int n) { return pow(X, n); };
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

Jet conditional_group(const Jet& chi, const Jet& theta, bool with_last_sum) {
  const std::array<double, 5> D3{-1.717616747, 3.526389875, -2.690899373, 9.070982605e-1,
                                 -1.138791156e-1};
  const std::array<double, 5> D4{1.301023613, -2.642777743, 1.996765362, -6.661557013e-1,
                                 8.270860589e-2};
  const std::array<double, 3> D5{3.426663535e-4, -1.236521258e-3, 1.155018309e-3};
  const Jet y = (1 - theta) * (1 / (1 - 623.15L / T_critical));
  const Jet w = 1 / chi;
  const Jet first_sums = pow(y, 3) * sum(D3, w, 0) + pow(y, 4) * sum(D4, w, 0);
  return with_last_sum ? first_sums + pow(y, 32) * sum(D5, chi, 0) : first_sums;
}

Jet psi3(const Jet& chi, const Jet& theta, Conditional part) {
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
  const Jet w = 1 / chi;
  const Jet tau = theta - 1;
  Jet psi = -6.8399 - 1.7226042e-2 * chi + sum(C0, w, 1) - 4.311577033 * log(chi);
  psi = psi + tau * (7.08636085e-1 * chi + sum(C1, w, 1) - 7.74743016 * log(chi));
  psi = psi + pow(tau, 2) * (-4.29885092 * chi + sum(C2, w, 1) + 2.93655325e1 * log(chi));
  psi = psi + pow(tau, 3) * (7.94841842e-6 * chi + sum(C3, w, 1) + 8.32875413 * log(chi));
  psi = psi + (2.75971776e-6 - 5.09073985e-4 * pow(chi, -5)) * pow(theta, -23) * tau;
  psi = psi + 2.10636332e2 * theta * log(theta);
  psi = psi + pow(chi, 6) * sum(C6, 1 / theta, 2) + sum(C7, tau, 1);
  return part == Conditional::none ? psi
                                   : psi + conditional_group(chi, theta, part == Conditional::all);
}

Jet pressure_on_the_saturation_line(const Jet& t) {
  const std::array<double, 5> k{-7.691234564, -26.08023696, -168.1706546, 64.23285504,
                                -118.9646225};
  const Jet theta = (t + 273.15L) / T_critical;
  const Jet x = 1 - theta;
  return p_critical * exp(sum(k, x, 1) / theta / (1 + 4.167117320 * x + 20.97506760 * x * x) -
                          x / (1.0e9 * x * x + 6));
}

/// What remains is the same for both kinds of function.
struct Reduced {
  Real beta, chi, epsilon, sigma, cp, cv;
  Real stiffness;                       // -(∂β/∂χ) along an isentrope
  Real beta_over_chi, beta_over_theta;  // ∂β/∂χ, ∂β/∂θ
};

Properties scaled(const Reduced& r) {
  const Real h = (r.epsilon + 1.0416781631075301e-08L) * 70.1204L;
  const Real s = (r.sigma + 1.592689186543051e-06L) * 0.1083275143L;
  const Real p = r.beta * p_critical;
  const Real v = r.chi * v_critical;
  const auto rounded = [](Real x) { return static_cast<double>(x); };
  return {rounded(p),
          rounded(v),
          rounded(h),
          rounded(s),
          rounded(h - 100 * p * v),
          rounded(r.cp * 0.1083275143L),
          rounded(r.cv * 0.1083275143L),
          rounded(std::sqrt(1e5L * p_critical * v_critical * r.chi * r.chi * r.stiffness)),
          rounded(r.beta_over_chi * p_critical / v_critical),
          rounded(r.beta_over_theta * p_critical / T_critical)};
}

/// From a Gibbs function ζ(β, θ).
Properties from_zeta(const Jet& zeta, Real beta, Real theta) {
  return scaled({beta, zeta.a, zeta.f - theta * zeta.b, -zeta.b, -theta * zeta.bb,
                 -theta * (zeta.bb - zeta.ab * zeta.ab / zeta.aa),
                 -1 / (zeta.aa - zeta.ab * zeta.ab / zeta.bb), 1 / zeta.aa, -zeta.ab / zeta.aa});
}

}  // namespace

Properties subregion1(double p, double t) {
  const Real beta = p / p_critical, theta = reduced_temperature(t);
  return from_zeta(zeta1(Jet::first(beta), Jet::second(theta)), beta, theta);
}

Properties subregion2(double p, double t) {
  const Real beta = p / p_critical, theta = reduced_temperature(t);
  return from_zeta(zeta2(Jet::first(beta), Jet::second(theta)), beta, theta);
}

Properties subregion3(double v, double t, Conditional part) {
  const Real chi = v / v_critical, theta = reduced_temperature(t);
  const Jet psi = psi3(Jet::first(chi), Jet::second(theta), part);
  const Real cross = psi.ab * psi.ab;
  return scaled({-psi.a, chi, psi.f - theta * psi.b - chi * psi.a, -psi.b,
                 -theta * (psi.bb - cross / psi.aa), -theta * psi.bb, psi.aa - cross / psi.bb,
                 -psi.aa, -psi.ab});
}

Properties subregion3(double v, double t) {
  return subregion3(v, t, v < 0.00317 && t < 374.15 ? Conditional::all : Conditional::none);
}

Saturation saturation(double t) {
  const Jet p = pressure_on_the_saturation_line(Jet::first(t));
  return {static_cast<double>(p.f), static_cast<double>(p.a)};
}

double viscosity(double v, double t) {
  constexpr std::array<double, 4> H{0.0181583, 0.0177624, 0.0105287, -0.0036744};
  constexpr double H_ij[6][5]{{0.501938, 0.235622, -0.274637, 0.145831, -0.0270448},
                              {0.162888, 0.789393, -0.743539, 0.263129, -0.0253093},
                              {-0.130356, 0.673665, -0.959456, 0.347247, -0.0267758},
                              {0.907919, 1.207552, -0.687343, 0.213486, -0.0822904},
                              {-0.551119, 0.0670665, -0.497089, 0.100754, 0.0602253},
                              {0.146543, -0.084337, 0.195286, -0.032932, -0.0202595}};
  const Real T = (t + 273.15L) / 647.27L, rho = 1 / (v * 317.763L);
  Real inverse = 0, exponent = 0;
  for (int i = 0; i < 6; ++i) {
    inverse += i < 4 ? H[static_cast<std::size_t>(i)] * power(T, -i) : 0;
    for (int j = 0; j < 5; ++j) {
      exponent += H_ij[i][j] * power(1 / T - 1, i) * power(rho - 1, j);
    }
  }
  return static_cast<double>(1e-6L * std::sqrt(T) / inverse * std::exp(rho * exponent));
}

double conductivity(double v, double t_) {
  const Real t = t_, d = 1 / Real(v);
  Real k = 0.0179L + 5.53e-5L * t + 1.13e-7L * t * t - 5.2e-11L * power(t, 3) + 3.5e-4L * d +
           5.5e-7L * d * d +
           (2.55e-29L * std::exp(-0.0433L * t) + 8.56e-33L * std::exp(-0.01371L * t)) *
               power(d, 3) * power(1000 - d, 9);
  k -= t <= 450 ? 1.03e-4L * d * std::exp(-1.33e-10L * power(t, 4)) : 0;
  k -= t <= 300 ? 1.73e-4L * d * std::exp(-6.8e-5L * t * t) : 0;
  k -= t <= 150 ? 6.8e-5L * d * std::exp(-0.0422L * t) : 0;
  return static_cast<double>(k);
}

double surface_tension(double t) {
  const Real x = std::max((647.15L - 273.15L - t) / 647.15L, 0.0L);
  return static_cast<double>(0.2358L * std::pow(x, 1.256L) * (1 - 0.625L * x));
}

double boundary_line(double t) {
  const Real theta = reduced_temperature(t);
  return static_cast<double>(p_critical *
                             (15.74373327L - 34.17061978L * theta + 19.31380707L * theta * theta));
}

}  // namespace canonical
