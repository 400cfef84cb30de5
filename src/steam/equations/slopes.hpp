#pragma once

#include "formulation/subregion1.hpp"
#include "formulation/subregion2_moments.hpp"
#include "formulation/subregion3_derivatives.hpp"
#include "steam/equations/arithmetic.hpp"
#include "steam/equations/domain.hpp"
#include "steam/equations/site.hpp"

namespace steam {

template <class Num>
using Terms1Of = formulation::Terms1<SharedDivisions<Num>>;
template <class Num>
using Terms2Of = formulation::Moments2<SharedDivisions<Num>>;
template <class Num>
using Terms3Of = formulation::Derivatives3<SharedDivisions<Num>>;
using Terms1 = Terms1Of<double>;
using Terms2 = Terms2Of<double>;
using Terms3 = Terms3Of<double>;

constexpr double kj_per_bar_m3 = 100;

/// Subregions 1 and 2: the equation takes p and t.
struct Water {
  static constexpr bool by_pressure = true;
  /// Water's own properties hardly depend on the pressure: it is resolved to parts of a bar.
  static constexpr double z_floor = 1;
  /// After a step of this relative size v, h and s follow in a straight line to the rounding.
  static constexpr double small_step = 1e-7;
  template <class Num>
  [[gnu::always_inline]] static auto terms(Num p, Num t) {
    return formulation::terms1<SharedDivisions<Num>>(p, t);
  }
};
struct Steam {
  static constexpr bool by_pressure = true;
  static constexpr double z_floor = 0;
  static constexpr double small_step = 1e-7;
  template <class Num>
  [[gnu::always_inline]] static auto terms(Num p, Num t) {
    return formulation::moments2<SharedDivisions<Num>>(p, t);
  }
};
/// Subregion 3: the equation takes v and t.
struct Dense {
  static constexpr bool by_pressure = false;
  static constexpr double z_floor = 0;
  static constexpr double small_step = 3e-8;
  template <class Num>
  [[gnu::always_inline]] static auto terms(Num v, Num t) {
    return formulation::derivatives3<SharedDivisions<Num>>(v, t);
  }
};

template <class Num>
[[gnu::always_inline]] inline Num pressure3_over_v(const Terms3Of<Num>& s) {  // bar kg/m³
  return -s.chi_2 * (p_critical / v_critical);
}
template <class Num>
[[gnu::always_inline]] inline Num pressure3_over_t(const Terms3Of<Num>& s) {  // bar/K
  return -s.chi_1_theta_1 * (p_critical / formulation::reducing_temperature);
}
template <class Num>
[[gnu::always_inline]] inline Num isochoric_heat_capacity3(const Terms3Of<Num>& s) {
  return -s.theta * s.theta_2 * formulation::entropy_scale;
}

/// One quantity of a state.
/// @param z  p, or v in subregion 3
template <class Equation, Quantity Q, class Terms, class Num>
[[gnu::always_inline]] inline Num value_of(const Terms& s, Num z, Num t) {
  constexpr bool first = Q == (Equation::by_pressure ? Quantity::p : Quantity::v);
  if constexpr (first) {
    return z;
  } else if constexpr (Q == Quantity::t) {
    return t;
  } else if constexpr (Q == Quantity::p) {
    return formulation::pressure(s);
  } else if constexpr (Q == Quantity::v) {
    return formulation::volume(s);
  } else if constexpr (Q == Quantity::h) {
    return formulation::enthalpy(s);
  } else if constexpr (Q == Quantity::s) {
    return formulation::entropy(s);
  } else if constexpr (Equation::by_pressure) {
    return formulation::enthalpy(s) - kj_per_bar_m3 * z * formulation::volume(s);
  } else {
    return formulation::enthalpy(s) - kj_per_bar_m3 * formulation::pressure(s) * z;
  }
}

/// A property with its slopes over the two variables of the equation; `over_1` is over p, or over
/// v in subregion 3.
template <class Num>
struct SlopedOf {
  Num value, over_1, over_t;
};
using Sloped = SlopedOf<double>;

/// One quantity of a state in subregion 1 or 2.
template <class Equation, Quantity Q, class Terms, class Num>
[[gnu::always_inline]] inline SlopedOf<Num> sloped(const Terms& s, Num p,
                                                   Num t) requires(Equation::by_pressure) {
  constexpr double c = kj_per_bar_m3;
  const Num value = value_of<Equation, Q>(s, p, t);
  if constexpr (Q == Quantity::p) {
    return {value, 1, 0};
  } else if constexpr (Q == Quantity::t) {
    return {value, 0, 1};
  } else {
    const auto dv = formulation::volume_slopes(s);
    if constexpr (Q == Quantity::v) {
      return {value, dv.over_p, dv.over_t};
    } else if constexpr (Q == Quantity::h) {
      return {value, c * (formulation::volume(s) - kelvin(t) * dv.over_t),
              formulation::heat_capacity(s)};
    } else if constexpr (Q == Quantity::s) {
      return {value, -c * dv.over_t, formulation::heat_capacity(s) / kelvin(t)};
    } else {
      return {value, -c * (kelvin(t) * dv.over_t + p * dv.over_p),
              formulation::heat_capacity(s) - c * p * dv.over_t};
    }
  }
}

/// One quantity of a state in subregion 3.
template <class Equation, Quantity Q, class Num>
[[gnu::always_inline]] inline SlopedOf<Num> sloped(const Terms3Of<Num>& s, Num v,
                                                   Num t) requires(!Equation::by_pressure) {
  constexpr double c = kj_per_bar_m3;
  const Num value = value_of<Equation, Q>(s, v, t);
  if constexpr (Q == Quantity::p) {
    return {value, pressure3_over_v(s), pressure3_over_t(s)};
  } else if constexpr (Q == Quantity::t) {
    return {value, 0, 1};
  } else if constexpr (Q == Quantity::v) {
    return {value, 1, 0};
  } else if constexpr (Q == Quantity::h) {
    const Num p_t = pressure3_over_t(s);
    return {value, c * (kelvin(t) * p_t + v * pressure3_over_v(s)),
            isochoric_heat_capacity3(s) + c * v * p_t};
  } else if constexpr (Q == Quantity::s) {
    return {value, c * pressure3_over_t(s), isochoric_heat_capacity3(s) / kelvin(t)};
  } else {
    return {value, c * (kelvin(t) * pressure3_over_t(s) - formulation::pressure(s)),
            isochoric_heat_capacity3(s)};
  }
}

}  // namespace steam
