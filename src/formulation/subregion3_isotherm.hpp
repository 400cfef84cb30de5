#pragma once

#include "formulation/subregion3.hpp"

namespace formulation {

/// Subregion 3 at one temperature. There the four groups C0 … C3 and the conditional group are one
/// polynomial in w = 1/χ, so that a search for the volume pays for the temperature only once.
/// Reduced pressure = w² Σ c_k w^k + c_w w + c_1 + c_5 χ⁵, and in the liquid g_0 + g_1 χ more.
template <class Num>
struct Isotherm3 {
  std::array<Num, 10> c;        // the groups alone
  std::array<Num, 4> c_liquid;  // coefficients 0 … 3 with the conditional group
  Num c_w, c_1, c_5, g_0, g_1;
};

/// @param t  temperature, °C
template <class Math>
Isotherm3<typename Math::Number> isotherm3(typename Math::Number t) {
  using namespace subregion3;
  using Num = typename Math::Number;
  const Num theta = reduced_temperature(t);
  const Num tau = theta - 1;
  const Num one_over_theta = 1 / theta;
  Isotherm3<Num> s{};
  for (std::size_t k = 0; k < P_A.size(); ++k) {
    Num sum = Num(0);
    if (k < P_C.size()) {
      sum = P_C[k] * tau;
    }
    if (k < P_B.size()) {
      sum = (sum + P_B[k]) * tau;
    } else {
      sum = sum * tau;
    }
    if (k < P_D.size()) {
      sum = sum + P_D[k];
    }
    s.c[k] = sum * tau + P_A[k];
  }
  const Num theta_m23 = Math::template whole_power<23>(one_over_theta);
  s.c[4] = s.c[4] + five_C41 * theta_m23 * tau;  // of w⁶
  s.c_w = -(((C3.back() * tau + C2.back()) * tau + C1.back()) * tau + C0.back());
  s.c_1 = -(((C3[1] * tau + C2[1]) * tau + C1[1]) * tau + C0[1]);
  s.c_5 = -6 * one_over_theta * one_over_theta * horner(C6, one_over_theta);
  s.c_liquid = {s.c[0], s.c[1], s.c[2], s.c[3]};
  if (!(theta < 1)) {
    return s;
  }
  const Num y = (1 - theta) / one_minus_theta_350;
  const Num y3 = y * y * y;
  for (std::size_t k = 0; k < 4; ++k) {
    s.c_liquid[k] = s.c_liquid[k] + y3 * (P0d[k] + y * Q0d[k]);
  }
  const Num y32 = Math::template whole_power<32>(y);
  s.g_0 = -y32 * R0d[0];
  s.g_1 = -y32 * R0d[1];
  return s;
}

/// Pressure, bar, and its slope over the volume, bar kg/m³.
template <class Num>
struct PressureSlope {
  Num p, over_v;
};

/// @param v  specific volume, m³/kg
template <class Num>
PressureSlope<Num> pressure(const Isotherm3<Num>& s, Num v) {
  const Num chi = v / reducing_volume;
  const Num w = 1 / chi;
  const bool liquid = chi < 1;
  Num sum = s.c[9];
  Num slope = Num(0);  // of the polynomial, over w
  for (std::size_t k = 9; k-- > 4;) {
    slope = slope * w + sum;
    sum = sum * w + s.c[k];
  }
  const auto& low = liquid ? s.c_liquid : std::array<Num, 4>{s.c[0], s.c[1], s.c[2], s.c[3]};
  for (std::size_t k = 4; k-- > 0;) {
    slope = slope * w + sum;
    sum = sum * w + low[k];
  }
  const Num chi4 = chi * chi * (chi * chi);
  Num p = (sum * w + s.c_w) * w + s.c_1 + s.c_5 * chi4 * chi;
  Num over_chi = -((slope * w + 2 * sum) * w + s.c_w) * w * w + 5 * s.c_5 * chi4;
  if (liquid) {
    p = p + (s.g_0 + s.g_1 * chi);
    over_chi = over_chi + s.g_1;
  }
  return {p * reducing_pressure, over_chi * (reducing_pressure / reducing_volume)};
}

}  // namespace formulation
