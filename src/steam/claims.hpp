#pragma once

#include "steam/newton.hpp"
#include "steam/saturated.hpp"

namespace steam {

// Whether a converged iteration lies in the subregion whose equation it used. Each takes the
// variables of that equation and gives the site, of region none when the state belongs elsewhere.

/// Rounding that a state on a boundary may be beyond it.
constexpr double boundary_slack_t = 1e-9;  // K
constexpr double boundary_slack_x = 2e-13;

/// How far above 350 °C a state may share its pair with one below, K, where a pressure or a
/// temperature or a quality is given.
constexpr double overlap_350 = 0.5;

inline bool within_range(double p, double t) {
  return p >= p_lowest * (1 - limit_slack) && p <= p_highest * (1 + limit_slack) &&
         t >= t_lowest - 1e-9 && t <= t_highest + 1e-7;
}

inline Site claim_water(Variables x) {
  if (!within_range(x.z, x.t) || x.t > t_350 + boundary_slack_t) {
    return {};
  }
  if (!above_saturation(x.z, x.t)) {
    // So little pressure is beyond what a volume can tell.
    constexpr double slack = 1e-9;  // bar
    const double p = saturation_pressure(x.t);
    return x.z >= p - slack ? Site{.region = Region::water, .p = p, .t = std::min(x.t, t_350)}
                            : Site{};
  }
  return {.region = Region::water, .p = x.z, .t = std::min(x.t, t_350)};
}

inline Site claim_steam(Variables x) {
  if (!within_range(x.z, x.t)) {
    return {};
  }
  const bool belongs = x.t <= t_350 ? x.z <= p_350 && (!above_saturation(x.z, x.t) ||
                                                       x.z <= saturation_pressure(x.t))
                                    : x.t > t_line_end || x.z <= line_pressure(x.t);
  return belongs ? Site{.region = Region::steam, .p = x.z, .t = x.t} : Site{};
}

/// Volumes of subregion 3; its equation has other solutions beyond them.
constexpr double v_least_dense = 0.0013, v_most_dense = 0.0089;

inline Site claim_dense(Variables x, double p) {
  if (!within_range(p, x.t) || x.z < v_least_dense || x.z > v_most_dense || x.t <= t_350 ||
      x.t > t_line_end + boundary_slack_t || p < line_pressure(x.t)) {
    return {};
  }
  Site site{.region = Region::dense_steam, .p = p, .t = x.t, .v = x.z};
  if (x.t >= t_critical) {
    return site;
  }
  const SaturatedVolumes rough = rough_saturated_volumes(x.t);
  constexpr double doubt = 2e-3;
  const bool above = above_saturation(p, x.t);
  if (above && x.z < rough.liquid * (1 + doubt)) {
    site.region = Region::hot_water;
    return site;
  }
  const bool vapour = x.z > rough.vapour * (1 - doubt);
  return vapour && (!above || p <= saturation_pressure(x.t)) ? site : Site{};
}

/// @param q  the quantity that the quality comes from: only caloric ones need a slack
inline Site claim_wet(Site site, Quantity q) {
  const double slack = q == Quantity::v ? 0 : boundary_slack_x;
  if (!(site.x >= -slack && site.x <= 1 + slack) || site.t < t_lowest - boundary_slack_t ||
      (site.region == Region::wet ? site.t > t_350 + boundary_slack_t : site.t <= t_350)) {
    return {};
  }
  site.x = std::min(std::max(site.x, 0.0), 1.0);
  return site;
}

}  // namespace steam
