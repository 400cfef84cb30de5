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

}  // namespace several

/// Whether a state inside its subregion counts before others that may have its pair.
/// @param falls_with_p  of two values of which the second depends on the pressure alone: how
template <Pair P, class Num>
MaskOf<Num> comes_first(Region region, Num t, Num x, MaskOf<Num> falls_with_p) {
  const bool water = region == Region::water;
  if constexpr (P == Pair::pv) {  // the warmer state
    return !(MaskOf<Num>(water) & (t < several::t_maximum));
  } else if constexpr (P == Pair::th) {
    // That of the lowest pressure: in water the one where the enthalpy falls with pressure from the
    // saturated value.
    return water ? falls_with_p : MaskOf<Num>(true);
  } else if constexpr (P == Pair::tu || P == Pair::ts) {  // the same, but only in cold water
    const bool wet = region == Region::wet;
    const MaskOf<Num> cold = MaskOf<Num>(water || wet) & (t < several::t_maximum);
    return (!cold) | (MaskOf<Num>(wet) & (x > several::x_compressed));
  } else {
    return true;
  }
}

/// What is sure of a state inside its subregion where its pair may belong to several.
template <Pair P>
Sure among_several(Region region, double t, double x, bool falls_with_p, Sure sure) {
  sure.first = sure.first && comes_first<P>(region, t, x, falls_with_p);
  const bool water = region == Region::water, wet = region == Region::wet;
  if constexpr (P == Pair::pv) {
    sure.only = sure.only && !(water && t < several::t_past_maximum);
  } else if constexpr (P == Pair::th) {
    sure.only = sure.only && !water && !(wet && x < several::x_compressed);
  } else if constexpr (P == Pair::tu || P == Pair::ts) {
    if (t < several::t_maximum && (wet || water)) {
      return {sure.first, false};
    }
  }
  return sure;
}

}  // namespace steam
