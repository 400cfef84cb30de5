#pragma once

#include "steam/search/margins.hpp"

namespace steam {

// What is sure where a pair belongs to several states, far from all boundaries too.

namespace several {

// Where water, below this temperature, may have two states of one pressure and volume, and of one
// temperature and energy or entropy: the density maximum is below 4.8 °C.
constexpr double t_maximum = 6;
/// Above this water has left the volumes that it has below the maximum.
constexpr double t_past_maximum = 15;
/// Share of vapour up to which compressed water of the same temperature may have the enthalpy of a
/// wet state.
constexpr double x_compressed = 0.1;

/// Of a pressure and a volume the warmer state counts.
inline Sure around_maximum(Region region, double t, Sure sure) {
  const bool doubtful = region == Region::water && t < t_maximum;
  const bool twofold = region == Region::water && t < t_past_maximum;
  return {sure.first && !doubtful, sure.only && !twofold, sure.across};
}

/// Of a temperature and an enthalpy the state of the lowest pressure counts: in water the one where
/// the enthalpy falls with pressure from the saturated value.
inline Sure under_pressure(Region region, double x, bool falls_with_p, Sure sure) {
  const bool water = region == Region::water;
  const bool like_water = region == Region::wet && x < x_compressed;
  return {sure.first && (!water || falls_with_p), sure.only && !water && !like_water, sure.across};
}

/// Of a temperature and an energy or entropy the same, but only in cold water.
inline Sure in_cold_water(Region region, double t, double x, Sure sure) {
  const bool wet = region == Region::wet;
  const bool cold = t < t_maximum && (wet || region == Region::water);
  return cold ? Sure{sure.first && wet && x > x_compressed, false} : sure;
}

}  // namespace several

/// What is sure of a state inside its subregion where its pair may belong to several.
template <Pair P>
Sure among_several(Region region, double t, double x, bool falls_with_p, Sure sure) {
  if constexpr (P == Pair::pv) {
    return several::around_maximum(region, t, sure);
  } else if constexpr (P == Pair::th) {
    return several::under_pressure(region, x, falls_with_p, sure);
  } else if constexpr (P == Pair::tu || P == Pair::ts) {
    return several::in_cold_water(region, t, x, sure);
  } else {
    return sure;
  }
}

}  // namespace steam
