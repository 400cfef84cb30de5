#pragma once

#include <array>

#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"
#include "numbers/lanes.hpp"

namespace formulation {

/// Viscosity: powers of (1/T̄ - 1) down, of (ρ̄ - 1) across.
/// @source 1975 international representation of the viscosity of water substance, without the
///         critical enhancement
namespace viscosity_table {
constexpr std::array<double, 4> H{0.0181583, 0.0177624, 0.0105287, -0.0036744};
constexpr std::array<std::array<double, 5>, 6> Hij{{
    {0.501938, 0.235622, -0.274637, 0.145831, -0.0270448},
    {0.162888, 0.789393, -0.743539, 0.263129, -0.0253093},
    {-0.130356, 0.673665, -0.959456, 0.347247, -0.0267758},
    {0.907919, 1.207552, -0.687343, 0.213486, -0.0822904},
    {-0.551119, 0.0670665, -0.497089, 0.100754, 0.0602253},
    {0.146543, -0.084337, 0.195286, -0.032932, -0.0202595},
}};
constexpr double reference_density = 317.763;  // kg/m³
/// 1/647.27 K.
constexpr Extended one_over_reference_temperature{0.00154495032984689542231217L,
                                                  0.00154495032984689542231217};
}  // namespace viscosity_table

/// Dynamic viscosity, Pa·s.
/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
template <class Math, class Num>
Num viscosity(Num v, Num t) {
  using namespace viscosity_table;
  const Num T = Math::extended_product(t + celsius_offset, one_over_reference_temperature);
  const Num u = 1 / T;
  const Num eta0 = Math::sqrt(T) / Math::polynomial(H, u) * 1.0e-6;
  const Num rho = 1 / (v * reference_density);
  const Num r = rho - 1;
  const Num s = u - 1;
  Num sum = Math::polynomial(Hij.back(), r);
  for (auto i = Hij.size() - 1; i-- > 0;) {
    sum = sum * s + Math::polynomial(Hij[i], r);
  }
  return Math::exp(rho * sum) * eta0;
}

/// Thermal conductivity, W/(m·K).
/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
/// @note  the corrections for 450, 300 and 150 °C apply up to and including those temperatures
template <class Math, class Num>
Num conductivity(Num v, Num t) {
  using numbers::all, numbers::select;
  constexpr double shared_factor = 6.8e-5;  // intended: of t² and again of the last correction
  const Num rho = 1 / v;
  Num lambda =
      ((1.13e-7 - 5.2e-11 * t) * t + 5.53e-5) * t + 0.0179 + (5.5e-7 * rho + 0.00035) * rho;
  const Num c = 1000 - rho;
  const Num root_q = c * c * c * rho;
  const Num q = root_q * root_q * root_q;
  lambda += (2.55e-29 * Math::exp(-0.0433 * t) + 8.56e-33 * Math::exp(-0.01371 * t)) * q;
  const auto above_450 = t > 450, above_300 = t > 300, above_150 = t > 150;
  if (all(above_450)) {
    return lambda;
  }
  lambda =
      select(above_450, lambda, lambda - 0.000103 * Math::exp(-1.33e-10 * (t * t * (t * t))) * rho);
  if (all(above_300)) {
    return lambda;
  }
  lambda = select(above_300, lambda, lambda - 0.000173 * Math::exp(-shared_factor * (t * t)) * rho);
  if (all(above_150)) {
    return lambda;
  }
  return select(above_150, lambda, lambda - shared_factor * Math::exp(-0.0422 * t) * rho);
}

}  // namespace formulation
