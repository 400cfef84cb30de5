#pragma once

#include <array>

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"
#include "formulation/subregion3_conditional.hpp"

namespace formulation {

/// Around the critical point, 350 °C to the boundary line: coefficients of the reduced Helmholtz
/// function ψ3(χ, θ). In C0 … C3 the index is the published subscript: 1 belongs to χ, v ≥ 2 to
/// χ^(1-v), the last to ln χ.
/// @source IFC-67 (1967), subregion 3
namespace subregion3 {
constexpr std::array<double, 13> C0{-6.8399,       -1.7226042e-2,  -7.77175039,   4.20460752,
                                    -2.76807038,   2.10419707,     -1.14649588,   2.23138085e-1,
                                    1.16250363e-1, -8.20900544e-2, 1.94129239e-2, -1.69470576e-3,
                                    -4.311577033};
constexpr std::array<double, 8> C1{0,          7.08636085e-1,  1.23679455e1,  -1.20389004e1,
                                   5.40437422, -9.93865043e-1, 6.27523182e-2, -7.74743016};
constexpr std::array<double, 9> C2{0,           -4.29885092, 4.31430538e1, -1.41619313e1,
                                   4.04172459,  1.55546326,  -1.66568935,  3.24881158e-1,
                                   2.93655325e1};
constexpr std::array<double, 11> C3{
    0,          7.94841842e-6, 8.08859747e1, -8.36153380e1, 3.58636517e1,
    7.51895954, -1.26160640e1, 1.09717462,   2.12145492,    -5.46529566e-1,
    8.32875413};
constexpr double C40 = 2.75971776e-6, C41 = -5.09073985e-4;
constexpr double C50 = 2.10636332e2;
constexpr std::array<double, 5> C6{5.528935335e-2, -2.336365955e-1, 3.69707142e-1, -2.59641547e-1,
                                   6.828087013e-2};
constexpr std::array<double, 9> C7{-2.571600553e2, -1.518783715e2, 2.220723208e1,
                                   -1.802039570e2, 2.357096220e3,  -1.462335698e4,
                                   4.542916630e4,  -7.053556432e4, 4.381571428e4};

// Products (v - 1) C_v of the pressure, stored with their own decimal digits: coefficients of
// w⁰, w¹, … in P(w), where ∂/∂χ of a group is C_1 - P(w) w² + C_last w.
constexpr std::array<double, 10> P_A{-7.77175039,  8.40921504,   -8.30421114, 8.41678828,
                                     -5.7324794,   1.33882851,   0.813752541, -0.6567204352,
                                     0.1747163151, -0.0169470576};
constexpr std::array<double, 5> P_D{12.3679455, -24.0778008, 16.21312266, -3.975460172,
                                    0.313761591};
constexpr std::array<double, 6> P_B{43.1430538, -28.3238626, 12.12517377,
                                    6.22185304, -8.32844675, 1.949286948};
constexpr std::array<double, 8> P_C{80.8859747, -167.230676, 107.5909551, 30.07583816,
                                    -63.08032,  6.58304772,  14.85018444, -4.372236528};
constexpr double five_C41 = -0.002545369925;
}  // namespace subregion3

/// The sub-expressions that the properties of subregion 3 share.
template <class Math>
struct Terms3 : Conditional3<Math> {
  using Num = typename Math::Number;
  Num tau;  // θ - 1
  Num log_theta, log_chi;
  Num w5, w6;
  Num one_over_theta, theta_m22, theta_m23;
  Num chi5_theta2, chi6_theta2;  // χ⁵/θ² and χ⁶/θ²
};

/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
template <class Math>
Terms3<Math> terms3(typename Math::Number v, typename Math::Number t) {
  using namespace subregion3;
  Terms3<Math> s;
  static_cast<Conditional3<Math>&>(s) = conditional3<Math>(v, t);
  s.tau = s.theta - 1;
  s.log_theta = Math::log(s.theta);
  s.w5 = s.w2 * s.w2 * s.w;
  s.w6 = s.w5 * s.w;
  s.log_chi = Math::log(s.chi);
  s.one_over_theta = 1 / s.theta;
  s.theta_m22 = Math::template whole_power<22>(s.one_over_theta);
  s.theta_m23 = s.theta_m22 * s.one_over_theta;
  s.chi5_theta2 = Math::template whole_power<5>(s.chi) / (s.theta * s.theta);
  s.chi6_theta2 = s.chi * s.chi5_theta2;
  return s;
}

/// ∂/∂χ of one of the groups C0 … C3.
template <class Math, class Group, class Products>
auto group_slope(const Group& C, const Products& P, const Terms3<Math>& s) {
  return C[1] - horner(P, s.w) * s.w2 + C.back() * s.w;
}

/// Pressure, bar: -∂ψ3/∂χ.
/// @param G  share of the conditional group
template <class Math>
auto pressure(const Terms3<Math>& s, typename Math::Number G) {
  using namespace subregion3;
  const auto A = group_slope(C0, P_A, s);
  const auto D = group_slope(C1, P_D, s);
  const auto B = group_slope(C2, P_B, s);
  const auto C = group_slope(C3, P_C, s);
  const auto E = five_C41 * s.w6 * s.theta_m23;
  const auto F = horner(C6, s.one_over_theta) * (s.chi5_theta2 * 6);
  return reducing_pressure * ((-D - (C * s.tau + B) * s.tau + E) * s.tau - A - F + G);
}

/// Σ n_v C_v χ^(1-v) over v = 2 … of one of the groups C0 … C3, with n_v = weight(v).
template <class Math, class Group, class Weight>
auto group_sum(const Group& C, const Terms3<Math>& s, Weight weight) {
  auto sum = typename Math::Number(0);
  for (std::size_t v = C.size() - 2; v >= 2; --v) {
    sum = (sum + weight(static_cast<double>(v)) * C[v]) * s.w;
  }
  return sum;
}

/// One of the groups C0 … C3, without a term in χ⁰.
template <class Math, class Group>
auto group_value(const Group& C, const Terms3<Math>& s) {
  return C[1] * s.chi + group_sum(C, s, [](double) { return 1.0; }) + C.back() * s.log_chi;
}

/// A group less χ times its χ-derivative: its share of ψ3 + p v.
template <class Math, class Group>
auto group_with_pv(const Group& C, const Terms3<Math>& s) {
  return group_sum(C, s, [](double v) { return v; }) + C.back() * (s.log_chi - 1);
}

/// ∂²/∂χ² of a group.
template <class Math, class Group>
auto group_curvature(const Group& C, const Terms3<Math>& s) {
  return (group_sum(C, s, [](double v) { return v * (v - 1); }) - C.back()) * s.w2;
}

/// Enthalpy, kJ/kg: ψ3 - θ ∂ψ3/∂θ - χ ∂ψ3/∂χ.
template <class Math>
auto enthalpy(const Terms3<Math>& s) {
  using namespace subregion3;
  const auto F1 = group_value(C1, s);
  const auto F2 = group_value(C2, s);
  const auto F3 = group_value(C3, s);
  const auto from_groups = C0[0] + group_with_pv(C0, s) + s.tau * group_with_pv(C1, s) -
                           s.theta * F1 +
                           s.tau * (s.tau * group_with_pv(C2, s) - 2 * s.theta * F2 +
                                    s.tau * (s.tau * group_with_pv(C3, s) - 3 * s.theta * F3));
  // Σ C7v τ^v (v τ + v + 1)
  auto sum7 = typename Math::Number(0);
  for (auto v = C7.size(); v-- > 0;) {
    const auto n = static_cast<double>(v);
    sum7 = sum7 * s.tau + (n * s.tau + (n + 1)) * C7[v];
  }
  constexpr std::array<double, 5> weighted_C6{-3 * C6[0], -2 * C6[1], -C6[2], 0 * C6[3], C6[4]};
  auto epsilon = from_groups +
                 s.theta_m23 * (C40 * (23 * s.tau - 1) + C41 * s.w5 * (28 * s.tau - 1)) -
                 C50 * s.theta + s.chi6_theta2 * horner(weighted_C6, s.one_over_theta) - sum7;
  if (!leaves_conditional_out(s)) {
    epsilon = epsilon + conditional_enthalpy(s);
  }
  return (epsilon + enthalpy_origin) * enthalpy_scale;
}

/// Entropy, kJ/(kg K): -∂ψ3/∂θ.
template <class Math>
auto entropy(const Terms3<Math>& s) {
  using namespace subregion3;
  constexpr std::array<double, 5> weighted_C6{2 * C6[0], 3 * C6[1], 4 * C6[2], 5 * C6[3],
                                              6 * C6[4]};
  constexpr std::array<double, 9> weighted_C7{C7[0],     2 * C7[1], 3 * C7[2], 4 * C7[3], 5 * C7[4],
                                              6 * C7[5], 7 * C7[6], 8 * C7[7], 9 * C7[8]};
  auto sigma = -group_value(C1, s) -
               s.tau * (2 * group_value(C2, s) + 3 * s.tau * group_value(C3, s)) -
               (C40 + C41 * s.w5) * (23 - 22 * s.theta) * s.theta_m23 * s.one_over_theta -
               C50 * (1 + s.log_theta) +
               s.chi6_theta2 * s.one_over_theta * horner(weighted_C6, s.one_over_theta) -
               horner(weighted_C7, s.tau);
  if (!leaves_conditional_out(s)) {
    sigma = sigma + conditional_entropy(s);
  }
  return (sigma - entropy_origin) * entropy_scale;
}

/// ∂²ψ3/∂θ².
template <class Math>
auto psi_theta_theta(const Terms3<Math>& s) {
  using namespace subregion3;
  constexpr std::array<double, 5> weighted_C6{6 * C6[0], 12 * C6[1], 20 * C6[2], 30 * C6[3],
                                              42 * C6[4]};
  constexpr std::array<double, 8> weighted_C7{2 * C7[1],  6 * C7[2],  12 * C7[3], 20 * C7[4],
                                              30 * C7[5], 42 * C7[6], 56 * C7[7], 72 * C7[8]};
  const auto theta_m2 = s.one_over_theta * s.one_over_theta;
  auto sum =
      2 * group_value(C2, s) + 6 * s.tau * group_value(C3, s) +
      (C40 + C41 * s.w5) * (506 * s.theta - 552) * s.theta_m23 * theta_m2 + C50 * s.one_over_theta +
      s.chi6_theta2 * theta_m2 * horner(weighted_C6, s.one_over_theta) + horner(weighted_C7, s.tau);
  if (!leaves_conditional_out(s)) {
    sum = sum + conditional_theta_theta(s);
  }
  return sum;
}

/// ∂²ψ3/∂χ∂θ.
template <class Math>
auto psi_chi_theta(const Terms3<Math>& s) {
  using namespace subregion3;
  constexpr std::array<double, 5> weighted_C6{2 * C6[0], 3 * C6[1], 4 * C6[2], 5 * C6[3],
                                              6 * C6[4]};
  auto sum = group_slope(C1, P_D, s) +
             s.tau * (2 * group_slope(C2, P_B, s) + 3 * s.tau * group_slope(C3, P_C, s)) -
             five_C41 * s.w6 * (23 - 22 * s.theta) * s.theta_m23 * s.one_over_theta -
             6 * s.chi5_theta2 * s.one_over_theta * horner(weighted_C6, s.one_over_theta);
  if (!leaves_conditional_out(s)) {
    sum = sum + conditional_chi_theta(s);
  }
  return sum;
}

/// ∂²ψ3/∂χ².
template <class Math>
auto psi_chi_chi(const Terms3<Math>& s) {
  using namespace subregion3;
  auto sum = group_curvature(C0, s) +
             s.tau * (group_curvature(C1, s) +
                      s.tau * (group_curvature(C2, s) + s.tau * group_curvature(C3, s))) +
             30 * C41 * s.w6 * s.w * s.theta_m23 * s.tau +
             30 * s.chi5_theta2 * s.w * horner(C6, s.one_over_theta);
  if (!leaves_conditional_out(s)) {
    sum = with_conditional_chi_chi<Math>(sum, s);
  }
  return sum;
}

/// Isobaric heat capacity, kJ/(kg K): -θ ∂²ψ3/∂θ² + θ (∂²ψ3/∂χ∂θ)² / (∂²ψ3/∂χ²).
template <class Math>
auto heat_capacity(const Terms3<Math>& s) {
  const auto mixed = psi_chi_theta(s);
  return s.theta * (mixed * mixed / psi_chi_chi(s) - psi_theta_theta(s)) * entropy_scale;
}

}  // namespace formulation
