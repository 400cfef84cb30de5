#pragma once

#include <array>
#include <vector>

#include "steam/tables/chart_layout.hpp"

/// A polynomial of two variables between -1 and 1, in the order of the charts.
using Polynomial = std::array<double, steam::chart_coefficients>;

struct Point {
  double x, y;
};

double value_at(const Polynomial& polynomial, const Point& point);

/// The polynomial p(x / divisor + dx, y / divisor + dy) of x and y.
Polynomial substituted(const Polynomial& polynomial, double divisor, double dx, double dy);

/// Polynomials through values at the same points by least squares. Where the points leave
/// coefficients open these stay small.
class LeastSquares {
 public:
  explicit LeastSquares(const std::vector<Point>& points);
  /// @param values  one for each point
  [[nodiscard]] Polynomial fitted_to(const std::vector<double>& values) const;

 private:
  static constexpr std::size_t N = steam::chart_coefficients;
  using Numbers = std::array<long double, N>;
  static Numbers monomials(const Point& p);
  void factorize();

  const std::vector<Point>& points_;
  std::array<Numbers, N> matrix_{};  // lower triangle: the normal equations, by Cholesky's method
};
