#pragma once

#include <type_traits>

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

/// The step of z where Newton's step of z² leads, as long as that is another one.
/// @param step  that of z itself
template <class Num>
[[gnu::always_inline]] inline Num square_step(Num step, Num z) {
  const Num by_square = numbers::sqrt(larger(z * z + 2 * z * step, Num(0))) - z;
  return numbers::select(abs(step) > 0.05 * z, by_square, step);
}

template <Pair P, class Equation>
struct Solver {
  static constexpr Quantity A = known_of(P).first;
  static constexpr Quantity B = known_of(P).second;
  static constexpr bool gives_z = is_first_variable<A, Equation> || is_first_variable<B, Equation>;
  static constexpr bool gives_t = A == Quantity::t || B == Quantity::t;
  static constexpr bool solves_a = !is_first_variable<A, Equation> && A != Quantity::t;
  static constexpr bool solves_b = !is_first_variable<B, Equation> && B != Quantity::t;
  static constexpr Moves moves{.z = !gives_z, .t = !gives_t};
  /// u and s of water tell little more than the square of its pressure. That is found from any
  /// pressure that is not too small, however far below it is.
  static constexpr bool by_square = P == Pair::us && std::is_same_v<Equation, Water>;
  static constexpr double least_start = 0.5;  // bar
  /// Share of the first variable by which a step may lower it.
  static constexpr double most_downward = by_square ? 0.95 : 0.6;

  template <class Num>
  static VariablesOf<Num> with_given(VariablesOf<Num> x, Num a, Num b) {
    if constexpr (gives_z) {
      x.z = is_first_variable<A, Equation> ? a : b;
    }
    if constexpr (gives_t) {
      x.t = A == Quantity::t ? a : b;
    }
    if constexpr (by_square) {
      x.z = larger(x.z, Num(least_start));
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
  [[gnu::always_inline]] static VariablesOf<Num> step(const System<Num>& m, VariablesOf<Num> x) {
    if constexpr (gives_z && gives_t) {
      return {0, 0};
    } else if constexpr (gives_z) {
      return {0, solves_b ? m.miss_second / m.second.over_t : m.miss_first / m.first.over_t};
    } else if constexpr (gives_t) {
      return {solves_b ? m.miss_second / m.second.over_1 : m.miss_first / m.first.over_1, 0};
    } else {
      const Num determinant = m.first.over_1 * m.second.over_t - m.first.over_t * m.second.over_1;
      const Num z = (m.miss_first * m.second.over_t - m.first.over_t * m.miss_second) / determinant;
      if constexpr (by_square) {  // the temperature follows the entropy
        const Num by_root = larger(square_step(z, x.z), -most_downward * x.z);
        return {by_root, (m.miss_second - m.second.over_1 * by_root) / m.second.over_t};
      }
      return {z, (m.first.over_1 * m.miss_second - m.miss_first * m.second.over_1) / determinant};
    }
  }

  /// Keeps a step within what the neighbourhood of a good start can need, and the variables
  /// positive.
  template <class Num>
  [[gnu::always_inline]] static VariablesOf<Num> limited(VariablesOf<Num> step,
                                                         VariablesOf<Num> x) {
    const Num widest_t = 60;
    return {smaller(larger(step.z, -most_downward * x.z), 1.5 * x.z),
            smaller(larger(step.t, -widest_t), widest_t)};
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

}  // namespace newton

}  // namespace steam
