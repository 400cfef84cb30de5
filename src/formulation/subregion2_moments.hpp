#pragma once

#include "formulation/subregion2.hpp"

namespace formulation {

// Subregion 2 arranged for several properties of one state. Every term of ζ2 but the ideal gas's is
// some power X^z times a factor, so that a derivative over θ is the term times -z b: all properties
// are made of few sums, which are weighted with z⁰, z¹ and z² ("moments"). The results differ from
// those of the published grouping in the last digits only.

namespace subregion2 {

/// Σ M, Σ z M and Σ z² M over terms M ∝ X^z.
template <class Num>
struct Moments {
  Num m0, m1, m2;
};

/// One term B X^z.
template <class Num>
struct Monomial {
  double z;
  Num value;
};

template <class Num, class... More>
[[gnu::always_inline]] inline Moments<Num> moments(Monomial<Num> first, More... more) {
  return {(first.value + ... + more.value), ((first.z * first.value) + ... + (more.z * more.value)),
          ((first.z * first.z * first.value) + ... + (more.z * more.z * more.value))};
}

/// A fraction N / (β⁻ⁿ + q): its moments, and those of its β-derivative times β / n, of which the
/// second is not needed.
template <class Num>
struct Fraction {
  Moments<Num> value;
  Num over_beta0, over_beta1;
  Num share;  // β⁻ⁿ / (β⁻ⁿ + q)
};

/// @param N       numerator
/// @param q       sum of powers of X in the denominator
/// @param beta_n  βⁿ
template <class Math, class Num = typename Math::Number>
[[gnu::always_inline]] inline Fraction<Num> fraction(Moments<Num> N, Moments<Num> q, Num beta_n) {
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
constexpr Centred<7> S(B9, 0.9);

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
[[gnu::always_inline]] inline Moments2<Math> moments2(typename Math::Number p,
                                                      typename Math::Number t) {
  using namespace subregion2;
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  using M = Monomial<Num>;
  Moments2<Math> s;
  const Num beta = p / Divisor(reducing_pressure);
  const Num theta = reduced_temperature<Divisor>(t);
  const Num X = Math::exp((1 - theta) * b);
  const Num X2 = X * X, X3 = X * X2, X4 = X2 * X2, X6 = X3 * X3, X8 = X4 * X4;
  const Num X10 = X4 * X6, X11 = X3 * X8, X12 = X6 * X6, X13 = X3 * X10, X14 = X6 * X8;
  const Num X18 = X8 * X10, X19 = X8 * X11, X24 = X12 * X12, X25 = X11 * X14, X27 = X13 * X14;
  const Num X28 = X14 * X14, X32 = X14 * X18, X54 = X27 * X27;
  const Num beta2 = beta * beta, beta3 = beta * beta2, beta4 = beta2 * beta2;
  const Num beta5 = beta2 * beta3, beta6 = beta3 * beta3;
  const auto g1 = moments(M{13, B11 * X13}, M{3, B12 * X3});
  const auto g2 = moments(M{18, B21 * X18}, M{2, B22 * X2}, M{1, B23 * X});
  const auto g3 = moments(M{18, B31 * X18}, M{10, B32 * X10});
  const auto g4 = moments(M{25, B41 * X25}, M{14, B42 * X14});
  const auto g5 = moments(M{32, B51 * X32}, M{28, B52 * X28}, M{24, B53 * X24});
  const auto f6 = fraction<Math>(moments(M{12, B61 * X12}, M{11, B62 * X11}),
                                 moments(M{14, b61 * X14}, M{0, Num(0)}), beta4);
  const auto f7 = fraction<Math>(moments(M{24, B71 * X24}, M{18, B72 * X18}),
                                 moments(M{19, b71 * X19}, M{0, Num(0)}), beta5);
  const auto f8 = fraction<Math>(moments(M{24, B81 * X24}, M{14, B82 * X14}),
                                 moments(M{54, b81 * X54}, M{27, b82 * X27}), beta6);
  s.beta = beta;
  s.theta = theta;
  s.one_over_beta = 1 / Divisor(beta);
  const auto total = [&](Num c1, Num c2, Num c3, Num c4, Num c5) __attribute__((always_inline)) {
    return (beta * c1 + beta2 * c2) + (beta3 * c3 + beta4 * c4) + beta5 * c5;
  };
  s.T0 = total(g1.m0, g2.m0, g3.m0, g4.m0, g5.m0) + (f6.value.m0 + f7.value.m0 + f8.value.m0);
  s.T1 = total(g1.m1, g2.m1, g3.m1, g4.m1, g5.m1) + (f6.value.m1 + f7.value.m1 + f8.value.m1);
  s.T2 = total(g1.m2, g2.m2, g3.m2, g4.m2, g5.m2) + (f6.value.m2 + f7.value.m2 + f8.value.m2);
  s.U0 = total(g1.m0, 2 * g2.m0, 3 * g3.m0, 4 * g4.m0, 5 * g5.m0) +
         (4 * f6.over_beta0 + 5 * f7.over_beta0 + 6 * f8.over_beta0);
  s.U1 = total(g1.m1, 2 * g2.m1, 3 * g3.m1, 4 * g4.m1, 5 * g5.m1) +
         (4 * f6.over_beta1 + 5 * f7.over_beta1 + 6 * f8.over_beta1);
  s.W0 = total(Num(0), 2 * g2.m0, 6 * g3.m0, 12 * g4.m0, 20 * g5.m0) -
         (4 * f6.over_beta0 * (5 - 8 * f6.share) + 5 * f7.over_beta0 * (6 - 10 * f7.share) +
          6 * f8.over_beta0 * (7 - 12 * f8.share));
  const Divisor under_beta_L((L2 * theta + L1) * theta + L0);
  const Num r = beta / under_beta_L;
  const Num r2 = r * r, r4 = r2 * r2;
  s.R = beta * (r4 * r4 * r2);
  s.dL = (two_L2 * theta + L1) * 10 / under_beta_L;
  s.ddL = 10 * two_L2 / under_beta_L;
  constexpr auto& c = S.around;
  constexpr std::array<double, 6> slope{c[1], 2 * c[2], 3 * c[3], 4 * c[4], 5 * c[5], 6 * c[6]};
  constexpr std::array<double, 5> curvature{2 * c[2], 6 * c[3], 12 * c[4], 20 * c[5], 30 * c[6]};
  const Num z = X - S.centre;
  const Num S_slope = Math::polynomial(slope, z);
  s.S0 = Math::polynomial(S, X);
  s.S1 = X * S_slope;
  s.S2 = X * (S_slope + X * Math::polynomial(curvature, z));
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
