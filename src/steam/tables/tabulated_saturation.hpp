#pragma once

#include "steam/equations/site.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {

/// A property of saturated liquid and saturated vapour.
struct Ends {
  double liquid, vapour;
  [[nodiscard]] double mixed(double x) const { return liquid + x * (vapour - liquid); }
  /// Not a number where the two are one and the value is another.
  [[nodiscard]] double quality(double value) const {
    return value == liquid ? 0 : (value - liquid) / (vapour - liquid);
  }
};

/// With the slope along the saturation line.
struct SlopedEnds {
  Ends value, slope;
};

/// The variable of the table of saturated states; the square root has a slope up to `least`.
inline double root_of(double t) {
  constexpr double least = 1e-6;
  return std::sqrt(std::max(t_critical - t, least));
}
constexpr double temperature_of(double r) { return t_critical - r * r; }

/// Saturated states from the table.
/// @accuracy  1e-11 (volume of cold steam 2e-9), in the last 0.15 K below the critical
///            temperature 1e-7, in the last 0.001 K 1e-3
class TabulatedSaturation {
 public:
  explicit TabulatedSaturation(double t)
      : TabulatedSaturation(t <= t_350 ? saturated_to_350 : saturated_above_350, root_of(t)) {}

  TabulatedSaturation(const SaturatedBand& band, double r) {
    const double i = (r - band.origin) * band.scale;
    const int number = std::clamp(static_cast<int>(i), 0, band.cells - 1);
    cell_ = band.polynomials + number;
    z_ = 2 * (i - number) - 1;
    over_r_ = 2 * band.scale;
  }

  template <Quantity Q>
  [[nodiscard]] Ends ends() const {
    const SaturatedPolynomial& c = of<Q>();
    const double z2 = z_ * z_;
    // Even and odd powers apart: two short chains in place of a long one.
    Both even = c[saturated_terms - 2], odd = c[saturated_terms - 1];
    for (std::size_t k = saturated_terms - 2; k > 0; k -= 2) {
      even = nested(even, z2, c[k - 2]);
      odd = nested(odd, z2, c[k - 1]);
    }
    return as_ends(nested(odd, z_, even));
  }

  /// The slope is over r.
  template <Quantity Q>
  [[nodiscard]] SlopedEnds sloped_ends() const {
    const SaturatedPolynomial& c = of<Q>();
    const double z2 = z_ * z_;
    Both even = c[saturated_terms - 2], odd = c[saturated_terms - 1];
    Both even_slope{}, odd_slope{};  // over z²
    for (std::size_t k = saturated_terms - 2; k > 0; k -= 2) {
      even_slope = nested(even_slope, z2, even);
      odd_slope = nested(odd_slope, z2, odd);
      even = nested(even, z2, c[k - 2]);
      odd = nested(odd, z2, c[k - 1]);
    }
    const Both slope = nested(nested(odd_slope, z_, even_slope), 2 * z_, odd);
    return {as_ends(nested(odd, z_, even)), {slope[0] * over_r_, slope[1] * over_r_}};
  }

 private:
  using Both = std::array<double, 2>;
  static Both nested(const Both& outer, double z, const Both& inner) {
    return {outer[0] * z + inner[0], outer[1] * z + inner[1]};
  }
  static Ends as_ends(const Both& both) { return {both[0], both[1]}; }

  template <Quantity Q>
  [[nodiscard]] const SaturatedPolynomial& of() const {
    if constexpr (Q == Quantity::v) {
      return cell_->v;
    } else if constexpr (Q == Quantity::h) {
      return cell_->h;
    } else if constexpr (Q == Quantity::s) {
      return cell_->s;
    } else {
      return cell_->u;
    }
  }

  const SaturatedCell* cell_;
  double z_, over_r_;
};

}  // namespace steam
