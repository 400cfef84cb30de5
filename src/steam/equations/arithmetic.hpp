#pragma once

#include <tuple>

#include "formulation/elementary.hpp"
#include "steam/equations/power_5_17.hpp"

namespace steam {

/// A number to divide by, as its reciprocal: divided once, however often it stands under a fraction
/// line.
class Reciprocal {
 public:
  Reciprocal() = default;
  explicit constexpr Reciprocal(double divisor) : value_(1 / divisor) {}
  friend constexpr Reciprocal operator*(Reciprocal a, Reciprocal b) {
    Reciprocal product;
    product.value_ = a.value_ * b.value_;
    return product;
  }
  friend constexpr double operator/(double x, Reciprocal r) { return x * r.value_; }

 private:
  double value_;
};

/// How the engine computes the equations: as they are published but for the last digit, with few
/// divisions and with polynomials in two short chains in place of a long one.
struct SharedDivisions : formulation::Elementary {
  using Divisor = Reciprocal;
  template <class Table>
  static double polynomial(const Table& c, double x) {
    constexpr auto size = std::tuple_size_v<Table>;
    if constexpr (size == 1) {
      return c[0];
    } else {
      constexpr auto last_even = (size - 1) / 2 * 2, last_odd = size / 2 * 2 - 1;
      const double x2 = x * x;
      double even = c[last_even], odd = c[last_odd];
      for (auto i = last_even; i >= 2; i -= 2) {
        even = even * x2 + c[i - 2];
      }
      for (auto i = last_odd; i >= 3; i -= 2) {
        odd = odd * x2 + c[i - 2];
      }
      return odd * x + even;
    }
  }
  template <std::size_t N>
  static double polynomial(const formulation::Centred<N>& c, double x) {
    return polynomial(c.around, x - c.centre);
  }
  static double extended_product(double x, long double constant) {
    return x * static_cast<double>(constant);
  }
  static double power_m5_17(double z) { return to_minus_5_17(z); }
};

}  // namespace steam
