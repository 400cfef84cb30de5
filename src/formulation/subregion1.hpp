#pragma once

#include <array>

#include "formulation/centred.hpp"
#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"

namespace formulation {

/// Compressed and saturated water up to 350 °C: coefficients A0 … A22 and a1 … a12 (index 0 of `a`
/// is not used) of the reduced Gibbs function ζ1(β, θ).
/// @source IFC-67 (1967), subregion 1. A public table has a8 misprinted as 1.1508e-5.
namespace subregion1 {
constexpr std::array<double, 23> A{6.824687741e3,   -5.422063673e2, -2.096666205e4, 3.941286787e4,
                                   -6.733277739e4,  9.902381028e4,  -1.093911774e5, 8.590841667e4,
                                   -4.511168742e4,  1.418138926e4,  -2.017271113e3, 7.982692717,
                                   -2.616571843e-2, 1.522411790e-3, 2.284279054e-2, 2.421647003e2,
                                   1.269716088e-10, 2.074838328e-7, 2.174020350e-8, 1.105710498e-9,
                                   1.293441934e1,   1.308119072e-5, 6.047626338e-14};
constexpr std::array<double, 13> a{0,
                                   8.438375405e-1,
                                   5.362162162e-4,
                                   1.720,
                                   7.342278489e-2,
                                   4.975858870e-2,
                                   6.537154300e-1,
                                   1.150e-6,
                                   1.5108e-5,
                                   1.4188e-1,
                                   7.002753165,
                                   2.995284926e-4,
                                   2.040e-1};
/// A reduced temperature amid those of water, which are 0.42 to 0.96.
constexpr double centre = 0.69;

// Of the terms in A0 … A10.

/// A0 θ - Σ (v - 2) A_v θ^(v-1), v = 1 … 10.
constexpr Centred<10> h_polynomial{
    {A[1], A[0], -A[3], -2 * A[4], -3 * A[5], -4 * A[6], -5 * A[7], -6 * A[8], -7 * A[9],
     -8 * A[10]},
    centre,
    {11.490611524460116, 39.779588737043, 1.6568202941150214, 17.68969848723054,
     -12.571873708171887, 146.90911879344964, -221.39635618858523, -696.9967394016035,
     948.3040738399899, 16138.168904}};
/// -Σ (v - 1) A_v θ^(v-2), v = 2 … 10.
constexpr Centred<9> s_polynomial{
    {-A[2], -2 * A[3], -3 * A[4], -4 * A[5], -5 * A[6], -6 * A[7], -7 * A[8], -8 * A[9],
     -9 * A[10]},
    centre,
    {2551.983316796854, -9833.200220670886, 7127.908595115504, -6861.230963656298,
     7439.639636281735, -8412.75737714727, 9839.470712223661, -13233.085186160002, 18155.440017}};
/// -Σ (v - 1)(v - 2) A_v θ^(v-3), v = 3 … 10.
constexpr Centred<8> cp_polynomial{
    {-2 * A[3], -6 * A[4], -12 * A[5], -20 * A[6], -30 * A[7], -42 * A[8], -56 * A[9], -72 * A[10]},
    centre,
    {-9833.200220671008, 14255.817190230402, -20583.692890970207, 29758.55854512532,
     -42063.786885737485, 59036.82427334162, -92631.59630312005, 145243.520136}};
}  // namespace subregion1

/// The sub-expressions that the properties of subregion 1 share. What is named under_… stands under
/// fraction lines.
template <class Math>
struct Terms1 {
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  Num beta, theta;  // reduced pressure and temperature
  Num theta2, theta4, theta6, theta7, theta10, theta11;
  Num theta16, theta17, theta18, theta19, theta20, theta21;
  Divisor under_theta, under_theta2, under_theta6, under_theta7, under_theta20, under_theta21;
  Num beta2, beta3, beta4;
  Num d8, d9, d10;                      // (a6 - θ)⁸, (a6 - θ)⁹ and (a6 - θ)¹⁰
  Divisor under_f;                      // a7 + θ¹⁹
  Divisor under_f2;                     // its square
  Divisor under_g;                      // a8 + θ¹¹
  Num A17_19_over_g2;                   // (A17 β + A18 β² + A19 β³) / (a8 + θ¹¹)²
  Divisor under_e, under_e3, under_e4;  // a10 + β and its powers
  Num e;                                // 1 / (a10 + β)³ + a11 β
  Num Y, root, Z;  // Y = 1 - a1 θ² - a2 θ⁻⁶, Z = Y + √(a3 Y² - 2 a4 θ + 2 a5 β)
  Num dY;          // ∂Y/∂θ
  Num Z_m5_17;     // Z^(-5/17)
};

/// The root in Z, from β, θ and Y.
template <class Math>
[[gnu::always_inline]] inline auto root_in_Z(const Terms1<Math>& s) {
  using subregion1::a;
  return Math::sqrt((a[5] * s.beta - a[4] * s.theta) * 2 + a[3] * s.Y * s.Y);
}

/// @param p  pressure, bar
/// @param t  temperature, °C
template <class Math>
// NOLINTNEXTLINE(readability-function-size): straight formulas
[[gnu::always_inline]] inline Terms1<Math> terms1(typename Math::Number p,
                                                  typename Math::Number t) {
  using subregion1::A, subregion1::a;
  using Divisor = typename Math::Divisor;
  Terms1<Math> s;
  s.beta = p / Divisor(reducing_pressure);
  s.theta = reduced_temperature<Divisor>(t);
  s.theta2 = s.theta * s.theta;
  s.theta4 = s.theta2 * s.theta2;
  s.theta6 = s.theta2 * s.theta4;
  s.theta7 = s.theta * s.theta6;
  s.theta10 = s.theta4 * s.theta6;
  s.theta11 = s.theta * s.theta10;
  s.theta16 = s.theta6 * s.theta10;
  s.theta17 = s.theta * s.theta16;
  s.theta18 = s.theta2 * s.theta16;
  s.theta19 = s.theta * s.theta18;
  s.theta20 = s.theta4 * s.theta16;
  s.theta21 = s.theta * s.theta20;
  s.under_theta = Divisor(s.theta);
  s.under_theta2 = s.under_theta * s.under_theta;
  const auto under_theta4 = s.under_theta2 * s.under_theta2;
  s.under_theta6 = s.under_theta2 * under_theta4;
  s.under_theta7 = s.under_theta * s.under_theta6;
  s.under_theta20 = under_theta4 * (s.under_theta6 * (under_theta4 * s.under_theta6));
  s.under_theta21 = s.under_theta * s.under_theta20;
  s.beta2 = s.beta * s.beta;
  s.beta3 = s.beta * s.beta2;
  s.beta4 = s.beta2 * s.beta2;
  const auto d = a[6] - s.theta;
  const auto d2 = d * d;
  const auto d4 = d2 * d2;
  s.d8 = d4 * d4;
  s.d9 = s.d8 * d;
  s.d10 = d * s.d9;
  s.under_f = Divisor(a[7] + s.theta19);
  s.under_f2 = s.under_f * s.under_f;
  s.under_g = Divisor(a[8] + s.theta11);
  s.A17_19_over_g2 = ((A[19] * s.beta + A[18]) * s.beta + A[17]) * s.beta / s.under_g / s.under_g;
  s.under_e = Divisor(a[10] + s.beta);
  s.under_e3 = s.under_e * s.under_e * s.under_e;
  s.under_e4 = s.under_e * s.under_e3;
  s.e = 1 / s.under_e3 + a[11] * s.beta;
  s.Y = 1 - a[1] * s.theta2 - a[2] / s.under_theta6;
  s.root = root_in_Z(s);
  s.Z = s.Y + s.root;
  s.dY = a[2] * 6 / s.under_theta7 - s.theta * 2 * a[1];
  s.Z_m5_17 = Math::power_m5_17(s.Z);
  return s;
}

/// Specific volume of water, m³/kg: ∂ζ1/∂β.
template <class Math>
[[gnu::always_inline]] inline auto volume(const Terms1<Math>& s) {
  using subregion1::A, subregion1::a;
  const auto chi =
      A[11] * a[5] * s.Z_m5_17 +
      (A[12] + A[13] * s.theta + A[14] * s.theta2 + A[15] * s.d10 + A[16] / s.under_f) -
      (A[17] + 2 * A[18] * s.beta + 3 * A[19] * s.beta2) / s.under_g -
      A[20] * s.theta18 * (a[9] + s.theta2) * (a[11] - 3 / s.under_e4) +
      3 * A[21] * (a[12] - s.theta) * s.beta2 + 4 * A[22] * s.beta3 / s.under_theta20;
  return chi * reducing_volume;
}

/// Enthalpy of water, kJ/kg: ζ1 - θ ∂ζ1/∂θ.
template <class Math>
[[gnu::always_inline]] inline auto enthalpy(const Terms1<Math>& s) {
  using subregion1::A, subregion1::a;
  using Divisor = typename Math::Divisor;
  const auto epsilon =
      Math::polynomial(subregion1::h_polynomial, s.theta) +
      A[11] *
          (s.Z * (17 * (s.Z / Divisor(29) - s.Y / Divisor(12)) + 5 * s.theta * s.dY / Divisor(12)) +
           a[4] * s.theta - (a[3] - 1) * s.theta * s.Y * s.dY) *
          s.Z_m5_17 +
      (A[12] - A[14] * s.theta2 + A[15] * (9 * s.theta + a[6]) * s.d9 +
       A[16] * (20 * s.theta19 + a[7]) / s.under_f2) *
          s.beta -
      (12 * s.theta11 + a[8]) * s.A17_19_over_g2 +
      A[20] * s.theta18 * (17 * a[9] + 19 * s.theta2) * s.e + A[21] * a[12] * s.beta3 +
      21 * A[22] * s.beta4 / s.under_theta20;
  return (epsilon + enthalpy_origin) * enthalpy_scale;
}

/// Entropy of water, kJ/(kg K): -∂ζ1/∂θ.
template <class Math>
[[gnu::always_inline]] inline auto entropy(const Terms1<Math>& s) {
  using subregion1::A, subregion1::a;
  using Divisor = typename Math::Divisor;
  const auto sigma =
      A[0] * Math::log(s.theta) + Math::polynomial(subregion1::s_polynomial, s.theta) +
      A[11] * ((5 * s.Z / Divisor(12) - (a[3] - 1) * s.Y) * s.dY + a[4]) * s.Z_m5_17 +
      (10 * A[15] * s.d9 + 19 * A[16] * s.theta18 / s.under_f2 - A[13] - 2 * A[14] * s.theta) *
          s.beta -
      11 * s.theta10 * s.A17_19_over_g2 + A[20] * s.theta17 * (18 * a[9] + 20 * s.theta2) * s.e +
      A[21] * s.beta3 + 20 * A[22] * s.beta4 / s.under_theta21;
  return (sigma - entropy_origin) * entropy_scale;
}

/// Isobaric heat capacity of water, kJ/(kg K): -θ ∂²ζ1/∂θ².
template <class Math>
[[gnu::always_inline]] inline auto heat_capacity(const Terms1<Math>& s) {
  using subregion1::A, subregion1::a;
  using Divisor = typename Math::Divisor;
  const auto ddY = -2 * a[1] - 42 * a[2] / (s.under_theta2 * s.under_theta6);
  const auto dZ = s.dY + (a[3] * s.Y * s.dY - a[4]) / Divisor(s.root);
  // σ of the A11 term is U · Z^(-5/17)
  const auto U = (5 * s.Z / Divisor(12) - (a[3] - 1) * s.Y) * s.dY + a[4];
  const auto dU = (5 * dZ / Divisor(12) - (a[3] - 1) * s.dY) * s.dY +
                  (5 * s.Z / Divisor(12) - (a[3] - 1) * s.Y) * ddY;
  const auto dsigma =
      A[0] / s.under_theta + Math::polynomial(subregion1::cp_polynomial, s.theta) +
      A[11] * (dU - 5 * U * dZ / (Divisor(17) * Divisor(s.Z))) * s.Z_m5_17 +
      (19 * A[16] * s.theta17 * (18 * a[7] - 20 * s.theta19) / (s.under_f * s.under_f2) -
       2 * A[14] - 90 * A[15] * s.d8) *
          s.beta -
      11 * s.theta7 * s.theta2 * (10 * a[8] - 12 * s.theta11) * s.A17_19_over_g2 / s.under_g +
      A[20] * s.theta16 * (306 * a[9] + 380 * s.theta2) * s.e -
      420 * A[22] * s.beta4 / (s.under_theta * s.under_theta21);
  return s.theta * dsigma * entropy_scale;
}

/// Slopes of the specific volume of water: ∂²ζ1/∂β² and ∂²ζ1/∂β∂θ.
template <class Math>
[[gnu::always_inline]] inline auto volume_slopes(const Terms1<Math>& s) {
  using subregion1::A, subregion1::a;
  using Divisor = typename Math::Divisor;
  const Divisor under_root(s.root);
  const auto dZ = s.dY + (a[3] * s.Y * s.dY - a[4]) / under_root;
  const auto power = A[11] * a[5] * (-5.0 / 17) * s.Z_m5_17 / Divisor(s.Z);
  const auto chi_beta = power * a[5] / under_root - (2 * A[18] + 6 * A[19] * s.beta) / s.under_g -
                        A[20] * s.theta18 * (a[9] + s.theta2) * 12 / (s.under_e4 * s.under_e) +
                        6 * A[21] * (a[12] - s.theta) * s.beta +
                        12 * A[22] * s.beta2 / s.under_theta20;
  const auto chi_theta =
      power * dZ +
      (A[13] + 2 * A[14] * s.theta - 10 * A[15] * s.d9 - 19 * A[16] * s.theta18 / s.under_f2) +
      (A[17] + 2 * A[18] * s.beta + 3 * A[19] * s.beta2) * 11 * s.theta10 /
          (s.under_g * s.under_g) -
      A[20] * (18 * a[9] * s.theta17 + 20 * s.theta19) * (a[11] - 3 / s.under_e4) -
      3 * A[21] * s.beta2 - 80 * A[22] * s.beta3 / s.under_theta21;
  return VolumeSlopes<typename Math::Number>{chi_beta * (reducing_volume / reducing_pressure),
                                             chi_theta * (reducing_volume / reducing_temperature)};
}

}  // namespace formulation
