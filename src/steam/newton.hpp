#pragma once

#include <algorithm>
#include <cmath>

#include "steam/slopes.hpp"

namespace steam {

/// The two variables of a subregion's equation: p and t, or v and t in subregion 3.
struct Variables {
  double z, t;
};

namespace newton {

/// After a step of this relative size the next would be below the rounding of the properties.
constexpr double small_step = 1e-8;
constexpr int most_steps = 14;

template <Quantity Q, class Equation>
constexpr bool is_first_variable = Q == (Equation::by_pressure ? Quantity::p : Quantity::v);

/// The Newton step towards first = a, second = b.
template <Pair P, class Equation>
Variables step(double a, double b, Variables x) {
  constexpr Quantity A = known_of(P).first;
  constexpr Quantity B = known_of(P).second;
  const auto terms = Equation::terms(x.z, x.t);
  if constexpr (is_first_variable<B, Equation>) {
    const Sloped first = sloped<Equation, A>(terms, x.z, x.t);
    return {0, (a - first.value) / first.over_t};
  }
  const Sloped second = sloped<Equation, B>(terms, x.z, x.t);
  if constexpr (is_first_variable<A, Equation>) {
    return {0, (b - second.value) / second.over_t};
  } else if constexpr (A == Quantity::t) {
    return {(b - second.value) / second.over_1, 0};
  } else {
    const Sloped first = sloped<Equation, A>(terms, x.z, x.t);
    const double ra = a - first.value;
    const double rb = b - second.value;
    const double determinant = first.over_1 * second.over_t - first.over_t * second.over_1;
    return {(ra * second.over_t - first.over_t * rb) / determinant,
            (first.over_1 * rb - ra * second.over_1) / determinant};
  }
}

/// Keeps a step within what the neighbourhood of a good start can need, and the variables positive.
inline Variables limited(Variables step, Variables x) {
  constexpr double widest_t = 60;
  return {std::clamp(step.z, -0.6 * x.z, 1.5 * x.z), std::clamp(step.t, -widest_t, widest_t)};
}

}  // namespace newton

/// Newton iteration in one subregion towards a pair; the start is also the result.
/// @return  whether it converged, wherever that is: inside the subregion or in its continuation
template <Pair P, class Equation>
bool refine(double a, double b, Variables& x) {
  constexpr Known k = known_of(P);
  if constexpr (newton::is_first_variable<k.first, Equation>) {
    x.z = a;
  } else if constexpr (newton::is_first_variable<k.second, Equation>) {
    x.z = b;
  }
  if constexpr (k.first == Quantity::t) {
    x.t = a;
  }
  for (int n = 0; n < newton::most_steps; ++n) {
    const Variables raw = newton::step<P, Equation>(a, b, x);
    const Variables step = newton::limited(raw, x);
    if (!std::isfinite(raw.z) || !std::isfinite(raw.t)) {
      return false;
    }
    x.z += step.z;
    x.t += step.t;
    if (std::abs(step.z) <= newton::small_step * (x.z + Equation::z_floor) &&
        std::abs(step.t) <= newton::small_step * kelvin(x.t)) {
      return true;
    }
  }
  return false;
}

}  // namespace steam
