#pragma once

#include <array>

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"

namespace formulation {

/// The conditional group of subregion 3, the terms of ψ3 in D3, D4 and D5:
/// y³ Σ D3v w^v + y⁴ Σ D4v w^v + y³² Σ D5v χ^v. It stands only in the liquid below the critical
/// temperature.
/// @source IFC-67 (1967), subregion 3
namespace subregion3 {
constexpr std::array<double, 5> D3{-1.717616747, 3.526389875, -2.690899373, 9.070982605e-1,
                                   -1.138791156e-1};
constexpr std::array<double, 5> D4{1.301023613, -2.642777743, 1.996765362, -6.661557013e-1,
                                   8.270860589e-2};
constexpr std::array<double, 3> D5{3.426663535e-4, -1.236521258e-3, 1.155018309e-3};

// Products v D_v, stored with their own decimal digits.
constexpr std::array<double, 4> P0d{3.526389875, -5.381798746, 2.7212947815, -0.4555164624};
constexpr std::array<double, 4> Q0d{-2.642777743, 3.993530724, -1.9984671039, 0.33083442356};
constexpr std::array<double, 2> R0d{-0.001236521258, 0.002310036618};

/// 1 - θ at 350 °C.
constexpr double one_minus_theta_350 = 1 - (350 + celsius_offset) / reducing_temperature;
}  // namespace subregion3

/// What the group's shares of the properties have in common.
template <class Math>
struct Conditional3 {
  using Num = typename Math::Number;
  Num chi, theta;  // reduced volume and temperature
  Num w, w2;       // w = 1/χ
  Num y, y2, y3;   // (1 - θ) / (1 - θ350): 1 at 350 °C, 0 at the critical temperature
  Num y30, y31;    // 0 below y = 0.01
  Num P0, P0d;     // Σ D3v w^v, and w² times its w-derivative
  Num Q0, Q0d;     // Σ D4v w^v, likewise
  Num R0, R0d;     // Σ D5v χ^v, and its χ-derivative
};

/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
template <class Math>
Conditional3<Math> conditional3(typename Math::Number v, typename Math::Number t) {
  using namespace subregion3;
  Conditional3<Math> s;
  s.chi = v / reducing_volume;
  s.theta = reduced_temperature(t);
  s.w = reducing_volume / v;
  s.w2 = s.w * s.w;
  s.y = (1 - s.theta) / one_minus_theta_350;
  s.y2 = s.y * s.y;
  s.y3 = s.y * s.y2;
  s.y30 = 0.0;
  s.y31 = 0.0;
  if (s.y >= 0.01) {
    s.y30 = Math::template whole_power<30>(s.y);
    s.y31 = s.y * s.y30;
  }
  s.P0 = horner(D3, s.w);
  s.P0d = horner(subregion3::P0d, s.w) * s.w2;
  s.Q0 = horner(D4, s.w);
  s.Q0d = horner(subregion3::Q0d, s.w) * s.w2;
  s.R0 = horner(D5, s.chi);
  s.R0d = horner(subregion3::R0d, s.chi);
  return s;
}

/// Whether the group of terms in D3, D4 and D5 stands only in the liquid below the critical
/// temperature; elsewhere the properties leave it out, and their variants named X put it back.
template <class Math>
bool leaves_conditional_out(const Conditional3<Math>& s) {
  return s.theta >= 1 || s.chi >= 1;
}

/// The conditional group's share of the reduced pressure, whether left out or not.
template <class Math>
auto conditional_pressure(const Conditional3<Math>& s) {
  return (s.y * s.Q0d + s.P0d) * s.y3 - s.y * s.y31 * s.R0d;
}

/// The conditional group's share of the reduced enthalpy, whether left out or not.
template <class Math>
auto conditional_enthalpy(const Conditional3<Math>& s) {
  const auto theta_y = s.theta / subregion3::one_minus_theta_350;  // -θ ∂y/∂θ
  return s.y2 * (s.P0 * (s.y + 3 * theta_y) + s.y * s.Q0 * (s.y + 4 * theta_y)) +
         s.y31 * s.R0 * (s.y + 32 * theta_y) + s.chi * conditional_pressure(s);
}

/// Its share of -∂ψ3/∂θ.
template <class Math>
auto conditional_entropy(const Conditional3<Math>& s) {
  return (s.y2 * (3 * s.P0 + 4 * s.y * s.Q0) + 32 * s.y31 * s.R0) / subregion3::one_minus_theta_350;
}

/// Its share of ∂²ψ3/∂θ².
template <class Math>
auto conditional_theta_theta(const Conditional3<Math>& s) {
  using subregion3::one_minus_theta_350;
  return (6 * s.y * (s.P0 + 2 * s.y * s.Q0) + 992 * s.y30 * s.R0) /
         (one_minus_theta_350 * one_minus_theta_350);
}

/// Its share of ∂²ψ3/∂χ∂θ.
template <class Math>
auto conditional_chi_theta(const Conditional3<Math>& s) {
  return (s.y2 * (3 * s.P0d + 4 * s.y * s.Q0d) - 32 * s.y31 * s.R0d) /
         subregion3::one_minus_theta_350;
}

/// The other terms of ∂²ψ3/∂χ² with its share added, in the published order.
template <class Math>
auto with_conditional_chi_chi(typename Math::Number others, const Conditional3<Math>& s) {
  using namespace subregion3;
  // w³ (w P'' + 2 P') of the sums P = Σ D_v w^v: Σ v (v + 1) D_v w^v, times w²
  const auto curvature = [&s](const std::array<double, 5>& D) {
    return horner(std::array<double, 5>{0, 2 * D[1], 6 * D[2], 12 * D[3], 20 * D[4]}, s.w) * s.w2;
  };
  return others + s.y3 * (curvature(D3) + s.y * curvature(D4)) + s.y * s.y31 * subregion3::R0d[1];
}

}  // namespace formulation
