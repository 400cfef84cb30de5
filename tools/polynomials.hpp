#pragma once

#include <array>
#include <vector>

/// A cubic polynomial of two variables between -1 and 1, in the order 1, x, y, x², xy, y², x³, x²y,
/// xy², y³.
using Polynomial = std::array<double, 10>;

struct FitPoint {
  double x, y, value;
};

/// Least squares; where the points leave coefficients open they stay small.
Polynomial fitted(const std::vector<FitPoint>& points);
