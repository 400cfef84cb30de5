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
constexpr double small_step = 3e-8;
/// After a step of this size the slopes are still good for another.
constexpr double good_start = 1e-3;
constexpr double rounding = 2e-15;
constexpr int most_steps = 12;

template <Quantity Q, class Equation>
constexpr bool is_first_variable = Q == (Equation::by_pressure ? Quantity::p : Quantity::v);

/// How far the properties are from the wanted ones: by the first and the second of the pair. One of
/// them stays 0 where the pair gives a variable of the equation.
struct Residuals {
  double first, second;
};

/// Rows of the matrix of slopes; only what the pair leaves open is filled in.
struct Matrix {
  Sloped first, second;
};

template <Pair P, class Equation>
struct System {
  static constexpr Quantity A = known_of(P).first;
  static constexpr Quantity B = known_of(P).second;
  static constexpr bool gives_z = is_first_variable<A, Equation> || is_first_variable<B, Equation>;
  static constexpr bool gives_t = A == Quantity::t;
  /// Whether A is already met by the variables themselves, or B.
  static constexpr bool solves_b = !is_first_variable<B, Equation>;
  static constexpr bool solves_a = !is_first_variable<A, Equation> && !gives_t;

  [[gnu::always_inline]] static Matrix matrix(Variables x) {
    const auto terms = Equation::terms(x.z, x.t);
    Matrix m{};
    if constexpr (solves_a) {
      m.first = sloped<Equation, A>(terms, x.z, x.t);
    }
    if constexpr (solves_b) {
      m.second = sloped<Equation, B>(terms, x.z, x.t);
    }
    return m;
  }

  static Residuals residuals(const Matrix& m, double a, double b) {
    return {solves_a ? a - m.first.value : 0, solves_b ? b - m.second.value : 0};
  }

  static Residuals residuals(Variables x, double a, double b) {
    const auto terms = Equation::terms(x.z, x.t);
    Residuals r{0, 0};
    if constexpr (solves_a) {
      r.first = a - value_of<Equation, A>(terms, x.z, x.t);
    }
    if constexpr (solves_b) {
      r.second = b - value_of<Equation, B>(terms, x.z, x.t);
    }
    return r;
  }

  static Variables step(const Matrix& m, Residuals r) {
    if constexpr (gives_z) {
      return {0, solves_b ? r.second / m.second.over_t : r.first / m.first.over_t};
    } else if constexpr (gives_t) {
      return {r.second / m.second.over_1, 0};
    } else {
      const double determinant =
          m.first.over_1 * m.second.over_t - m.first.over_t * m.second.over_1;
      return {(r.first * m.second.over_t - m.first.over_t * r.second) / determinant,
              (m.first.over_1 * r.second - r.first * m.second.over_1) / determinant};
    }
  }
};

/// Keeps a step within what the neighbourhood of a good start can need, and the variables positive.
inline Variables limited(Variables step, Variables x) {
  constexpr double widest_t = 60;
  return {std::clamp(step.z, -0.6 * x.z, 1.5 * x.z), std::clamp(step.t, -widest_t, widest_t)};
}

/// Whether a residual is no more than the rounding of the property's evaluation.
constexpr bool is_noise(Quantity q, double residual, double value) {
  const double absolute = q == Quantity::h || q == Quantity::u ? 4e-12
                          : q == Quantity::s                   ? 3e-13
                                                               : 0;
  constexpr double relative = 4e-16;
  return std::abs(residual) <= absolute + relative * std::abs(value);
}

/// Where the properties hardly depend on a variable its steps never get small; then this ends them.
template <Pair P>
bool are_noise(Residuals r, double a, double b) {
  return is_noise(known_of(P).first, r.first, a) && is_noise(known_of(P).second, r.second, b);
}

/// Size of a step in its own variables, at least that of its larger part.
template <class Equation>
double relative_size(Variables step, Variables x) {
  return std::abs(step.z) / (x.z + Equation::z_floor) + std::abs(step.t / kelvin(x.t));
}

}  // namespace newton

/// Iteration in one subregion towards a pair; the start is also the result. A Newton step with the
/// slopes of its point is followed by one that keeps them: next to the solution that is as good,
/// and it needs the two properties only.
/// @return  whether it converged, wherever that is: inside the subregion or in its continuation
template <Pair P, class Equation>
bool refine(double a, double b, Variables& x) {
  using System = newton::System<P, Equation>;
  for (int n = 0; n < newton::most_steps; ++n) {
    const newton::Matrix slopes = System::matrix(x);
    const newton::Residuals r = System::residuals(slopes, a, b);
    if (n > 1 && newton::are_noise<P>(r, a, b)) {
      return true;
    }
    const Variables full = System::step(slopes, r);
    if (!std::isfinite(full.z) || !std::isfinite(full.t)) {
      return false;
    }
    const Variables step = newton::limited(full, x);
    x = {x.z + step.z, x.t + step.t};
    const double size = newton::relative_size<Equation>(step, x);
    if (size <= newton::small_step) {
      return true;
    }
    if (size > newton::good_start) {
      continue;
    }
    const Variables last = System::step(slopes, System::residuals(x, a, b));
    x = {x.z + last.z, x.t + last.t};
    // The slopes were off by about `size`, and so is this step.
    if (newton::relative_size<Equation>(last, x) * size <= newton::rounding) {
      return true;
    }
  }
  return false;
}

}  // namespace steam
