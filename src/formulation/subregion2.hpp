#pragma once

#include <array>

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"

namespace formulation {

/// Steam up to 800 °C: coefficients of the reduced Gibbs function ζ2(β, θ).
/// @source IFC-67 (1967), subregion 2
namespace subregion2 {
constexpr double B0 = 1.683599274e1;
/// B01 … B05 at index 1 … 5.
constexpr std::array<double, 6> B0v{
    0, 2.856067796e1, -5.438923329e1, 4.330662834e-1, -6.547711697e-1, 8.565182058e-2};
constexpr double B11 = 6.670375918e-2, B12 = 1.388983801;
constexpr double B21 = 8.390104328e-2, B22 = 2.614670893e-2, B23 = -3.373439453e-2;
constexpr double B31 = 4.520918904e-1, B32 = 1.069036614e-1;
constexpr double B41 = -5.975336707e-1, B42 = -8.847535804e-2;
constexpr double B51 = 5.958051609e-1, B52 = -5.159303373e-1, B53 = 2.075021122e-1;
constexpr double B61 = 1.190610271e-1, B62 = -9.867174132e-2;
constexpr double B71 = 1.683998803e-1, B72 = -5.809438001e-2;
constexpr double B81 = 6.552390126e-3, B82 = 5.710218649e-4;
constexpr double b = 7.633333333e-1;
constexpr double b61 = 4.006073948e-1, b71 = 8.636081627e-2;
constexpr double b81 = -8.532322921e-1, b82 = 3.460208861e-1;
/// B90 … B96.
constexpr std::array<double, 7> B9{1.936587558e2, -1.388522425e3, 4.126607219e3, -6.508211677e3,
                                   5.745984054e3, -2.693088365e3, 5.235718623e2};
/// Boundary line to subregion 3, βL = L0 + L1 θ + L2 θ².
constexpr double L0 = 15.74373327, L1 = -34.17061978, L2 = 19.31380707;
constexpr double two_L2 = 38.62761414;
}  // namespace subregion2

/// The sub-expressions that the properties of subregion 2 share.
template <class Math>
struct Terms2 {
  using Num = typename Math::Number;
  Num beta, theta, one_over_theta;  // reduced pressure and temperature
  Num theta2, theta3, theta4;
  Num X;  // exp(b (1 - θ))
  Num X2, X3, X4, X6, X8, X10, X11, X12, X13, X14, X17, X18, X19, X24, X25, X27, X28, X32;
  Num B61_X, B71_X6, B81_X10;
  Num beta2, beta3, beta4, beta5, beta6, beta7;
  Num D8, dD8;          // β⁻⁶ + b81 X⁵⁴ + b82 X²⁷, and X ∂/∂X of its logarithm
  Num D7, dD7;          // β⁻⁵ + b71 X¹⁹, likewise
  Num D6, dD6;          // β⁻⁴ + b61 X¹⁴, likewise
  Num beta_L, dbeta_L;  // boundary line, and ten times the θ-derivative of its logarithm
  Num r, r10;           // β/βL and its tenth power
};

/// @param p  pressure, bar
/// @param t  temperature, °C
template <class Math>
Terms2<Math> terms2(typename Math::Number p, typename Math::Number t) {
  using namespace subregion2;
  Terms2<Math> s;
  s.beta = p / reducing_pressure;
  s.theta = reduced_temperature(t);
  s.one_over_theta = 1 / s.theta;
  s.theta2 = s.theta * s.theta;
  s.theta3 = s.theta * s.theta2;
  s.theta4 = s.theta2 * s.theta2;
  s.X = Math::exp((1 - s.theta) * b);
  s.X2 = s.X * s.X;
  s.X3 = s.X * s.X2;
  s.X4 = s.X2 * s.X2;
  s.X6 = s.X3 * s.X3;
  s.X8 = s.X4 * s.X4;
  s.X10 = s.X4 * s.X6;
  s.X11 = s.X * s.X10;
  s.X12 = s.X6 * s.X6;
  s.X13 = s.X2 * s.X11;
  s.X14 = s.X6 * s.X8;
  s.X17 = s.X6 * s.X11;
  s.X18 = s.X8 * s.X10;
  s.X19 = s.X8 * s.X11;
  s.X24 = s.X11 * s.X13;
  s.X25 = s.X11 * s.X14;
  s.X27 = s.X13 * s.X14;
  s.X28 = s.X14 * s.X14;
  s.X32 = s.X4 * s.X28;
  s.B61_X = B61 * s.X;
  s.B71_X6 = B71 * s.X6;
  s.B81_X10 = B81 * s.X10;
  s.beta2 = s.beta * s.beta;
  s.beta3 = s.beta * s.beta2;
  s.beta4 = s.beta2 * s.beta2;
  s.beta5 = s.beta2 * s.beta3;
  s.beta6 = s.beta3 * s.beta3;
  s.beta7 = s.beta3 * s.beta4;
  s.D8 = (b81 * s.X27 + b82) * s.X27 + 1 / s.beta6;
  s.dD8 = 27 * s.X27 * (2 * b81 * s.X27 + b82) / s.D8;
  s.D7 = 1 / s.beta5 + b71 * s.X19;
  s.dD7 = b71 * 19 * s.X19 / s.D7;
  s.D6 = 1 / s.beta4 + b61 * s.X14;
  s.dD6 = b61 * 14 * s.X14 / s.D6;
  s.beta_L = (L2 * s.theta + L1) * s.theta + L0;
  s.dbeta_L = (two_L2 * s.theta + L1) * 10 / s.beta_L;
  s.r = s.beta / s.beta_L;
  const auto r2 = s.r * s.r;
  const auto r4 = r2 * r2;
  s.r10 = r4 * r4 * r2;
  return s;
}

/// Specific volume of steam, m³/kg: ∂ζ2/∂β.
template <class Math>
auto volume(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  const Num chi =
      ideal_gas_constant * s.theta / s.beta - (B11 * s.X13 + B12 * s.X3) -
      2 * s.beta * (B21 * s.X18 + B22 * s.X2 + B23 * s.X) -
      3 * s.beta2 * (B31 * s.X18 + B32 * s.X10) - 4 * s.beta3 * (B41 * s.X25 + B42 * s.X14) -
      5 * s.beta4 * (B51 * s.X32 + B52 * s.X28 + B53 * s.X24) -
      4 * (s.B61_X + B62) * s.X11 / (s.beta5 * s.D6 * s.D6) -
      5 * (s.B71_X6 + B72) * s.X18 / (s.beta6 * s.D7 * s.D7) -
      6 * (s.B81_X10 + B82) * s.X14 / (s.beta7 * s.D8 * s.D8) + 11 * s.r10 * horner(B9, s.X);
  return chi * reducing_volume;
}

/// Enthalpy of steam, kJ/kg: ζ2 - θ ∂ζ2/∂θ.
template <class Math>
auto enthalpy(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  const Num bt = b * s.theta;
  // B0 θ - Σ (v - 2) B0v θ^(v-1), v = 1 … 5
  constexpr std::array<double, 5> polynomial{B0v[1], B0, -B0v[3], -2 * B0v[4], -3 * B0v[5]};
  // Σ (1 + θ (10 βL'/βL + v b)) B9v X^v
  Num sum9 = Num(0);
  for (auto v = B9.size(); v-- > 0;) {
    sum9 = sum9 * s.X + (1 + (s.dbeta_L * s.theta + static_cast<double>(v) * bt)) * B9[v];
  }
  const Num epsilon =
      horner(polynomial, s.theta) -
      s.beta * (B11 * s.X13 * (1 + 13 * bt) + B12 * s.X3 * (1 + 3 * bt)) -
      s.beta2 * (B21 * s.X18 * (1 + 18 * bt) + B22 * s.X2 * (1 + 2 * bt) + B23 * s.X * (1 + bt)) -
      s.beta3 * (B31 * s.X18 * (1 + 18 * bt) + B32 * s.X10 * (1 + 10 * bt)) -
      s.beta4 * (B41 * s.X25 * (1 + 25 * bt) + B42 * s.X14 * (1 + 14 * bt)) -
      s.beta5 * (B51 * s.X32 * (1 + 32 * bt) + B52 * s.X28 * (1 + 28 * bt) +
                 B53 * s.X24 * (1 + 24 * bt)) -
      s.X11 * (s.B61_X * (1 + (12 - s.dD6) * bt) + B62 * (1 + (11 - s.dD6) * bt)) / s.D6 -
      s.X18 * (s.B71_X6 * (1 + (24 - s.dD7) * bt) + B72 * (1 + (18 - s.dD7) * bt)) / s.D7 -
      s.X14 * (s.B81_X10 * (1 + (24 - s.dD8) * bt) + B82 * (1 + (14 - s.dD8) * bt)) / s.D8 +
      s.beta * s.r10 * sum9;
  return (epsilon + enthalpy_origin) * enthalpy_scale;
}

/// Entropy of steam, kJ/(kg K): -∂ζ2/∂θ.
template <class Math>
auto entropy(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  // -Σ (v - 1) B0v θ^(v-2), v = 2 … 5
  constexpr std::array<double, 4> polynomial{-B0v[2], -2 * B0v[3], -3 * B0v[4], -4 * B0v[5]};
  // Σ (10 βL'/βL + v b) B9v X^v
  Num sum9 = Num(0);
  for (auto v = B9.size(); v-- > 0;) {
    sum9 = sum9 * s.X + (s.dbeta_L + static_cast<double>(v) * b) * B9[v];
  }
  const Num series = s.beta * (13 * B11 * s.X13 + 3 * B12 * s.X3) +
                     s.beta2 * (18 * B21 * s.X18 + 2 * B22 * s.X2 + B23 * s.X) +
                     s.beta3 * (18 * B31 * s.X18 + 10 * B32 * s.X10) +
                     s.beta4 * (25 * B41 * s.X25 + 14 * B42 * s.X14) +
                     s.beta5 * (32 * B51 * s.X32 + 28 * B52 * s.X28 + 24 * B53 * s.X24) +
                     s.X11 * (s.B61_X * (12 - s.dD6) + B62 * (11 - s.dD6)) / s.D6 +
                     s.X18 * (s.B71_X6 * (24 - s.dD7) + B72 * (18 - s.dD7)) / s.D7 +
                     s.X14 * (s.B81_X10 * (24 - s.dD8) + B82 * (14 - s.dD8)) / s.D8;
  const Num sigma = B0 * Math::log(s.theta) - ideal_gas_constant * Math::log(s.beta) +
                    horner(polynomial, s.theta) - b * series + s.beta * s.r10 * sum9;
  return (sigma - entropy_origin) * entropy_scale;
}

/// (X ∂/∂X)² of (N1 X^z1 + N2 X^z2) / D, where D is β^-n plus powers of X.
/// @param n1, n2  the two terms of the numerator, with their powers of X
/// @param dD      X ∂D/∂X over D
/// @param ddD     (X ∂/∂X)² D over D
template <class Num>
Num second_log_derivative(Num n1, double z1, Num n2, double z2, Num D, Num dD, Num ddD) {
  const Num rest = 2 * dD * dD - ddD;
  return (n1 * (z1 * z1 - 2 * z1 * dD + rest) + n2 * (z2 * z2 - 2 * z2 * dD + rest)) / D;
}

/// Isobaric heat capacity of steam, kJ/(kg K): -θ ∂²ζ2/∂θ².
template <class Math>
auto heat_capacity(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  // -Σ (v - 1)(v - 2) B0v θ^(v-3), v = 3 … 5
  constexpr std::array<double, 3> polynomial{-2 * B0v[3], -6 * B0v[4], -12 * B0v[5]};
  const Num series =
      s.beta * (169 * B11 * s.X13 + 9 * B12 * s.X3) +
      s.beta2 * (324 * B21 * s.X18 + 4 * B22 * s.X2 + B23 * s.X) +
      s.beta3 * (324 * B31 * s.X18 + 100 * B32 * s.X10) +
      s.beta4 * (625 * B41 * s.X25 + 196 * B42 * s.X14) +
      s.beta5 * (1024 * B51 * s.X32 + 784 * B52 * s.X28 + 576 * B53 * s.X24) +
      second_log_derivative(s.B61_X * s.X11, 12, B62 * s.X11, 11, s.D6, s.dD6, 14 * s.dD6) +
      second_log_derivative(s.B71_X6 * s.X18, 24, B72 * s.X18, 18, s.D7, s.dD7, 19 * s.dD7) +
      second_log_derivative(s.B81_X10 * s.X14, 24, B82 * s.X14, 14, s.D8, s.dD8,
                            729 * s.X27 * (4 * b81 * s.X27 + b82) / s.D8);
  // With S = Σ B9v X^v and l = βL'/βL: (10 l' - 100 l²) S - 20 l b δS - b² δ²S, δ = X ∂/∂X
  const Num l = s.dbeta_L / 10;
  const Num of_S = 10 * two_L2 / s.beta_L - 110 * l * l;
  Num sum9 = Num(0);
  for (auto v = B9.size(); v-- > 0;) {
    const double vb = static_cast<double>(v) * b;
    sum9 = sum9 * s.X + (of_S - vb * (20 * l + vb)) * B9[v];
  }
  const Num dsigma =
      B0 / s.theta + horner(polynomial, s.theta) + b * b * series + s.beta * s.r10 * sum9;
  return s.theta * dsigma * entropy_scale;
}

}  // namespace formulation
