#pragma once

#include <tuple>

#include "formulation/elementary.hpp"
#include "numbers/power_5_17.hpp"

namespace steam {

/// A number to divide by, as its reciprocal: divided once, however often it stands under a fraction
/// line.
template <class Num>
class Reciprocal {
 public:
  Reciprocal() = default;
  explicit constexpr Reciprocal(Num divisor) : value_(1 / divisor) {}
  friend constexpr Reciprocal operator*(Reciprocal a, Reciprocal b) {
    Reciprocal product;
    product.value_ = a.value_ * b.value_;
    return product;
  }
  friend constexpr Num operator/(Num x, Reciprocal r) { return x * r.value_; }

 private:
  Num value_;
};

/// How the engine computes the equations: as they are published but for the last digit, with few
/// divisions and with polynomials in two short chains in place of a long one.
/// @tparam Num  one state's number, or those of several states
template <class Num = double>
struct SharedDivisions {
  using Number = Num;
  using Divisor = Reciprocal<Num>;
  static Num exp(Num x) { return numbers::exp(x); }
  static Num log(Num x) { return numbers::log(x); }
  static Num sqrt(Num x) { return numbers::sqrt(x); }
  /// z^(-5/17).
  static Num power_m5_17(Num z) { return numbers::to_minus_5_17(z); }
  /// x to a whole power, as products.
  template <int N>
  static Num whole_power(Num x) {
    return formulation::products<N>(x);
  }
  template <class Table>
  static Num polynomial(const Table& c, Num x) {
    constexpr auto size = std::tuple_size_v<Table>;
    if constexpr (size == 1) {
      return c[0];
    } else {
      constexpr auto last_even = (size - 1) / 2 * 2, last_odd = size / 2 * 2 - 1;
      const Num x2 = x * x;
      Num even = c[last_even], odd = c[last_odd];
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
  static Num polynomial(const formulation::Centred<N>& c, Num x) {
    return polynomial(c.around, x - c.centre);
  }
  static Num extended_product(Num x, const formulation::Extended& constant) {
    return x * constant.nearest;
  }
};

}  // namespace steam
