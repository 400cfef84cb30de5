#pragma once

#include <array>
#include <cstddef>

namespace formulation {

/// A polynomial in x with its coefficients in powers of x - centre besides, which were computed in
/// extended precision. The published coefficients are large and of changing sign: in the powers of
/// x thousands cancel, and three or four digits with them. Around a centre amid the range of x they
/// do not.
template <std::size_t N>
struct Centred {
  std::array<double, N> published;
  double centre;
  std::array<double, N> around;

  constexpr Centred(const std::array<double, N>& coefficients, double x_centre)
      : published(coefficients), centre(x_centre), around{} {
    std::array<long double, N> c{};
    for (std::size_t i = 0; i < N; ++i) {
      c[i] = static_cast<long double>(coefficients[i]);
    }
    for (std::size_t done = 0; done + 1 < N; ++done) {  // divisions by x - centre
      for (std::size_t i = N - 1; i-- > done;) {
        c[i] += static_cast<long double>(centre) * c[i + 1];
      }
    }
    for (std::size_t i = 0; i < N; ++i) {
      around[i] = static_cast<double>(c[i]);
    }
  }
};

}  // namespace formulation
