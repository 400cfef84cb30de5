#pragma once

#include "steam/equations/basis.hpp"
#include "steam/search/tolerances.hpp"

namespace steam {

// A pair in the equation of one subregion: plain Newton steps from the chart's start, of as many
// variables as the pair leaves open. Where they do not end soon, a search along a line decides.

namespace newton {

using numbers::abs, numbers::larger, numbers::smaller;

constexpr int most_steps = 9;

template <Quantity Q, class Equation>
constexpr bool is_first_variable = Q == (Equation::by_pressure ? Quantity::p : Quantity::v);

/// How far the properties are from the wanted ones, and their slopes; only what the pair leaves
/// open is filled in.
template <class Num>
struct System {
  SlopedOf<Num> first, second;
  Num miss_first, miss_second;
};

template <Pair P, class Equation>
struct Solver {
  static constexpr Quantity A = known_of(P).first;
  static constexpr Quantity B = known_of(P).second;
  static constexpr bool gives_z = is_first_variable<A, Equation> || is_first_variable<B, Equation>;
  static constexpr bool gives_t = A == Quantity::t || B == Quantity::t;
  static constexpr bool solves_a = !is_first_variable<A, Equation> && A != Quantity::t;
  static constexpr bool solves_b = !is_first_variable<B, Equation> && B != Quantity::t;
  static constexpr Moves moves{.z = !gives_z, .t = !gives_t};

  template <class Num>
  static VariablesOf<Num> with_given(VariablesOf<Num> x, Num a, Num b) {
    if constexpr (gives_z) {
      x.z = is_first_variable<A, Equation> ? a : b;
    }
    if constexpr (gives_t) {
      x.t = A == Quantity::t ? a : b;
    }
    return x;
  }

  template <class Terms, class Num>
  [[gnu::always_inline]] static System<Num> system(const Terms& terms, VariablesOf<Num> x, Num a,
                                                   Num b) {
    System<Num> m{};
    if constexpr (solves_a) {
      m.first = sloped<Equation, A>(terms, x.z, x.t);
      m.miss_first = a - m.first.value;
    }
    if constexpr (solves_b) {
      m.second = sloped<Equation, B>(terms, x.z, x.t);
      m.miss_second = b - m.second.value;
    }
    return m;
  }

  template <class Num>
  [[gnu::always_inline]] static VariablesOf<Num> step(const System<Num>& m) {
    if constexpr (gives_z && gives_t) {
      return {0, 0};
    } else if constexpr (gives_z) {
      return {0, solves_b ? m.miss_second / m.second.over_t : m.miss_first / m.first.over_t};
    } else if constexpr (gives_t) {
      return {solves_b ? m.miss_second / m.second.over_1 : m.miss_first / m.first.over_1, 0};
    } else {
      const Num determinant = m.first.over_1 * m.second.over_t - m.first.over_t * m.second.over_1;
      return {(m.miss_first * m.second.over_t - m.first.over_t * m.miss_second) / determinant,
              (m.first.over_1 * m.miss_second - m.miss_first * m.second.over_1) / determinant};
    }
  }

  /// Where the properties hardly depend on a variable its steps never get small; then this ends
  /// them.
  template <class Num>
  [[gnu::always_inline]] static MaskOf<Num> is_rounding(const System<Num>& m, Num a, Num b) {
    constexpr double room = 2;  // of both values
    return (abs(m.miss_first) <= room * rounding(A, a)) &
           (abs(m.miss_second) <= room * rounding(B, b));
  }
};

/// Size of a step in its own variables.
template <class Equation, class Num>
[[gnu::always_inline]] inline Num relative_size(VariablesOf<Num> step, VariablesOf<Num> x) {
  return abs(step.z) / (x.z + Equation::z_floor) + abs(step.t / kelvin(x.t));
}

/// Keeps a step within what the neighbourhood of a good start can need, and the variables positive.
template <class Num>
[[gnu::always_inline]] inline VariablesOf<Num> limited(VariablesOf<Num> step, VariablesOf<Num> x) {
  const Num widest_t = 60;
  return {smaller(larger(step.z, -0.6 * x.z), 1.5 * x.z),
          smaller(larger(step.t, -widest_t), widest_t)};
}

}  // namespace newton

}  // namespace steam
