#pragma once

#include "steam/equations/slopes.hpp"

namespace steam {

/// Parts of a state's basis. An evaluation leaves out the terms that only other parts need.
struct Parts {
  bool v = false, h = false, s = false, cp = false, slopes = false;
  [[nodiscard]] constexpr bool within(Parts more) const {
    return v <= more.v && h <= more.h && s <= more.s && cp <= more.cp && slopes <= more.slopes;
  }
};
constexpr Parts nothing{}, only_v{.v = true}, only_h{.h = true}, h_and_s{.h = true, .s = true};
constexpr Parts first_order{.v = true, .h = true, .s = true};
constexpr Parts all_but_slopes{.v = true, .h = true, .s = true, .cp = true};
constexpr Parts all_parts{.v = true, .h = true, .s = true, .cp = true, .slopes = true};

/// What all properties of a state are computed from.
template <class Num>
struct BasisOf {
  Region region = Region::none;
  bool several = false, approximate = false;
  Num p = missing, t = missing, x = missing;
  Num v = missing, h = missing, s = missing, u = missing;
  Num cp = missing, cv = missing;
  Num v_over_p_s = missing;                    // (∂v/∂p)s, m³/(kg bar)
  Num p_over_v = missing, p_over_t = missing;  // (∂p/∂v)t, bar kg/m³; (∂p/∂t)v, bar/K
  Num viscosity = missing, conductivity = missing;
  Num heat_of_evaporation = missing;
  Num wet_v_over_p_s = missing;  // (∂v/∂p)s of both phases in equilibrium
};
using Basis = BasisOf<double>;

/// Which variables of the equation the last step changes.
struct Moves {
  bool z = false, t = false;
};

/// One quantity after a small step.
template <class Equation, Quantity Q, Moves moves, class Terms, class Num>
[[gnu::always_inline]] inline Num after_step(const Terms& terms, VariablesOf<Num> at,
                                             VariablesOf<Num> step) {
  if constexpr (!moves.z && !moves.t) {
    return value_of<Equation, Q>(terms, at.z, at.t);
  } else {
    const SlopedOf<Num> y = sloped<Equation, Q>(terms, at.z, at.t);
    Num value = y.value;
    if constexpr (moves.z) {
      value += y.over_1 * step.z;
    }
    if constexpr (moves.t) {
      value += y.over_t * step.t;
    }
    return value;
  }
}

/// Volume, enthalpy and entropy after a small step.
template <class Equation, Parts parts, Moves moves, class Terms, class Num>
[[gnu::always_inline]] inline void evaluate_first(const Terms& terms, VariablesOf<Num> at,
                                                  VariablesOf<Num> step, BasisOf<Num>& out) {
  if constexpr (!Equation::by_pressure) {
    out.v = at.z + step.z;
  } else if constexpr (parts.v) {
    out.v = after_step<Equation, Quantity::v, moves>(terms, at, step);
  }
  if constexpr (parts.h) {
    out.h = after_step<Equation, Quantity::h, moves>(terms, at, step);
  }
  if constexpr (parts.s) {
    out.s = after_step<Equation, Quantity::s, moves>(terms, at, step);
  }
}

/// Heat capacities and the like of a state of subregion 1 or 2.
template <class Equation, Parts parts, class Terms, class Num>
[[gnu::always_inline]] inline void evaluate_second(
    const Terms& terms, VariablesOf<Num> x, BasisOf<Num>& out) requires(Equation::by_pressure) {
  if constexpr (parts.cp) {
    out.cp = formulation::heat_capacity(terms);
  }
  if constexpr (parts.slopes) {
    const auto dv = formulation::volume_slopes(terms);
    const Num t_v2 = kelvin(x.t) * dv.over_t * dv.over_t;
    out.cv = out.cp + kj_per_bar_m3 * t_v2 / dv.over_p;
    out.v_over_p_s = dv.over_p + kj_per_bar_m3 * t_v2 / out.cp;
    out.p_over_v = 1 / dv.over_p;
    out.p_over_t = -dv.over_t * out.p_over_v;
  }
}

/// The same in subregion 3.
template <class Equation, Parts parts, class Num>
[[gnu::always_inline]] inline void evaluate_second(
    const Terms3Of<Num>& terms, VariablesOf<Num> x,
    BasisOf<Num>& out) requires(!Equation::by_pressure) {
  if constexpr (parts.cp) {
    out.cp = formulation::heat_capacity(terms);
  }
  if constexpr (parts.slopes) {
    out.cv = isochoric_heat_capacity3(terms);
    const Num p_t = pressure3_over_t(terms);
    out.p_over_v = pressure3_over_v(terms);
    out.p_over_t = p_t;
    out.v_over_p_s = 1 / (out.p_over_v - kj_per_bar_m3 * kelvin(x.t) * p_t * p_t / out.cv);
  }
}

}  // namespace steam
