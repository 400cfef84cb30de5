#pragma once

#include "steam/claims.hpp"
#include "steam/wet_search.hpp"

namespace steam {

// One region at a time: iterate from a start and see whether the result belongs there.

/// Brings a start to the solution in one subregion's equation.
template <Pair P, class Equation>
bool solve(double a, double b, Variables& x) {
  using System = newton::System<P, Equation>;
  if constexpr (System::gives_z) {
    x.z = newton::is_first_variable<known_of(P).first, Equation> ? a : b;
  }
  if constexpr (System::gives_t) {
    x.t = a;
  }
  return refine<P, Equation>(a, b, x);
}

/// Water below this may lie around its density maximum.
constexpr double t_cold = 15;  // °C

/// Of the states of compressed water that have the pair, whether this is the one to return. With a
/// pressure the warmer one is, where volume rises with temperature. With a temperature it is the
/// one next to saturation, where the quantity falls with pressure from the saturated value.
template <Pair P>
bool is_preferred(Variables x) {
  const auto sloped_water = [](Variables at) __attribute__((always_inline)) {
    return sloped<Water, known_of(P).second>(Water::terms(at.z, at.t), at.z, at.t);
  };
  if constexpr (P == Pair::pv) {
    return x.t > t_cold || sloped_water(x).over_t > 0;
  } else if constexpr (P == Pair::th) {
    return sloped_water(x).over_1 < 0;
  } else if constexpr (P == Pair::tu || P == Pair::ts) {
    if (x.t > t_cold) {
      return true;
    }
    const Sloped y = sloped_water(x);
    return y.over_1 < 0 && y.value <= sloped_water({saturation_pressure(x.t), x.t}).value;
  }
  return true;
}

template <Pair P>
Site search_water(double a, double b, Variables x) {
  return solve<P, Water>(a, b, x) && is_preferred<P>(x) ? claim_water(x) : Site{};
}

template <Pair P>
Site search_steam(double a, double b, Variables x) {
  return solve<P, Steam>(a, b, x) ? claim_steam(x) : Site{};
}

template <Pair P>
Site search_dense(double a, double b, Variables x) {
  constexpr Known k = known_of(P);
  if constexpr (P == Pair::tv) {
    x = {b, a};
  } else if (!solve<P, Dense>(a, b, x)) {
    return {};
  }
  const double p = k.first == Quantity::p ? a : pressure3(Dense::terms(x.z, x.t));
  return claim_dense(x, p);
}

/// Share of the way from liquid to vapour that the table of saturated states may be wrong by, but
/// for the last kelvin below the critical temperature.
constexpr double table_doubt = 1e-6;

/// A wet state at a known saturation temperature that is well inside the wet region; else none. Its
/// quality is left to whoever wants it.
template <Quantity Q>
Site plainly_wet(double t, double p, double value) {
  const double x = TabulatedSaturation(t).ends<Q>().quality(value);
  if (!(x > table_doubt && x < 1 - table_doubt && t < t_critical - 1)) {
    return {};
  }
  return {.region = t <= t_350 ? Region::wet : Region::wet_above_350,
          .p = p,
          .t = t,
          .given = Q,
          .value = value};
}

/// A wet state at a known saturation temperature.
template <Quantity Q>
Site wet_at(double t, double p, double value) {
  const Site plain = plainly_wet<Q>(t, p, value);
  if (plain) {
    return plain;
  }
  const double x = TabulatedSaturation(t).ends<Q>().quality(value);
  if (!(x > -1 && x < 2)) {
    return {};
  }
  const Region region = t <= t_350 ? Region::wet : Region::wet_above_350;
  return claim_wet(with_quality({.region = region, .p = p, .t = t, .given = Q, .value = value}), Q);
}

template <Pair P>
Site search_wet(double a, double b, double t_start, Region region) {
  constexpr Known k = known_of(P);
  if constexpr (k.first == Quantity::p) {
    return a < p_critical ? wet_at<k.second>(saturation_temperature(a), a, b) : Site{};
  } else if constexpr (k.first == Quantity::t) {
    return a < t_critical ? wet_at<k.second>(a, saturation_pressure(a), b) : Site{};
  } else if (region == Region::wet) {
    return claim_wet(wet_search<k.first, k.second, LowSaturation>(a, b, t_start, region), k.first);
  } else {
    return claim_wet(wet_search<k.first, k.second, HighSaturation>(a, b, t_start, region), k.first);
  }
}

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

/// What the polynomials of a patch say.
template <Pair P>
Variables start_in(const Place& here, const Patch& patch) {
  const int count = unknowns(P, patch.region);
  if (count == 0) {
    return {};
  }
  const double first = here(patch, 0);
  if (count == 2) {
    return {from_polynomial<P>(patch.region, first), here(patch, 1)};
  }
  if (is_wet(patch.region) || !is_line(P) || known_of(P).first == Quantity::p) {
    return {0, first};
  }
  return {from_polynomial<P>(patch.region, first), 0};
}

template <Pair P>
Site search(Region region, double a, double b, Variables start) {
  switch (region) {
    case Region::water:
      return search_water<P>(a, b, start);
    case Region::steam:
      return search_steam<P>(a, b, start);
    case Region::wet:
    case Region::wet_above_350:
      return search_wet<P>(a, b, start.t, region);
    default:
      return search_dense<P>(a, b, start);
  }
}

}  // namespace steam
