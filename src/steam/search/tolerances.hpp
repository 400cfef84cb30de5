#pragma once

#include <array>
#include <cmath>

#include "numbers/lanes.hpp"
#include "steam/equations/site.hpp"

namespace steam {

// What is known of a quantity's figures. Every tolerance of the search that depends on the quantity
// stands here.

struct Tolerance {
  /// Rounding of one evaluation of the equations: the larger of subregions 1 and 2, against
  /// extended precision; beside it that of the value itself.
  double rounding;
  /// The same of subregion 3.
  double dense_rounding;
  /// By how much a pair may miss the end of a piece and still count as that end: the rounding of
  /// both values, in subregion 3 too, with what the other value's rounding makes of it.
  double slack, relative_slack;
  /// By how much neighbouring subregions miss each other at the most: 5.5e-4 of the volume,
  /// 0.27 kJ/kg, 5e-4 kJ/(kg K), with room for two values that both miss.
  double misfit, relative_misfit;
};

/// By `Quantity`: p, t, v, h, s, u, x.
constexpr std::array<Tolerance, 7> tolerances{{
    {0, 0, 0, 1e-13, 0, 0},
    {0, 0, 0, 1e-13, 0, 0},
    {0, 0, 0, 5e-13, 0, 2e-3},
    {4e-12, 3e-11, 2e-11, 1e-13, 0.6, 0},
    {3e-13, 3e-13, 1.5e-13, 1e-13, 1e-3, 0},
    {4e-12, 3e-11, 2e-11, 1e-13, 0.6, 0},
    {0, 0, 2e-13, 0, 0, 0},
}};

constexpr const Tolerance& tolerance_of(Quantity q) {
  return tolerances[static_cast<std::size_t>(q)];
}
constexpr double relative_rounding = 4e-16;
template <class Num>
Num rounding(Quantity q, Num value) {
  return tolerance_of(q).rounding + relative_rounding * numbers::abs(value);
}
inline double rounding_in(Region region, Quantity q, double value) {
  const double of_equation =
      is_3(region) ? tolerance_of(q).dense_rounding : tolerance_of(q).rounding;
  return of_equation + relative_rounding * std::abs(value);
}
inline double slack(Quantity q, double value) {
  return tolerance_of(q).slack + tolerance_of(q).relative_slack * std::abs(value);
}
inline double misfit(Quantity q, double value) {
  return tolerance_of(q).misfit + tolerance_of(q).relative_misfit * std::abs(value);
}

}  // namespace steam
