#pragma once

#include <array>

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"

namespace formulation {

/// Coefficients k1 … k9 of the saturation line (K-function).
/// @source IFC-67 (1967), saturation line; index = subscript - 1
constexpr std::array<double, 9> k{-7.691234564, -26.08023696, -168.1706546,
                                  64.23285504,  -118.9646225, 4.167117320,
                                  20.97506760,  1.0e9,        6};

/// The sub-expressions of the saturation line at one temperature.
template <class Num>
struct SaturationTerms {
  Num theta;  // reduced temperature
  Num x;      // 1 - θ
  Num S;      // Σ k_v x^v, v = 1 … 5
  Num D1;     // 1 + k6 x + k7 x²
  Num D2;     // k8 x² + k9
};

template <class Num>
SaturationTerms<Num> saturation_terms(Num t) {
  SaturationTerms<Num> s;
  s.theta = reduced_temperature(t);
  s.x = 1 - s.theta;
  s.S = ((((k[4] * s.x + k[3]) * s.x + k[2]) * s.x + k[1]) * s.x + k[0]) * s.x;
  s.D1 = (k[6] * s.x + k[5]) * s.x + 1;
  s.D2 = k[7] * (s.x * s.x) + k[8];
  return s;
}

/// Saturation pressure, bar.
template <class Math>
auto saturation_pressure(const SaturationTerms<typename Math::Number>& s) {
  return reducing_pressure * Math::exp(s.S / s.theta / s.D1 - s.x / s.D2);
}

/// Slope of the logarithm of the saturation pressure over temperature, 1/K.
template <class Num>
Num saturation_log_slope(const SaturationTerms<Num>& s) {
  const Num dS =
      (((5 * k[4] * s.x + 4 * k[3]) * s.x + 3 * k[2]) * s.x + 2 * k[1]) * s.x + k[0];  // over x
  const Num dD1 = 2 * k[6] * s.x + k[5];
  const Num N = s.theta * s.D1;
  const Num dN = s.D1 - s.theta * dD1;  // over θ
  return ((s.D2 - 2 * k[7] * (s.x * s.x)) / (s.D2 * s.D2) - (dS * N + s.S * dN) / (N * N)) /
         reducing_temperature;
}

}  // namespace formulation
