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

}  // namespace

LeastSquares::Numbers LeastSquares::monomials(const Point& p) {
  std::array<long double, steam::chart_degree + 1> x{1}, y{1};
  for (std::size_t i = 1; i < x.size(); ++i) {
    x[i] = x[i - 1] * p.x;
    y[i] = y[i - 1] * p.y;
  }
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
