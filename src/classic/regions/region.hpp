#pragma once

#include "vek/vek.h"

namespace classic {

/// Region codes of the finders.
enum Region : int {
  no_region = 0,     // before a first result, and in the dispatcher after a long list item
  water = 1,         // to 350 °C, at or above the saturation pressure
  steam = 2,         // below saturation or, above 350 °C, below the boundary line
  steam_side_3 = 3,  // subregion 3 at or above the boundary line, and supercritical
  water_side_3 = 4,  // subregion 3 above the saturation pressure
  wet_above_350 = 5,
  wet = 6,  // saturation temperature at most 350 °C
  refused = 7
};

constexpr double p_saturation_350 = 165.3512406;  // bar, the module's saturation pressure at 350 °C

}  // namespace classic
