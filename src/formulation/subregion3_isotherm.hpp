#pragma once

#include "formulation/subregion3_derivatives.hpp"

namespace formulation {

/// The series of subregion 3 at one temperature as a search for the volume takes it: values alone,
/// ready for the pressure. Reduced pressure = w² Σ c_k w^k - c_ln w - c_0 - c_1 χ - c_5 χ⁵.
template <class Num>
struct Isotherm3 {
  /// What the conditional group changes.
  struct Branch {
    std::array<Num, 10> w;
    Num one, chi;
  };
  Branch liquid, other;
  Num log_chi, chi5;
};

/// @param t  temperature, °C
template <class Math>
Isotherm3<typename Math::Number> isotherm3(typename Math::Number t) {
  using Num = typename Math::Number;
  using subregion3::R0d;
  const Num theta = reduced_temperature<typename Math::Divisor>(t);
  auto c = series3<Math>(theta);
  const auto put = [&c](auto& branch) __attribute__((always_inline)) {
    for (std::size_t i = 0; i < branch.w.size(); ++i) {
      branch.w[i] = static_cast<double>(i + 1) * c.w[i].value;
    }
    branch.one = c.chi.value + c.R.value * R0d[0];
    branch.chi = c.R.value * R0d[1];
  };
  Isotherm3<Num> s;
  s.log_chi = c.log_chi.value;
  s.chi5 = 6 * c.chi6.value;
  put(s.other);
  if (theta < 1) {
    add_conditional<Math>(c, theta, true);
  }
  put(s.liquid);
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
  const auto& at = chi < 1 ? s.liquid : s.other;
  Num sum = at.w.back();
  Num slope = Num(0);  // over w
  for (auto i = at.w.size() - 1; i-- > 0;) {
    slope = slope * w + sum;
    sum = sum * w + at.w[i];
  }
  const Num chi4 = chi * chi * (chi * chi);
  const Num p = (sum * w - s.log_chi) * w - at.one - (s.chi5 * chi4 + at.chi) * chi;
  const Num over_chi = (s.log_chi - (slope * w + 2 * sum) * w) * w * w - 5 * s.chi5 * chi4 - at.chi;
  return {p * reducing_pressure, over_chi * (reducing_pressure / reducing_volume)};
}

}  // namespace formulation
