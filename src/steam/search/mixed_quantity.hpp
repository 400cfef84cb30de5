#pragma once

#include <array>
#include <cmath>

#include "steam/search/all_roots.hpp"
#include "steam/search/cell_polynomial.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/saturated.hpp"

namespace steam {

/// What is known of a quantity of saturated states.
struct SaturatedFigures {
  /// Differences that the table cannot tell, as a share of the value and this.
  double size;
  /// By which share it may leave its values at the sides of the part that the table has not.
  double room;
  double rounding, relative_rounding;
  SaturatedPolynomial SaturatedCell::*polynomial;
};
inline const SaturatedFigures& figures_of(Quantity q) {
  using Cell = SaturatedCell;
  static constexpr std::array<SaturatedFigures, 4> all{{{1e-3, 2e-3, 0, 1e-14, &Cell::v},
                                                        {1, 1e-3, 4e-11, 0, &Cell::h},
                                                        {1e-3, 5e-4, 1e-12, 0, &Cell::s},
                                                        {1, 1e-3, 4e-11, 0, &Cell::u}}};
  return all[static_cast<std::size_t>(q) - static_cast<std::size_t>(Quantity::v)];
}

inline const SaturatedProfile& profile_of(const SaturatedBand& band, Quantity q) {
  switch (q) {
    case Quantity::v:
      return band.v;
    case Quantity::h:
      return band.h;
    case Quantity::s:
      return band.s;
    default:
      return band.u;
  }
}

/// A quantity along the saturation line at a fixed quality, less the value that is wanted: from the
/// table of saturated states or from the equations.
struct MixedQuantity {
  Quantity q;
  double value, x;

  [[nodiscard]] const SaturatedProfile& profile(const SaturatedBand& band) const {
    return profile_of(band, q);
  }
  [[nodiscard]] double at_side(const SaturatedProfile& profile, int i) const {
    return Ends{profile.liquid[i], profile.vapour[i]}.mixed(x) - value;
  }
  [[nodiscard]] CellPolynomial polynomial(const SaturatedCell& cell) const {
    const SaturatedPolynomial& ends = cell.*figures_of(q).polynomial;
    CellPolynomial mixed{};
    for (std::size_t k = 0; k < saturated_terms; ++k) {
      mixed.c[k] = ends[k][0] + x * (ends[k][1] - ends[k][0]);
    }
    mixed.c[0] -= value;
    return mixed;
  }
  template <class Saturation>
  [[nodiscard]] double exact(double t) const {
    const auto saturation = at<Saturation>(t, saturation_pressure(t));
    return with_quantity(q, [&]<Quantity Q>() { return saturation.template ends<Q>(); }).mixed(x) -
           value;
  }
  /// The equations' slope too, over the temperature.
  template <class Saturation>
  [[nodiscard]] Slope sloped(double t) const {
    const SaturationPressure line = sloped_saturation_pressure(t);
    const auto saturation = at<Saturation>(t, line.p);
    const SlopedEnds ends = with_quantity(
        q, [&]<Quantity Q>() { return saturation.template sloped_ends<Q>(line.over_t); });
    return {ends.value.mixed(x) - value, ends.slope.mixed(x)};
  }
  /// Differences that the table cannot tell.
  [[nodiscard]] double doubt() const { return 1e-8 * (std::abs(value) + figures_of(q).size); }
  /// Differences that the equations cannot tell.
  [[nodiscard]] double rounding() const {
    const SaturatedFigures& figures = figures_of(q);
    return figures.rounding + figures.relative_rounding * value;
  }

 private:
  /// The saturated states that the quality needs.
  template <class Saturation>
  [[nodiscard]] Saturation at(double t, double p) const {
    if constexpr (std::is_same_v<Saturation, HighSaturation>) {
      return {t, p, x};
    } else {
      return {t, p};
    }
  }
};

/// All solutions between two temperatures, by the equations and brackets.
template <class Saturation, class Found>
void by_equations(const MixedQuantity& target, double t_high, double t_low, const Found& found,
                  int parts = 5) {
  // Next to the critical point the rounding of the volumes moves the temperature by as much.
  const bool merging = t_low >= t_jump - r_merging * r_merging;
  const Enough enough{.step = merging ? 1e-12 : 3e-16,
                      .noise = merging ? 3e-10 * target.value : target.rounding()};
  all_roots([&](double t) { return target.sloped<Saturation>(t); }, t_high, t_low, found, parts,
            enough);
}

}  // namespace steam
