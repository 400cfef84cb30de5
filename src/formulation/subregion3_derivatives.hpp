#pragma once

#include "formulation/subregion3.hpp"

namespace formulation {

// Subregion 3 arranged for several properties of one state. At one temperature the groups C0 … C3,
// the term C41 and the conditional group are one series in w = 1/χ, so that every derivative of ψ3
// takes one sum, whatever the number of groups. The results differ from those of the published
// grouping in the last digits only.

namespace subregion3 {

/// Sum over k = 1 … 10 of factor(k) c_k w^k.
template <class Math, class Series, class Factor>
[[gnu::always_inline]] inline auto weighted_sum(const Series& c, typename Math::Number w,
                                                Factor factor) {
  std::array<typename Math::Number, 10> weighted{};
  for (std::size_t i = 0; i < weighted.size(); ++i) {
    weighted[i] = factor(static_cast<double>(i + 1)) * c[i];
  }
  return Math::polynomial(weighted, w) * w;
}

/// Coefficient v of a group, or 0 beyond the last; the last of all belongs to ln χ.
template <class Group>
constexpr double coefficient(const Group& C, std::size_t v) {
  return v + 1 < C.size() ? C[v] : 0;
}

/// C0 + C1 τ + C2 τ² + C3 τ³ for some coefficients of the groups, with its first two θ-derivatives.
template <class Num>
struct InTau {
  Num value, first, second;
};
template <class Num>
[[gnu::always_inline]] inline InTau<Num> in_tau(double c0, double c1, double c2, double c3,
                                                Num tau) {
  return {((c3 * tau + c2) * tau + c1) * tau + c0, (3 * c3 * tau + 2 * c2) * tau + c1,
          6 * c3 * tau + 2 * c2};
}

/// A reciprocal reduced temperature amid those of the vapour next to the boundary line, where χ⁶
/// weighs most.
constexpr double C6_centre = 0.95;

/// θ times the derivative of Σ C7v τ^(v+1), less that sum, in powers of τ.
constexpr auto C7_h = [] {
  std::array<double, 10> c{};
  for (std::size_t i = 0; i < C7.size(); ++i) {
    const auto n = static_cast<double>(i);
    c[i] += (n + 1) * C7[i];
    c[i + 1] += n * C7[i];
  }
  return c;
}();

}  // namespace subregion3

/// ψ3's derivatives over χ and θ, as far as they are asked for.
template <class Math>
struct Derivatives3 {
  using Num = typename Math::Number;
  Num chi, theta;
  Num chi_1, theta_1;                 // ∂ψ3/∂χ, ∂ψ3/∂θ
  Num legendre;                       // ψ3 - θ ∂ψ3/∂θ - χ ∂ψ3/∂χ
  Num chi_2, chi_1_theta_1, theta_2;  // the second ones
};

/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
template <class Math>
[[gnu::always_inline]] inline Derivatives3<Math> derivatives3(typename Math::Number v,
                                                              typename Math::Number t) {
  using namespace subregion3;
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  const Num chi = v / Divisor(reducing_volume);
  const Num theta = reduced_temperature<Divisor>(t);
  const Num tau = theta - 1;
  const Num w = reducing_volume / Divisor(v), w2 = w * w;
  const Num chi2 = chi * chi, chi4 = chi2 * chi2, chi5 = chi4 * chi;
  const Num x = 1 / Divisor(theta), x2 = x * x;
  const Num x23 = Math::template whole_power<23>(x);
  const Num log_chi = Math::log(chi);

  // The series, with its θ-derivatives, and what goes with χ and ln χ.
  std::array<Num, 10> c{}, c1{}, c2{};
  for (std::size_t i = 0; i < c.size(); ++i) {
    const auto a = in_tau(coefficient(C0, i + 2), coefficient(C1, i + 2), coefficient(C2, i + 2),
                          coefficient(C3, i + 2), tau);
    c[i] = a.value;
    c1[i] = a.first;
    c2[i] = a.second;
  }
  const auto of_chi = in_tau(C0[1], C1[1], C2[1], C3[1], tau);
  const auto of_log = in_tau(C0.back(), C1.back(), C2.back(), C3.back(), tau);
  const InTau<Num> of_C4{tau * x23, (23 - 22 * theta) * x23 * x, (506 * theta - 552) * x23 * x2};
  c[4] += C41 * of_C4.value;
  c1[4] += C41 * of_C4.first;
  c2[4] += C41 * of_C4.second;

  // χ⁶ Σ C6v θ^(-2-v) and, over θ alone, C40, C50 and C7.
  constexpr Centred<5> C6_0(C6, C6_centre);
  constexpr Centred<5> C6_1({-2 * C6[0], -3 * C6[1], -4 * C6[2], -5 * C6[3], -6 * C6[4]},
                            C6_centre);
  constexpr Centred<5> C6_2({6 * C6[0], 12 * C6[1], 20 * C6[2], 30 * C6[3], 42 * C6[4]}, C6_centre);
  const Num f = Math::polynomial(C6_0, x) * x2;
  const Num f1 = Math::polynomial(C6_1, x) * x2 * x;
  const Num f2 = Math::polynomial(C6_2, x) * x2 * x2;
  constexpr std::array<double, 9> C7_1{C7[0],     2 * C7[1], 3 * C7[2], 4 * C7[3], 5 * C7[4],
                                       6 * C7[5], 7 * C7[6], 8 * C7[7], 9 * C7[8]};
  constexpr std::array<double, 8> C7_2{2 * C7[1],  6 * C7[2],  12 * C7[3], 20 * C7[4],
                                       30 * C7[5], 42 * C7[6], 56 * C7[7], 72 * C7[8]};

  // The conditional group: more of the series, and its part over χ.
  Num at_0 = C0[0], at_0_1 = Num(0), at_0_2 = Num(0);
  Num y32 = Num(0), y32_1 = Num(0), y32_2 = Num(0);
  if (theta < 1 && chi < 1) {
    const Num y = -tau / Divisor(one_minus_theta_350);
    constexpr double dy = -1 / one_minus_theta_350;
    const Num y2 = y * y, y3 = y2 * y;
    const auto conditional = [&](std::size_t i) __attribute__((always_inline)) {
      return InTau<Num>{y3 * (D3[i] + y * D4[i]), dy * y2 * (3 * D3[i] + 4 * y * D4[i]),
                        dy * dy * 6 * y * (D3[i] + 2 * y * D4[i])};
    };
    for (std::size_t i = 1; i < D3.size(); ++i) {
      const auto a = conditional(i);
      c[i - 1] += a.value;
      c1[i - 1] += a.first;
      c2[i - 1] += a.second;
    }
    const auto a = conditional(0);
    at_0 += a.value;
    at_0_1 = a.first;
    at_0_2 = a.second;
    const Num y30 = Math::template whole_power<15>(y2);
    y32 = y30 * y2;
    y32_1 = 32 * dy * y30 * y;
    y32_2 = 992 * dy * dy * y30;
  }
  const Num R = Math::polynomial(D5, chi), R_1 = Math::polynomial(R0d, chi);

  const auto sum_0 = weighted_sum<Math>(c, w, [](double) { return 1.0; });
  const auto sum_1 = weighted_sum<Math>(c, w, [](double n) { return n; });
  const auto sum_2 = weighted_sum<Math>(c, w, [](double n) { return n * (n + 1); });
  const auto sum_0_theta = weighted_sum<Math>(c1, w, [](double) { return 1.0; });
  const auto sum_1_theta = weighted_sum<Math>(c1, w, [](double n) { return n; });
  const auto sum_0_theta_theta = weighted_sum<Math>(c2, w, [](double) { return 1.0; });

  Derivatives3<Math> s;
  s.chi = chi;
  s.theta = theta;
  s.chi_1 = (of_log.value - sum_1) * w + of_chi.value + 6 * chi5 * f + y32 * R_1;
  const Num theta_1_of_both = sum_0_theta + of_chi.first * chi + of_log.first * log_chi + at_0_1 +
                              chi5 * chi * f1 + C40 * of_C4.first + y32_1 * R;
  s.theta_1 = theta_1_of_both + C50 * (1 + Math::log(theta)) + Math::polynomial(C7_1, tau);
  s.legendre = sum_0 + sum_1 + of_log.value * (log_chi - 1) + at_0 - 5 * chi5 * chi * f +
               C40 * of_C4.value + y32 * (R - chi * R_1) - theta * theta_1_of_both - C50 * theta -
               Math::polynomial(C7_h, tau);
  s.chi_2 = (sum_2 - of_log.value) * w2 + 30 * chi4 * f + y32 * R0d[1];
  s.chi_1_theta_1 = (of_log.first - sum_1_theta) * w + of_chi.first + 6 * chi5 * f1 + y32_1 * R_1;
  s.theta_2 = sum_0_theta_theta + of_chi.second * chi + of_log.second * log_chi + at_0_2 +
              chi5 * chi * f2 + C40 * of_C4.second + y32_2 * R + C50 * x +
              Math::polynomial(C7_2, tau);
  return s;
}

/// Pressure, bar.
template <class Math>
[[gnu::always_inline]] inline auto pressure(const Derivatives3<Math>& s) {
  return -s.chi_1 * reducing_pressure;
}

/// Enthalpy, kJ/kg.
template <class Math>
[[gnu::always_inline]] inline auto enthalpy(const Derivatives3<Math>& s) {
  return (s.legendre + enthalpy_origin) * enthalpy_scale;
}

/// Entropy, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto entropy(const Derivatives3<Math>& s) {
  return (-s.theta_1 - entropy_origin) * entropy_scale;
}

/// Isobaric heat capacity, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto heat_capacity(const Derivatives3<Math>& s) {
  return s.theta * (s.chi_1_theta_1 * s.chi_1_theta_1 / s.chi_2 - s.theta_2) * entropy_scale;
}

}  // namespace formulation
