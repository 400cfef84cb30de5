#pragma once

#include "formulation/subregion3_isotherm.hpp"
#include "steam/equations/site.hpp"
#include "steam/tables/tabulated_saturation.hpp"

namespace steam {

using Isotherm = formulation::Isotherm3<double>;

/// Specific volume in subregion 3 at a pressure and a temperature.
/// @param branch  hot_water for the liquid, else dense_steam
double dense_volume(Region branch, double p, double t);

template <class Num>
struct SaturatedVolumesOf {
  Num liquid, vapour;  // m³/kg
};
using SaturatedVolumes = SaturatedVolumesOf<double>;

/// Saturated volumes above 350 °C: the two roots of the equation at the saturation pressure.
/// @note  Within 0.0006 K below the critical temperature the equation has one root only at that
///        pressure; both phases have it then.
SaturatedVolumes saturated_volumes(double t, double p_saturation);
/// One of them.
double saturated_volume(bool is_vapour, double t, double p_saturation);

/// The same from the table, to 1e-8, next to the critical point 1e-3.
template <class Num>
SaturatedVolumesOf<Num> rough_saturated_volumes(Num t) {
  const auto v = TabulatedSaturationOf<Num>(t).template ends<Quantity::v>();
  return {v.liquid, numbers::select(t < t_jump, v.vapour, v.liquid)};
}

}  // namespace steam
