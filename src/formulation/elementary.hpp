#pragma once

#include <cmath>

#include "formulation/centred.hpp"

namespace formulation {

/// c[0] + c[1] x + c[2] x² + …, nested from the highest coefficient.
template <class Num, class Table>
constexpr Num horner(const Table& c, Num x) {
  Num sum = Num(0) + c.back();
  for (auto i = c.size() - 1; i-- > 0;) {
    sum = sum * x + c[i];
  }
  return sum;
}

/// x to the power N, as a few products.
template <int N, class Num>
constexpr Num products(Num x) {
  if constexpr (N == 1) {
    return x;
  } else if constexpr (N % 2 == 0) {
    return products<N / 2>(x * x);
  } else {
    return x * products<N - 1>(x);
  }
}

/// The product with a constant that is held in extended precision, rounded once.
inline double extended_product(double x, long double constant) {
  return static_cast<double>(static_cast<long double>(x) * constant);
}

/// A constant that is held in extended precision, and the nearest double: platforms have different
/// extended precisions.
struct Extended {
  long double extended;
  double nearest;
};

/// Divisions, polynomials and the power as they are published. What stands under a fraction line
/// often does so several times; a policy may make more of it than a number.
struct PublishedArithmetic {
  using Number = double;
  using Divisor = double;
  template <class Table>
  static double polynomial(const Table& c, double x) {
    return horner(c, x);
  }
  template <std::size_t N>
  static double polynomial(const Centred<N>& c, double x) {
    return horner(c.published, x);
  }
  static double extended_product(double x, const Extended& constant) {
    return formulation::extended_product(x, constant.extended);
  }
  /// z^(-5/17).
  static double power_m5_17(double z) { return std::pow(z, -0.29411764705882354); }
};

/// The elementary functions that the equations call. The equations take them as a template
/// argument, so that the classic module can pass its guarded ones and everyone else these.
struct Elementary : PublishedArithmetic {
  static double exp(double x) { return std::exp(x); }
  static double log(double x) { return std::log(x); }
  static double sqrt(double x) { return std::sqrt(x); }
  /// x to a whole power that the formulation leaves to the power function.
  template <int N>
  static double whole_power(double x) {
    return products<N>(x);
  }
};

}  // namespace formulation
