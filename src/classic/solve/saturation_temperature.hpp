#pragma once

namespace classic {

/// Saturation temperature, °C, to 1e-12 relative in the pressure. The one routine that takes its
/// argument by value.
/// @param p   pressure, bar [0.006112444, 221.2]
/// @outside   (or not a number) reports "VEKQIT" out of range and returns 0.01
double VEKQIT(double p);

}  // namespace classic
