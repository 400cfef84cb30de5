#pragma once

#include <vector>

#include "steam/equations/site.hpp"

/// States all over one region, from the equations alone.
struct Sample {
  double p, t, v, h, s, u;
};

/// @param n  number of points along each of the two variables, close together at the boundaries
std::vector<Sample> samples_of(steam::Region region, int n);

/// Volumes of saturated liquid and vapour above 350 °C, searched without any table.
struct Volumes {
  double liquid, vapour;
};
Volumes saturated_volumes_by_scan(double t);
