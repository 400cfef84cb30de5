#pragma once

#include <cmath>
#include <limits>

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// The next larger and the next smaller number.
inline double up(double x) { return std::nextafter(x, inf); }
inline double down(double x) { return std::nextafter(x, -inf); }

/// Equal, or both not a number.
inline bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
