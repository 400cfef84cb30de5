#include "polynomials.hpp"

#include <cmath>
#include <cstddef>

namespace {

constexpr std::size_t N = 10;
using Matrix = std::array<std::array<long double, N>, N>;

std::array<long double, N> monomials(const FitPoint& p) {
  const long double x = p.x, y = p.y;
  return {1, x, y, x * x, x * y, y * y, x * x * x, x * x * y, x * y * y, y * y * y};
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
  constexpr std::array<long double, N> spring{1e-14L, 1e-11L, 1e-11L, 1e-10L, 1e-10L,
                                              1e-10L, 1e-9L,  1e-9L,  1e-9L,  1e-9L};
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
