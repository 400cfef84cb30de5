#pragma once

#include "formulation/subregion2.hpp"

namespace formulation {

// Subregion 2 arranged for several properties of one state. Every term of ζ2 but the ideal gas's is
// some power X^z times a factor, so that a derivative over θ is the term times -z b: all properties
// are made of few sums, which are weighted with z⁰, z¹ and z² ("moments"). The results differ from
// those of the published grouping in the last digits only.

namespace subregion2 {

/// With shorter chains of products than those of the published terms.
template <class Num>
[[gnu::always_inline]] inline PowersOfX<Num> powers(Num of_X) {
  PowersOfX<Num> X;
  X[1] = of_X;
  X[2] = X[1] * X[1], X[3] = X[1] * X[2], X[4] = X[2] * X[2], X[6] = X[3] * X[3];
  X[8] = X[4] * X[4], X[10] = X[4] * X[6], X[11] = X[3] * X[8], X[12] = X[6] * X[6];
  X[13] = X[3] * X[10], X[14] = X[6] * X[8], X[18] = X[8] * X[10], X[19] = X[8] * X[11];
  X[24] = X[12] * X[12], X[25] = X[11] * X[14], X[27] = X[13] * X[14];
  X[28] = X[14] * X[14], X[32] = X[14] * X[18], X[54] = X[27] * X[27];
  return X;
}

/// Σ M, Σ z M and Σ z² M over terms M ∝ X^z.
template <class Num>
struct Moments {
  Num m0, m1, m2;
};

/// Of the terms B X^z.
template <class Num, class... Terms>
[[gnu::always_inline]] inline Moments<Num> moments(const PowersOfX<Num>& X, Terms... of) {
  return {(... + (of.B * X[of.z])), (... + (of.z * (of.B * X[of.z]))),
          (... + (of.z * of.z * (of.B * X[of.z])))};
}

/// A fraction N / (β⁻ⁿ + q): its moments, and those of its β-derivative times β / n, of which the
/// second is not needed.
template <class Num>
struct FractionMoments {
  Moments<Num> value;
  Num over_beta0, over_beta1;
  Num share;  // β⁻ⁿ / (β⁻ⁿ + q)
};

/// @param beta  β⁰ … β⁶
template <int i, class Math, class Num = typename Math::Number>
[[gnu::always_inline]] inline FractionMoments<Num> moments(const PowersOfX<Num>& X,
                                                           const std::array<Num, 7>& beta) {
  constexpr Fraction f = fractions[i];
  const auto N = moments(X, f.N1, f.N2);
  Moments<Num> q;
  if constexpr (f.b2 == 0) {
    q = moments(X, Power{f.y, f.b1});
  } else {
    q = moments(X, Power{2 * f.y, f.b2}, Power{f.y, f.b1});
  }
  const Num beta_n = beta[f.n];
  const Num share = 1 / typename Math::Divisor(1 + beta_n * q.m0);
  const Num factor = beta_n * share;
  const Num d = factor * q.m1;  // X ∂/∂X of the denominator's logarithm
  return {{factor * N.m0, factor * (N.m1 - d * N.m0),
           factor * (N.m2 - 2 * d * N.m1 + (2 * d * d - factor * q.m2) * N.m0)},
          factor * share * N.m0,
          factor * share * (N.m1 - 2 * d * N.m0),
          share};
}

/// Σ B9v X^v. It matters next to the boundary line, where X is 0.77 to 1.03.
constexpr Centred<7> S{B9,
                       0.9,
                       {5.1410124061401774e-05, 0.01300798866067815, 0.03649551544737953,
                        -3.0070867660020624, -11.515461555000474, 134.1996914200001, 523.5718623}};

}  // namespace subregion2

/// What the properties of steam are made of.
template <class Math>
struct Moments2 {
  using Num = typename Math::Number;
  Num beta, theta;
  Num one_over_beta;
  Num T0, T1, T2;  // moments of all terms but those of the ideal gas and of B90 … B96
  Num U0, U1;      // β ∂/∂β of the first two
  Num W0;          // β² ∂²/∂β² of the first
  Num R;           // β (β/βL)¹⁰
  Num S0, S1, S2;  // moments of Σ B9v X^v
  Num dL;          // 10 βL'/βL
  Num ddL;         // 10 βL''/βL
};

/// @param p  pressure, bar
/// @param t  temperature, °C
template <class Math>
// NOLINTNEXTLINE(readability-function-size): straight formulas
[[gnu::always_inline]] inline Moments2<Math> moments2(typename Math::Number p,
                                                      typename Math::Number t) {
  using namespace subregion2;
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  Moments2<Math> s;
  const Num theta = reduced_temperature<Divisor>(t);
  const auto X = powers(Math::exp((1 - theta) * b));
  std::array<Num, 7> beta;
  beta[1] = p / Divisor(reducing_pressure);
  beta[2] = beta[1] * beta[1], beta[3] = beta[1] * beta[2];
  beta[4] = beta[2] * beta[2], beta[5] = beta[2] * beta[3], beta[6] = beta[3] * beta[3];
  std::array<Moments<Num>, groups + 1> g;
  each_group([&](auto n, auto... of) __attribute__((always_inline)) { g[n] = moments(X, of...); });
  const auto f6 = moments<0, Math>(X, beta);
  const auto f7 = moments<1, Math>(X, beta);
  const auto f8 = moments<2, Math>(X, beta);
  s.beta = beta[1];
  s.theta = theta;
  s.one_over_beta = 1 / Divisor(beta[1]);
  // Σ weight(n) βⁿ times one of the moments
  const auto total = [&](Num Moments<Num>::*m, auto weight) __attribute__((always_inline)) {
    const auto c = [&](unsigned n) __attribute__((always_inline)) { return weight(n) * (g[n].*m); };
    return (beta[1] * c(1) + beta[2] * c(2)) + (beta[3] * c(3) + beta[4] * c(4)) + beta[5] * c(5);
  };
  constexpr auto m0 = &Moments<Num>::m0, m1 = &Moments<Num>::m1, m2 = &Moments<Num>::m2;
  constexpr auto once = [](unsigned) { return 1; };
  constexpr auto by_n = [](unsigned n) { return n; };
  s.T0 = total(m0, once) + (f6.value.m0 + f7.value.m0 + f8.value.m0);
  s.T1 = total(m1, once) + (f6.value.m1 + f7.value.m1 + f8.value.m1);
  s.T2 = total(m2, once) + (f6.value.m2 + f7.value.m2 + f8.value.m2);
  s.U0 = total(m0, by_n) + (4 * f6.over_beta0 + 5 * f7.over_beta0 + 6 * f8.over_beta0);
  s.U1 = total(m1, by_n) + (4 * f6.over_beta1 + 5 * f7.over_beta1 + 6 * f8.over_beta1);
  s.W0 = total(m0, [](unsigned n) { return n * (n - 1); }) -
         (4 * f6.over_beta0 * (5 - 8 * f6.share) + 5 * f7.over_beta0 * (6 - 10 * f7.share) +
          6 * f8.over_beta0 * (7 - 12 * f8.share));
  const Divisor under_beta_L(boundary_line(theta));
  const Num r = beta[1] / under_beta_L;
  const Num r2 = r * r, r4 = r2 * r2;
  s.R = beta[1] * (r4 * r4 * r2);
  s.dL = boundary_line.slope(theta) * 10 / under_beta_L;
  s.ddL = 10 * boundary_line.curvature() / under_beta_L;
  constexpr auto& c = S.around;
  constexpr std::array<double, 6> slope{c[1], 2 * c[2], 3 * c[3], 4 * c[4], 5 * c[5], 6 * c[6]};
  constexpr std::array<double, 5> curvature{2 * c[2], 6 * c[3], 12 * c[4], 20 * c[5], 30 * c[6]};
  const Num z = X[1] - S.centre;
  const Num S_slope = Math::polynomial(slope, z);
  s.S0 = Math::polynomial(S, X[1]);
  s.S1 = X[1] * S_slope;
  s.S2 = X[1] * (S_slope + X[1] * Math::polynomial(curvature, z));
  return s;
}

/// Specific volume of steam, m³/kg.
template <class Math>
[[gnu::always_inline]] inline auto volume(const Moments2<Math>& s) {
  const auto chi = (ideal_gas_constant * s.theta - s.U0 + 11 * s.R * s.S0) * s.one_over_beta;
  return chi * reducing_volume;
}

/// Enthalpy of steam, kJ/kg.
template <class Math>
[[gnu::always_inline]] inline auto enthalpy(const Moments2<Math>& s) {
  using namespace subregion2;
  constexpr std::array<double, 5> polynomial{B0v[1], B0, -B0v[3], -2 * B0v[4], -3 * B0v[5]};
  const auto epsilon = Math::polynomial(polynomial, s.theta) - s.T0 + s.R * s.S0 +
                       s.theta * (s.R * (s.dL * s.S0 + b * s.S1) - b * s.T1);
  return (epsilon + enthalpy_origin) * enthalpy_scale;
}

/// Entropy of steam, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto entropy(const Moments2<Math>& s) {
  using namespace subregion2;
  constexpr std::array<double, 4> polynomial{-B0v[2], -2 * B0v[3], -3 * B0v[4], -4 * B0v[5]};
  const auto sigma = B0 * Math::log(s.theta) - ideal_gas_constant * Math::log(s.beta) +
                     Math::polynomial(polynomial, s.theta) +
                     (s.R * (s.dL * s.S0 + b * s.S1) - b * s.T1);
  return (sigma - entropy_origin) * entropy_scale;
}

/// Isobaric heat capacity of steam, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto heat_capacity(const Moments2<Math>& s) {
  using namespace subregion2;
  using Divisor = typename Math::Divisor;
  constexpr std::array<double, 3> polynomial{-2 * B0v[3], -6 * B0v[4], -12 * B0v[5]};
  const auto l = s.dL / Divisor(10);
  const auto dsigma = B0 / Divisor(s.theta) + Math::polynomial(polynomial, s.theta) + b * b * s.T2 +
                      s.R * ((s.ddL - 110 * l * l) * s.S0 - b * (20 * l * s.S1 + b * s.S2));
  return s.theta * dsigma * entropy_scale;
}

/// Slopes of the specific volume of steam: ∂²ζ2/∂β² and ∂²ζ2/∂β∂θ.
template <class Math>
[[gnu::always_inline]] inline auto volume_slopes(const Moments2<Math>& s) {
  using namespace subregion2;
  const auto chi_beta =
      (110 * s.R * s.S0 - s.W0 - ideal_gas_constant * s.theta) * s.one_over_beta * s.one_over_beta;
  const auto chi_theta =
      (ideal_gas_constant + b * s.U1 - 11 * s.R * (s.dL * s.S0 + b * s.S1)) * s.one_over_beta;
  return VolumeSlopes<typename Math::Number>{chi_beta * (reducing_volume / reducing_pressure),
                                             chi_theta * (reducing_volume / reducing_temperature)};
}

}  // namespace formulation
