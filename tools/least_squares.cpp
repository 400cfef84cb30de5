#include "least_squares.hpp"

#include <cmath>
#include <cstddef>

namespace {

/// Calls f(number, power of x, power of y) for each coefficient.
template <class F>
void for_each_power(F&& f) {
  std::size_t n = 0;
  for (std::size_t j = 0; j <= steam::chart_degree; ++j) {
    for (std::size_t i = 0; i + j <= steam::chart_degree; ++i) {
      f(n++, i, j);
    }
  }
}

/// x to each power.
template <class Number>
std::array<Number, steam::chart_degree + 1> powers(Number x) {
  std::array<Number, steam::chart_degree + 1> all{1};
  for (std::size_t i = 1; i < all.size(); ++i) {
    all[i] = all[i - 1] * x;
  }
  return all;
}

/// Coefficients of (x / divisor + d) to a power.
std::array<double, steam::chart_degree + 1> power_of(double divisor, double d, std::size_t power) {
  std::array<double, steam::chart_degree + 1> c{1};
  for (std::size_t n = 0; n < power; ++n) {
    for (std::size_t i = n + 1; i > 0; --i) {
      c[i] = c[i] * d + c[i - 1] / divisor;
    }
    c[0] *= d;
  }
  return c;
}

}  // namespace

double value_at(const Polynomial& polynomial, const Point& point) {
  const auto x = powers(point.x), y = powers(point.y);
  double sum = 0;
  for_each_power(
      [&](std::size_t n, std::size_t i, std::size_t j) { sum += polynomial[n] * x[i] * y[j]; });
  return sum;
}

Polynomial substituted(const Polynomial& polynomial, double divisor, double dx, double dy) {
  Polynomial result{};
  for_each_power([&](std::size_t n, std::size_t i, std::size_t j) {
    const auto of_x = power_of(divisor, dx, i), of_y = power_of(divisor, dy, j);
    for_each_power([&](std::size_t m, std::size_t k, std::size_t l) {
      result[m] += polynomial[n] * of_x[k] * of_y[l];
    });
  });
  return result;
}

LeastSquares::Numbers LeastSquares::monomials(const Point& p) {
  const auto x = powers<long double>(p.x), y = powers<long double>(p.y);
  Numbers m{};
  for_each_power([&](std::size_t n, std::size_t i, std::size_t j) { m[n] = x[i] * y[j]; });
  return m;
}

LeastSquares::LeastSquares(const std::vector<Point>& points) : points_(points) {
  for (const Point& point : points) {
    const Numbers m = monomials(point);
    for (std::size_t i = 0; i < N; ++i) {
      for (std::size_t j = 0; j <= i; ++j) {
        matrix_[i][j] += m[i] * m[j];
      }
    }
  }
  // Weak springs on all but the constant, stronger for higher powers.
  for_each_power([&](std::size_t n, std::size_t i, std::size_t j) {
    constexpr long double weakest = 1e-13L, factor = 3;
    const long double spring =
        i + j == 0 ? 1e-16L : weakest * std::pow(factor, static_cast<long double>(i + j));
    matrix_[n][n] += spring * static_cast<long double>(points.size());
  });
  factorize();
}

void LeastSquares::factorize() {
  auto& A = matrix_;
  for (std::size_t j = 0; j < N; ++j) {
    for (std::size_t k = 0; k < j; ++k) {
      A[j][j] -= A[j][k] * A[j][k];
    }
    A[j][j] = std::sqrt(A[j][j]);
    for (std::size_t i = j + 1; i < N; ++i) {
      for (std::size_t k = 0; k < j; ++k) {
        A[i][j] -= A[i][k] * A[j][k];
      }
      A[i][j] /= A[j][j];
    }
  }
}

Polynomial LeastSquares::fitted_to(const std::vector<double>& values) const {
  const auto& A = matrix_;
  Numbers b{};
  for (std::size_t n = 0; n < values.size(); ++n) {
    const Numbers m = monomials(points_[n]);
    for (std::size_t i = 0; i < N; ++i) {
      b[i] += m[i] * values[n];
    }
  }
  for (std::size_t i = 0; i < N; ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      b[i] -= A[i][k] * b[k];
    }
    b[i] /= A[i][i];
  }
  for (std::size_t i = N; i-- > 0;) {
    for (std::size_t k = i + 1; k < N; ++k) {
      b[i] -= A[k][i] * b[k];
    }
    b[i] /= A[i][i];
  }
  Polynomial result{};
  for (std::size_t i = 0; i < N; ++i) {
    result[i] = static_cast<double>(b[i]);
  }
  return result;
}
