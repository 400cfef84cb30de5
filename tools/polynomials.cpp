#include "polynomials.hpp"

#include <cmath>
#include <cstddef>

namespace {

constexpr std::size_t N = steam::chart_coefficients;
using Matrix = std::array<std::array<long double, N>, N>;

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

std::array<long double, N> monomials(const FitPoint& p) {
  std::array<long double, steam::chart_degree + 1> x{1}, y{1};
  for (std::size_t i = 1; i < x.size(); ++i) {
    x[i] = x[i - 1] * p.x;
    y[i] = y[i - 1] * p.y;
  }
  std::array<long double, N> m{};
  for_each_power([&](std::size_t n, std::size_t i, std::size_t j) { m[n] = x[i] * y[j]; });
  return m;
}

/// Solves A c = b for a symmetric positive A, by Cholesky's method.
std::array<long double, N> solved(Matrix A, std::array<long double, N> b) {
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
  return b;
}

}  // namespace

Polynomial fitted(const std::vector<FitPoint>& points) {
  // Weak springs on all but the constant, stronger for higher powers.
  std::array<long double, N> spring{};
  for_each_power([&](std::size_t n, std::size_t i, std::size_t j) {
    constexpr long double weakest = 1e-13L, factor = 3;
    spring[n] = i + j == 0 ? 1e-16L : weakest * std::pow(factor, static_cast<long double>(i + j));
  });
  Matrix A{};
  std::array<long double, N> b{};
  for (const FitPoint& point : points) {
    const auto m = monomials(point);
    for (std::size_t i = 0; i < N; ++i) {
      b[i] += m[i] * point.value;
      for (std::size_t j = 0; j < N; ++j) {
        A[i][j] += m[i] * m[j];
      }
    }
  }
  for (std::size_t i = 0; i < N; ++i) {
    A[i][i] += spring[i] * static_cast<long double>(points.size());
  }
  const auto c = solved(A, b);
  Polynomial result{};
  for (std::size_t i = 0; i < N; ++i) {
    result[i] = static_cast<double>(c[i]);
  }
  return result;
}
