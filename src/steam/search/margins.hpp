#pragma once

#include <cmath>

#include "steam/equations/domain.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/search/solutions.hpp"
#include "steam/tables/saturation_line.hpp"
#include "steam/tables/tabulated_saturation.hpp"

namespace steam {

// How far inside its subregion a state must be for the quick search to be sure of it. Beside a
// boundary another state may have the pair, since the equations of neighbouring subregions do not
// quite meet.

/// How far on the other side of a boundary a state of the same pair may be: at 350 °C, K; at the
/// boundary line, as a share of the pressure; beside saturated liquid, in quality.
struct Overlap {
  double kelvins, share, quality;
};

/// With two values that are neither p nor t, whose lines run nearly along each other, overlaps are
/// wider, above all with u and s.
constexpr Overlap overlap_of(Pair pair) {
  switch (pair) {
    case Pair::us:
      return {2.5, 0.012, 3e-4};
    case Pair::hs:
      return {1, 0.008, 3e-4};
    case Pair::pv:
      return {0.5, 1.5e-3, 0};
    default:
      return {known_of(pair).first == Quantity::p ? 0.2 : 0.5, 1.5e-3, 0};
  }
}

/// Certainty of a state that lies inside its subregion.
struct Sure {
  bool first, only;
};

namespace margins {

/// The tables know saturation pressures to a few 1e-5, saturated volumes of subregion 3 to 1e-8
/// but for the last 0.2 K, where they are not asked.
constexpr double saturation_doubt = 1e-4, volume_doubt = 1e-6, quality_doubt = 5e-6;
constexpr double t_doubtful = t_critical - 0.3;
/// Rounding of a computed pressure or temperature.
constexpr double p_doubt = 1e-8, t_doubt = 1e-6;

inline bool is_in_range(double p, double t) {
  return p > p_lowest * (1 + p_doubt) && p < p_highest * (1 - p_doubt) && t > t_lowest + t_doubt &&
         t < t_highest - t_doubt;
}

/// Pressure and temperature in water; a given value may be just a limit.
inline Sure of_water(const Site& site, Overlap overlap) {
  const double doubt = overlap.quality > 0 ? 1e-2 : saturation_doubt;
  const bool inside = site.t < t_350 - t_doubt &&
                      site.p > tabulated_saturation_pressure(site.t) * (1 + saturation_doubt);
  const bool alone = site.t < t_350 - overlap.kelvins &&
                     site.p > tabulated_saturation_pressure(site.t) * (1 + doubt);
  return {inside, inside && alone};
}

inline Sure of_steam(const Site& site, Overlap overlap) {
  if (site.t > t_line_end + t_doubt) {
    return {true, true};
  }
  if (site.t <= t_350) {
    const bool inside = site.p < tabulated_saturation_pressure(site.t) * (1 - saturation_doubt);
    return {inside, inside};
  }
  const double p_line = line_pressure(site.t);
  const bool inside = site.t < t_line_end && site.p < p_line * (1 - p_doubt);
  return {inside, inside && site.p < p_line * (1 - overlap.share)};
}

inline Sure of_dense(const Site& site, Overlap overlap) {
  bool inside = site.t > t_350 + overlap.kelvins && site.t < t_line_end &&
                site.p > line_pressure(site.t) * (1 + overlap.share);
  if (inside && site.t < t_critical + 1) {
    const SaturatedVolumes v = rough_saturated_volumes(std::fmin(site.t, t_doubtful));
    inside = site.region == Region::hot_water ? site.v < v.liquid * (1 - volume_doubt)
                                              : site.v > v.vapour * (1 + volume_doubt);
  }
  return {inside, inside};
}

/// @param x  the quality, as good as the table
inline Sure of_wet(const Site& site, double x, Overlap overlap) {
  // Where the saturation line misses Clapeyron's equation by more than a pressure of water tells.
  constexpr double t_cold = 40;
  const double least = site.t < t_cold ? overlap.quality + quality_doubt : quality_doubt;
  const bool inside =
      x > least && x < 1 - quality_doubt && site.t < t_doubtful && site.t > t_lowest + t_doubt;
  const bool alone = std::abs(site.t - t_350) > overlap.kelvins;
  const bool first = site.t <= t_350 - t_doubt || alone;
  return {inside && first, inside && alone};
}

}  // namespace margins

}  // namespace steam
