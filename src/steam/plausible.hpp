#pragma once

#include "steam/dense_volume.hpp"
#include "steam/newton.hpp"
#include "steam/tabulated_saturation.hpp"

namespace steam {

// Whether a start lies in its region, as far as the tables know. Only the order of the attempts
// depends on it.

/// @param room  how far the quality may be below 0
template <Pair P>
bool is_plausibly_wet(Region region, double t, double a, double b, double room = 0) {
  constexpr Known k = known_of(P);
  constexpr Quantity q = is_line(P) ? k.second : k.first;
  const Ends ends = TabulatedSaturation(t).ends<q>();
  const double x = ends.quality(is_line(P) ? b : a);
  return x >= -room && x <= 1 && (t <= t_350) == (region == Region::wet);
}

inline bool is_plausibly_dense(double v, double t) {
  if (t < t_350 || t > t_line_end) {
    return false;
  }
  const SaturatedVolumes saturated = rough_saturated_volumes(t);
  return t >= t_critical || v < saturated.liquid || v > saturated.vapour;
}

/// In subregion 1 or 2.
inline bool is_plausible_at(Region region, double p, double t) {
  if (t > t_350) {
    return region == Region::steam && (t > t_line_end || p <= line_pressure(t));
  }
  return (p >= tabulated_saturation_pressure(t)) == (region == Region::water);
}

template <Pair P>
bool is_plausible(Region region, Variables start, double a, double b) {
  constexpr Known k = known_of(P);
  const double t = k.first == Quantity::t ? a : start.t;
  if (is_wet(region)) {
    if (k.first == Quantity::p) {
      return a < p_critical &&
             is_plausibly_wet<P>(region, tabulated_saturation_temperature(a), a, b);
    }
    return is_plausibly_wet<P>(region, t, a, b);
  }
  if (is_3(region)) {
    return is_plausibly_dense(k.second == Quantity::v ? b : start.z, t);
  }
  return is_plausible_at(region, k.first == Quantity::p ? a : start.z, t);
}

}  // namespace steam
