#include "steam/properties.hpp"

#include <cmath>

#include "steam/quantity.hpp"
#include "steam/transport.hpp"

namespace steam {
namespace {

using P = Property;
constexpr double pascal = 1e5;  // per bar

/// Speed of sound, m/s, and isentropic exponent from (∂v/∂p)s, m³/(kg bar).
void sound(Values& out, double p, double v, double v_over_p) {
  const double square = -v * v / v_over_p;  // bar m³/kg
  at(out, P::speed_of_sound) = std::sqrt(square * pascal);
  at(out, P::isentropic_exponent) = square / (p * v);
}

/// What is computed of one phase. An evaluation takes the first of these sets that holds all that
/// is wanted; the terms that only the others need are then left out of it.
struct Parts {
  bool v = false, h = false, s = false, cp = false, slopes = false;

  /// The properties that follow.
  [[nodiscard]] constexpr Wanted properties() const {
    Wanted all;
    const auto add = [&](bool has, Wanted more) { has ? all.add(more) : void(); };
    add(v, {P::v, P::density, P::viscosity, P::conductivity});
    add(h, {P::h});
    add(h && v, {P::u});
    add(s, {P::s});
    add(cp, {P::cp, P::prandtl});
    add(slopes, {P::cv, P::speed_of_sound, P::isentropic_exponent});
    return all;
  }
};
constexpr Parts only_v{.v = true}, only_h{.h = true}, only_vhs{.v = true, .h = true, .s = true};
constexpr Parts all_but_slopes{.v = true, .h = true, .s = true, .cp = true};
constexpr Parts all_parts{.v = true, .h = true, .s = true, .cp = true, .slopes = true};

/// Speed of sound, cv and their like in subregion 1 or 2.
template <class Equation, class Terms>
void slopes(const Terms& terms, const Site& site, Values& out) requires(Equation::by_pressure) {
  const auto dv = formulation::volume_slopes(terms);
  const double cp = at(out, P::cp);
  const double t_v2 = kelvin(site.t) * dv.over_t * dv.over_t;
  at(out, P::cv) = cp + kj_per_bar_m3 * t_v2 / dv.over_p;
  sound(out, site.p, at(out, P::v), dv.over_p + kj_per_bar_m3 * t_v2 / cp);
}

/// The same in subregion 3.
template <class Equation>
void slopes(const Terms3& terms, const Site& site, Values& out) requires(!Equation::by_pressure) {
  const double cv = isochoric_heat_capacity3(terms);
  const double p_t = pressure3_over_t(terms);
  at(out, P::cv) = cv;
  sound(out, site.p, site.v,
        1 / (pressure3_over_v(terms) - kj_per_bar_m3 * kelvin(site.t) * p_t * p_t / cv));
}

/// Properties of one phase but for the transport ones.
template <class Equation, Parts parts>
void equilibrium(const Site& site, Values& out) {
  const auto terms = Equation::terms(Equation::by_pressure ? site.p : site.v, site.t);
  if constexpr (!Equation::by_pressure) {
    at(out, P::v) = site.v;
  } else if constexpr (parts.v) {
    at(out, P::v) = formulation::volume(terms);
  }
  if constexpr (parts.h) {
    at(out, P::h) = formulation::enthalpy(terms);
  }
  if constexpr (parts.h && parts.v) {
    at(out, P::u) = at(out, P::h) - kj_per_bar_m3 * site.p * at(out, P::v);
  }
  if constexpr (parts.s) {
    at(out, P::s) = formulation::entropy(terms);
  }
  if constexpr (parts.cp) {
    at(out, P::cp) = formulation::heat_capacity(terms);
  }
  if constexpr (parts.slopes) {
    slopes<Equation>(terms, site, out);
  }
}

template <class Equation>
void equilibrium(const Site& site, Wanted wanted, Values& out) {
  if (wanted.within(only_h.properties())) {
    equilibrium<Equation, only_h>(site, out);
  } else if (wanted.within(only_v.properties())) {
    equilibrium<Equation, only_v>(site, out);
  } else if (wanted.within(only_vhs.properties())) {
    equilibrium<Equation, only_vhs>(site, out);
  } else if (wanted.within(all_but_slopes.properties())) {
    equilibrium<Equation, all_but_slopes>(site, out);
  } else {
    equilibrium<Equation, all_parts>(site, out);
  }
}

/// Surface tension of saturated water, N/m; 0 at and beyond its own critical temperature.
/// @source IAPS release on the surface tension of water substance (1975)
double surface_tension(double t) {
  constexpr double T_critical = 647.15;
  const double x = std::fmax(1 - kelvin(t) / T_critical, 0);
  return 235.8e-3 * std::pow(x, 1.256) * (1 - 0.625 * x);
}

/// The property that a wet site is known by.
Property property_of(Quantity q) {
  constexpr std::array properties{P::p, P::t, P::v, P::h, P::s, P::u, P::x};
  return properties[static_cast<std::size_t>(q)];
}

constexpr Wanted mixed_properties{P::v, P::h, P::s, P::u};

/// Quality and the mixed properties.
void mixture(const Site& site, Wanted wanted, Values& out) {
  const Property given = property_of(site.given);
  wanted.add(given);
  if (wanted.has(P::density)) {
    wanted.add(P::v);
  }
  wanted = wanted.both(mixed_properties);
  Values liquid, vapour;
  if (site.region == Region::wet) {
    equilibrium<Water>(site, wanted, liquid);
    equilibrium<Steam>(site, wanted, vapour);
  } else {
    const SaturatedVolumes v = saturated_volumes(site.t, site.p);
    Site phase = site;
    phase.v = v.liquid;
    equilibrium<Dense>(phase, wanted, liquid);
    phase.v = v.vapour;
    equilibrium<Dense>(phase, wanted, vapour);
  }
  const auto ends = [&](Property p) { return Ends{at(liquid, p), at(vapour, p)}; };
  const double x = site.given == Quantity::x ? site.x : ends(given).quality(site.value);
  at(out, P::x) = x;
  for (const Property p : {P::v, P::h, P::s, P::u}) {
    if (wanted.has(p)) {
      at(out, p) = ends(p).mixed(x);
    }
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
  mixture(site, wanted, out);
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
    with_equation(site.region, [&]<class Equation>() {
      equilibrium<Equation>(site, wanted.both(equation_needed), out);
    });
    transport(site.t, wanted, out);
  }
  if (wanted.has(P::density)) {
    at(out, P::density) = 1 / at(out, P::v);
  }
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
