#include "steam/properties.hpp"

#include <cmath>

#include "formulation/transport.hpp"
#include "steam/quantity.hpp"

namespace steam {
namespace {

using P = Property;
constexpr double kj_to_bar_m3 = 1 / kj_per_bar_m3;
constexpr double pascal = 1e5;  // per bar

// What the properties are made of.
constexpr Wanted slopes_needed{P::cv, P::speed_of_sound, P::isentropic_exponent};
constexpr Wanted cp_needed{P::cp, P::cv, P::speed_of_sound, P::isentropic_exponent, P::prandtl};
constexpr Wanted h_needed{P::h, P::u};
constexpr Wanted v_needed{P::v,         P::density,        P::u,
                          P::cv,        P::speed_of_sound, P::isentropic_exponent,
                          P::viscosity, P::conductivity,   P::prandtl};

double& at(Values& out, Property p) { return out[static_cast<std::size_t>(p)]; }

/// Speed of sound, m/s, and isentropic exponent from (∂v/∂p)s, m³/(kg bar).
void sound(Values& out, double p, double v, double v_over_p) {
  const double square = -v * v / v_over_p;  // bar m³/kg
  at(out, P::speed_of_sound) = std::sqrt(square * pascal);
  at(out, P::isentropic_exponent) = square / (p * v);
}

/// Properties of subregion 1 or 2 but for the transport ones.
template <class Equation>
void equilibrium(const Site& site, Wanted wanted, Values& out) {
  const auto terms = Equation::terms(site.p, site.t);
  const double v = wanted.any(v_needed) ? formulation::volume(terms) : missing;
  at(out, P::v) = v;
  if (wanted.any(h_needed)) {
    at(out, P::h) = formulation::enthalpy(terms);
    at(out, P::u) = at(out, P::h) - kj_per_bar_m3 * site.p * v;
  }
  if (wanted.has(P::s)) {
    at(out, P::s) = formulation::entropy(terms);
  }
  if (wanted.any(cp_needed)) {
    at(out, P::cp) = formulation::heat_capacity(terms);
  }
  if (wanted.any(slopes_needed)) {
    const auto dv = formulation::volume_slopes(terms);
    const double cp = at(out, P::cp);
    const double t_v2 = kelvin(site.t) * dv.over_t * dv.over_t;
    at(out, P::cv) = cp + kj_per_bar_m3 * t_v2 / dv.over_p;
    sound(out, site.p, v, dv.over_p + kj_per_bar_m3 * t_v2 / cp);
  }
}

/// The same in subregion 3.
template <>
void equilibrium<Dense>(const Site& site, Wanted wanted, Values& out) {
  const Terms3 terms = Dense::terms(site.v, site.t);
  at(out, P::v) = site.v;
  if (wanted.any(h_needed)) {
    at(out, P::h) = formulation::enthalpy(terms);
    at(out, P::u) = at(out, P::h) - kj_per_bar_m3 * site.p * site.v;
  }
  if (wanted.has(P::s)) {
    at(out, P::s) = formulation::entropy(terms);
  }
  if (wanted.any(cp_needed)) {
    at(out, P::cp) = formulation::heat_capacity(terms);
  }
  if (wanted.any(slopes_needed)) {
    const double cv = isochoric_heat_capacity3(terms);
    const double p_t = pressure3_over_t(terms);
    at(out, P::cv) = cv;
    sound(out, site.p, site.v,
          1 / (pressure3_over_v(terms) - kj_per_bar_m3 * kelvin(site.t) * p_t * p_t / cv));
  }
}

void transport(const Site& site, Wanted wanted, Values& out) {
  const double v = at(out, P::v);
  const bool all = wanted.has(P::prandtl);
  if (all || wanted.has(P::viscosity)) {
    at(out, P::viscosity) = formulation::viscosity<Math>(v, site.t);
  }
  if (all || wanted.has(P::conductivity)) {
    at(out, P::conductivity) = formulation::conductivity<Math>(v, site.t);
  }
  if (all) {
    constexpr double joule = 1000;  // per kJ
    at(out, P::prandtl) = at(out, P::viscosity) * at(out, P::cp) * joule / at(out, P::conductivity);
  }
}

/// Surface tension of saturated water, N/m; 0 at and beyond its own critical temperature.
/// @source IAPS release on the surface tension of water substance (1975)
double surface_tension(double t) {
  constexpr double T_critical = 647.15;
  const double x = std::fmax(1 - kelvin(t) / T_critical, 0);
  return 235.8e-3 * std::pow(x, 1.256) * (1 - 0.625 * x);
}

/// The quality of a wet site, which may have to follow from its other quantity.
template <class Saturation>
double quality(const Saturation& saturation, const Site& site) {
  switch (site.given) {
    case Quantity::x:
      return site.x;
    case Quantity::v:
      return saturation.template ends<Quantity::v>().quality(site.value);
    case Quantity::h:
      return saturation.template ends<Quantity::h>().quality(site.value);
    case Quantity::s:
      return saturation.template ends<Quantity::s>().quality(site.value);
    default:
      return saturation.template ends<Quantity::u>().quality(site.value);
  }
}

/// Quality, and mixed v, h, s and u.
template <class Saturation>
void mixture(const Saturation& saturation, const Site& site, Wanted wanted, Values& out) {
  const double x = quality(saturation, site);
  at(out, P::x) = x;
  if (wanted.has(P::v) || wanted.has(P::density)) {
    at(out, P::v) = saturation.template ends<Quantity::v>().mixed(x);
  }
  if (wanted.has(P::h)) {
    at(out, P::h) = saturation.template ends<Quantity::h>().mixed(x);
  }
  if (wanted.has(P::s)) {
    at(out, P::s) = saturation.template ends<Quantity::s>().mixed(x);
  }
  if (wanted.has(P::u)) {
    at(out, P::u) = saturation.template ends<Quantity::u>().mixed(x);
  }
}

constexpr Wanted mixture_needed{P::v, P::density, P::h, P::s, P::u};
constexpr Wanted not_in_wet{
    P::cp,        P::cv,           P::speed_of_sound, P::isentropic_exponent,
    P::viscosity, P::conductivity, P::prandtl};

void wet(const Site& site, Wanted wanted, Values& out) {
  if (wanted.any(not_in_wet)) {
    for (const Property p : {P::cp, P::cv, P::speed_of_sound, P::isentropic_exponent, P::viscosity,
                             P::conductivity, P::prandtl}) {
      at(out, p) = missing;
    }
  }
  if (wanted.has(P::surface_tension)) {
    at(out, P::surface_tension) = surface_tension(site.t);
  }
  at(out, P::x) = site.x;
  if (!wanted.any(mixture_needed) && !(wanted.has(P::x) && site.given != Quantity::x)) {
    return;
  }
  if (site.region == Region::wet) {
    mixture(LowSaturation(site.t, site.p), site, wanted, out);
  } else {
    mixture(HighSaturation(site.t, site.p), site, wanted, out);
  }
}

constexpr Wanted equation_needed{P::v,
                                 P::h,
                                 P::s,
                                 P::u,
                                 P::density,
                                 P::cp,
                                 P::cv,
                                 P::speed_of_sound,
                                 P::isentropic_exponent,
                                 P::viscosity,
                                 P::conductivity,
                                 P::prandtl};
constexpr Wanted transport_needed{P::viscosity, P::conductivity, P::prandtl};

}  // namespace

void properties(const Site& site, Wanted wanted, Values& out) {
  at(out, P::p) = site.p;
  at(out, P::t) = site.t;
  at(out, P::region) = static_cast<double>(site.region);
  at(out, P::x) = is_wet(site.region) ? site.x : missing;
  at(out, P::surface_tension) = missing;
  if (is_wet(site.region)) {
    wet(site, wanted, out);
  } else if (wanted.any(equation_needed)) {
    with_equation(site.region, [&]<class Equation>() { equilibrium<Equation>(site, wanted, out); });
    if (wanted.any(transport_needed)) {
      transport(site, wanted, out);
    }
  }
  at(out, P::density) = 1 / at(out, P::v);
}

Phase phase_of(const Values& values) {
  const auto of = [&](Property p) { return values[static_cast<std::size_t>(p)]; };
  return {.p = of(P::p),
          .t = of(P::t),
          .v = of(P::v),
          .h = of(P::h),
          .s = of(P::s),
          .u = of(P::u),
          .density = of(P::density),
          .cp = of(P::cp),
          .cv = of(P::cv),
          .speed_of_sound = of(P::speed_of_sound),
          .isentropic_exponent = of(P::isentropic_exponent),
          .viscosity = of(P::viscosity),
          .conductivity = of(P::conductivity),
          .prandtl = of(P::prandtl)};
}

Site saturated_liquid(const Site& wet) {
  if (wet.region == Region::wet) {
    return {.region = Region::water, .p = wet.p, .t = wet.t};
  }
  return {.region = Region::hot_water,
          .p = wet.p,
          .t = wet.t,
          .v = saturated_volumes(wet.t, wet.p).liquid};
}

Site saturated_vapour(const Site& wet) {
  if (wet.region == Region::wet) {
    return {.region = Region::steam, .p = wet.p, .t = wet.t};
  }
  return {.region = Region::dense_steam,
          .p = wet.p,
          .t = wet.t,
          .v = saturated_volumes(wet.t, wet.p).vapour};
}

}  // namespace steam
