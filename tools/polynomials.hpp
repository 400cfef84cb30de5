#pragma once

#include <array>
#include <vector>

#include "steam/charts.hpp"

/// A polynomial of two variables between -1 and 1, in the order of the charts.
using Polynomial = std::array<double, steam::chart_coefficients>;

struct FitPoint {
  double x, y, value;
};

/// Least squares; where the points leave coefficients open they stay small.
Polynomial fitted(const std::vector<FitPoint>& points);
