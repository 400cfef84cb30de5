#pragma once

#include "steam/search/dense_volume.hpp"
#include "steam/tables/charts.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {

// Where Newton's iteration starts: what the chart of a pair says.

namespace starts {

constexpr double fourth_power(double x) { return (x * x) * (x * x); }

/// Variable z of a region's equation, p or v, from what a polynomial gives.
template <Pair P>
double from_polynomial(Region region, double value) {
  if (is_3(region)) {
    return 1 / value;
  }
  // With two unknowns the roots of p are used in every pair.
  const bool is_root = region == Region::steam && (gives_root_of_p(P) || !is_line(P));
  return is_root ? fourth_power(value) : value;
}

}  // namespace starts

/// What the polynomials of a patch say.
template <Pair P>
Variables start_in(const Place& here, const Patch& patch) {
  const int count = unknowns(P, patch.region);
  if (count == 0) {
    return {};
  }
  const double first = here(patch, 0);
  if (count == 2) {
    return {starts::from_polynomial<P>(patch.region, first), here(patch, 1)};
  }
  if (is_wet(patch.region) || !is_line(P) || known_of(P).first == Quantity::p) {
    return {0, first};
  }
  return {starts::from_polynomial<P>(patch.region, first), 0};
}

/// Whether a start looks as if it were in its subregion, as far as the tables know.
template <Pair P>
bool is_plausible(Region region, Variables start, double a, double b) {
  constexpr Known k = known_of(P);
  const double t = k.first == Quantity::t ? a : start.t;
  if (is_3(region)) {
    const double v = k.second == Quantity::v ? b : k.first == Quantity::v ? a : start.z;
    if (t < t_350 || t > t_line_end) {
      return false;
    }
    const SaturatedVolumes saturated = rough_saturated_volumes(t);
    return t >= t_critical || v < saturated.liquid || v > saturated.vapour;
  }
  const double p = k.first == Quantity::p ? a : start.z;
  if (t > t_350) {
    return region == Region::steam && (t > t_line_end || p <= line_pressure(t));
  }
  return (p >= tabulated_saturation_pressure(t)) == (region == Region::water);
}

}  // namespace steam
