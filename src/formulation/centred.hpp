#pragma once

#include <array>
#include <cstddef>

namespace formulation {

/// A polynomial in x with its coefficients in powers of x - centre besides. The published
/// coefficients are large and of changing sign: in the powers of x thousands cancel, and three or
/// four digits with them. Around a centre amid the range of x they do not. Those coefficients stand
/// as numbers, because computing them takes more than double precision, of which each platform has
/// another.
template <std::size_t N>
struct Centred {
  std::array<double, N> published;
  double centre;
  std::array<double, N> around;
};

}  // namespace formulation
