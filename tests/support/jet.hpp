#pragma once

#include <cmath>

/// A function of two variables with its first and second derivatives.
struct Jet {
  using Real = long double;
  Real f = 0, a = 0, b = 0, aa = 0, ab = 0, bb = 0;

  Jet(Real constant) : f(constant) {}  // NOLINT(google-explicit-constructor)
  Jet(Real f_, Real a_, Real b_, Real aa_, Real ab_, Real bb_)
      : f(f_), a(a_), b(b_), aa(aa_), ab(ab_), bb(bb_) {}

  static Jet first(Real x) { return {x, 1, 0, 0, 0, 0}; }
  static Jet second(Real x) { return {x, 0, 1, 0, 0, 0}; }

  /// A function of this one, from its value and derivatives there.
  [[nodiscard]] Jet through(Real g, Real g1, Real g2) const {
    return {g, g1 * a, g1 * b, g2 * a * a + g1 * aa, g2 * a * b + g1 * ab, g2 * b * b + g1 * bb};
  }
};

inline Jet operator+(const Jet& x, const Jet& y) {
  return {x.f + y.f, x.a + y.a, x.b + y.b, x.aa + y.aa, x.ab + y.ab, x.bb + y.bb};
}
inline Jet operator-(const Jet& x) { return {-x.f, -x.a, -x.b, -x.aa, -x.ab, -x.bb}; }
inline Jet operator-(const Jet& x, const Jet& y) { return x + -y; }
inline Jet operator*(const Jet& x, const Jet& y) {
  return {x.f * y.f,
          x.f * y.a + x.a * y.f,
          x.f * y.b + x.b * y.f,
          x.f * y.aa + 2 * x.a * y.a + x.aa * y.f,
          x.f * y.ab + x.a * y.b + x.b * y.a + x.ab * y.f,
          x.f * y.bb + 2 * x.b * y.b + x.bb * y.f};
}

/// By multiplications: many times quicker than the library's power in extended precision.
inline Jet::Real power(Jet::Real x, int n) {
  return n < 0        ? 1 / power(x, -n)
         : n == 0     ? 1
         : n % 2 == 1 ? x * power(x, n - 1)
                      : power(x * x, n / 2);
}

inline Jet pow(const Jet& x, int n) {
  const Jet::Real c = n;
  return x.through(power(x.f, n), n == 0 ? 0 : c * power(x.f, n - 1),
                   n == 0 || n == 1 ? 0 : c * (c - 1) * power(x.f, n - 2));
}
inline Jet pow(const Jet& x, Jet::Real n) {
  return x.through(std::pow(x.f, n), n * std::pow(x.f, n - 1), n * (n - 1) * std::pow(x.f, n - 2));
}
inline Jet operator/(const Jet& x, const Jet& y) { return x * pow(y, -1); }
inline Jet sqrt(const Jet& x) { return pow(x, 0.5L); }
inline Jet log(const Jet& x) { return x.through(std::log(x.f), 1 / x.f, -1 / (x.f * x.f)); }
inline Jet exp(const Jet& x) {
  const Jet::Real e = std::exp(x.f);
  return x.through(e, e, e);
}
