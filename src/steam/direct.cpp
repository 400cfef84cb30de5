#include "steam/direct.hpp"

#include <cmath>

#include "steam/charts.hpp"
#include "steam/region_search.hpp"
#include "steam/transport.hpp"

namespace steam {
namespace {

using P = Property;

/// What is wanted besides the temperature; a set has what those before it have.
enum class Besides : std::uint8_t { nothing, h_and_s, all };
constexpr Wanted with_nothing{P::p, P::t, P::x, P::region, P::surface_tension};
constexpr Wanted with_h_and_s{P::p, P::t, P::x, P::region, P::surface_tension, P::h, P::s};
constexpr Wanted with_all{P::p, P::t, P::x, P::region,  P::surface_tension, P::h,
                          P::s, P::v, P::u, P::density, P::viscosity,       P::conductivity};

/// From a temperature next to the solution.
template <class Equation, Quantity Q, Besides besides>
bool step_from(double t, double p, double value, Values& out) {
  const auto terms = Equation::terms(p, t);
  const Sloped given = sloped<Equation, Q>(terms, p, t);
  const double step = (value - given.value) / given.over_t;
  constexpr double small_step = 1e-7;  // what is left of it is about its square
  if (!(std::abs(step) <= small_step * kelvin(t))) {
    return false;
  }
  at(out, P::t) = t + step;
  if constexpr (besides != Besides::nothing) {
    const double cp = formulation::heat_capacity(terms);
    at(out, P::h) = Q == Quantity::h ? value : formulation::enthalpy(terms) + cp * step;
    at(out, P::s) = Q == Quantity::s ? value : formulation::entropy(terms) + cp / kelvin(t) * step;
  }
  if constexpr (besides == Besides::all) {
    at(out, P::v) = formulation::volume(terms) + formulation::volume_slopes(terms).over_t * step;
    at(out, P::u) = Q == Quantity::u ? value : at(out, P::h) - kj_per_bar_m3 * p * at(out, P::v);
  }
  return true;
}

template <class Equation, Quantity Q>
bool step_from(double t, double p, double value, Wanted wanted, Values& out) {
  if (wanted.within(with_nothing)) {
    return step_from<Equation, Q, Besides::nothing>(t, p, value, out);
  }
  if (wanted.within(with_h_and_s)) {
    return step_from<Equation, Q, Besides::h_and_s>(t, p, value, out);
  }
  return step_from<Equation, Q, Besides::all>(t, p, value, out);
}

/// Whether a state is so far inside its region that the step cannot leave it.
bool is_well_inside(Region region, double p, double t) {
  constexpr double kelvins = 0.01, share = 1e-3;
  if (t < t_lowest + kelvins || t > t_highest - kelvins || std::abs(t - t_350) < kelvins) {
    return false;
  }
  if (t < t_350) {
    const double p_saturation = tabulated_saturation_pressure(t);
    return region == Region::water ? p > p_saturation * (1 + share)
                                   : p < p_saturation * (1 - share);
  }
  return region == Region::steam &&
         (t > t_line_end + kelvins || (t < t_line_end && p < line_pressure(t) * (1 - share)));
}

/// In water or steam.
template <Quantity Q>
bool one_phase_values(Region region, double t, double p, double value, Wanted wanted, Values& out) {
  const bool done = region == Region::water ? step_from<Water, Q>(t, p, value, wanted, out)
                                            : step_from<Steam, Q>(t, p, value, wanted, out);
  if (!done) {
    return false;
  }
  at(out, P::p) = p;
  at(out, P::region) = static_cast<double>(region);
  at(out, P::x) = at(out, P::surface_tension) = missing;
  if (wanted.has(P::density)) {
    at(out, P::density) = 1 / at(out, P::v);
  }
  transport(at(out, P::t), wanted, out);
  return true;
}

template <Quantity Q>
bool wet_values(double p, double value, Wanted wanted, Values& out) {
  if (p >= p_critical) {
    return false;
  }
  const double t = saturation_temperature(p);
  const Site site = plainly_wet<Q>(t, p, value);
  if (!site || (t > t_350 && t < t_350 + overlap_350)) {
    return false;
  }
  properties(site, wanted, out);
  return true;
}

template <Quantity Q>
bool values_on_isobar(Pair pair, double p, double value, Wanted wanted, Values& out) {
  const Place here = place(charts[static_cast<std::size_t>(pair)], p, value);
  for (const Patch& patch : here.patches) {
    if (is_3(patch.region)) {
      return false;
    }
    if (is_wet(patch.region)) {
      if (wet_values<Q>(p, value, wanted, out)) {
        return true;
      }
      continue;
    }
    const double t = here(patch, 0);
    if (is_well_inside(patch.region, p, t)) {
      return one_phase_values<Q>(patch.region, t, p, value, wanted, out);
    }
  }
  return false;
}

}  // namespace

bool direct_values(Pair pair, double first, double second, Wanted wanted, Values& out) {
  if (!wanted.within(with_all)) {
    return false;
  }
  switch (pair) {
    case Pair::ph:
      return values_on_isobar<Quantity::h>(pair, first, second, wanted, out);
    case Pair::ps:
      return values_on_isobar<Quantity::s>(pair, first, second, wanted, out);
    case Pair::pu:
      return values_on_isobar<Quantity::u>(pair, first, second, wanted, out);
    default:
      return false;
  }
}

}  // namespace steam
