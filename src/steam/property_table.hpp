#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include "steam/equations/basis.hpp"

namespace steam {

/// What a property needs of the basis of its state.
struct Needs {
  Parts parts{};
  bool quality = false, viscosity = false, conductivity = false;
  bool saturation = false;  // what changes along the saturation line
  bool several = false;     // whether other states have the pair
  bool any = false;         // whether something is wanted of a saturated phase
  std::array<bool, 5> unused{};
  /// As two words, which costs less than the members one by one.
  constexpr Needs& operator|=(const Needs& more) {
    using Words = std::array<std::uint64_t, 2>;
    const auto a = std::bit_cast<Words>(*this), b = std::bit_cast<Words>(more);
    return *this = std::bit_cast<Needs>(Words{a[0] | b[0], a[1] | b[1]});
  }
  friend constexpr Needs operator|(Needs a, const Needs& b) { return a |= b; }
};

/// In which states a property exists, as bits. A wet state of quality 0 or 1 is of both kinds; what
/// is said of an answer is not said of its saturated phases.
enum Exists : std::uint8_t {
  nowhere = 0,
  in_one_phase = 1,
  in_wet_states = 2,
  always = in_one_phase | in_wet_states,
  in_answers = 4
};

constexpr Exists kind_of(const Basis& basis) {
  const bool wet = is_wet(basis.region), one = !wet || basis.x == 0 || basis.x == 1;
  return static_cast<Exists>(in_answers | (one ? in_one_phase : 0) | (wet ? in_wet_states : 0));
}

/// One property: everything that lists properties follows from these rows.
template <class Num>
struct PropertyRowOf {
  Property property;
  const char* name;
  const char* letter;
  const char* unit;
  Exists exists;
  Needs needs;
  Num (*of)(const BasisOf<Num>&);
};
using PropertyRow = PropertyRowOf<double>;

namespace property_table {
constexpr double number_of(Region region) { return static_cast<double>(region); }
constexpr Needs v{.parts = {.v = true}}, h{.parts = {.h = true}}, s{.parts = {.s = true}};
constexpr Needs u{.parts = {.v = true, .h = true}};
constexpr Needs cp{.parts = {.cp = true}};
constexpr Needs slopes{.parts = {.v = true, .cp = true, .slopes = true}};
constexpr Needs viscosity{.parts = {.v = true}, .viscosity = true};
constexpr Needs conductivity{.parts = {.v = true}, .conductivity = true};
constexpr Needs h_and_s{.parts = {.h = true, .s = true}};
constexpr Needs u_and_s{.parts = {.v = true, .h = true, .s = true}};
constexpr Needs evaporation{.quality = true, .saturation = true};
constexpr Needs diffusivity{.parts = {.v = true, .cp = true}, .conductivity = true};
constexpr Needs prandtl{.parts = {.v = true, .cp = true}, .viscosity = true, .conductivity = true};
constexpr double pascal = 1e5;  // per bar
constexpr double joule = 1000;  // per kJ

template <class Num>
Num speed_of_sound(Num volume, Num over_p_s) {
  return numbers::sqrt(-volume * volume / over_p_s * pascal);
}

/// Surface tension of saturated water, N/m; 0 at and beyond its own critical temperature.
/// @source IAPS release on the surface tension of water substance (1975)
double surface_tension(double t);
double saturation_slope(double t);
double superheat_at(double p, double t);
/// In saturated states, which have a quality, it is 0, without the rounding of a difference.
template <class Num>
Num superheat(const BasisOf<Num>& b) {
  const Num difference = numbers::each_lane(b.p, b.t, superheat_at);
  return numbers::select(numbers::both(b.x >= 0, b.p < p_critical), Num(0), difference);
}

/// In subregion 3 the states of several lanes may be of either region.
template <class Num>
Num region(const BasisOf<Num>& b) {
  if constexpr (numbers::width_of < Num >> 1) {
    if (is_3(b.region)) {
      return numbers::select((b.t < t_critical) & (b.v < v_critical),
                             Num(number_of(Region::hot_water)),
                             Num(number_of(Region::dense_steam)));
    }
  }
  return number_of(b.region);
}
}  // namespace property_table

/// By `Property`.
template <class Num, class B = BasisOf<Num>>
constexpr std::array<PropertyRowOf<Num>, property_count> property_rows_of{{
    {Property::p, "pressure", "p", "bar", always, {}, [](const B& b) -> Num { return b.p; }},
    {Property::t, "temperature", "t", "°C", always, {}, [](const B& b) -> Num { return b.t; }},
    {Property::v, "specific volume", "v", "m³/kg", always, property_table::v,
     [](const B& b) -> Num { return b.v; }},
    {Property::h, "enthalpy", "h", "kJ/kg", always, property_table::h,
     [](const B& b) -> Num { return b.h; }},
    {Property::s, "entropy", "s", "kJ/(kg K)", always, property_table::s,
     [](const B& b) -> Num { return b.s; }},
    {Property::u, "internal energy", "u", "kJ/kg", always, property_table::u,
     [](const B& b) -> Num { return b.u; }},
    {Property::x,
     "quality",
     "x",
     "",
     in_wet_states,
     {.quality = true},
     [](const B& b) -> Num { return b.x; }},
    {Property::density, "density", "rho", "kg/m³", always, property_table::v,
     [](const B& b) -> Num { return 1 / b.v; }},
    {Property::cp, "isobaric heat capacity", "cp", "kJ/(kg K)", in_one_phase, property_table::cp,
     [](const B& b) -> Num { return b.cp; }},
    {Property::cv, "isochoric heat capacity", "cv", "kJ/(kg K)", in_one_phase,
     property_table::slopes, [](const B& b) -> Num { return b.cv; }},
    {Property::speed_of_sound, "speed of sound", "w", "m/s", in_one_phase, property_table::slopes,
     [](const B& b) -> Num { return property_table::speed_of_sound(b.v, b.v_over_p_s); }},
    {Property::isentropic_exponent, "isentropic exponent", "kappa", "", in_one_phase,
     property_table::slopes, [](const B& b) -> Num { return -b.v / b.v_over_p_s / b.p; }},
    {Property::viscosity, "dynamic viscosity", "eta", "Pa·s", in_one_phase,
     property_table::viscosity, [](const B& b) -> Num { return b.viscosity; }},
    {Property::conductivity, "thermal conductivity", "lambda", "W/(m K)", in_one_phase,
     property_table::conductivity, [](const B& b) -> Num { return b.conductivity; }},
    {Property::prandtl, "Prandtl number", "Pr", "", in_one_phase, property_table::prandtl,
     [](const B& b) -> Num { return b.viscosity * b.cp * property_table::joule / b.conductivity; }},
    {Property::surface_tension,
     "surface tension",
     "sigma",
     "N/m",
     in_wet_states,
     {},
     [](const B& b) -> Num { return numbers::each_lane(b.t, property_table::surface_tension); }},
    {Property::region,
     "region",
     "region",
     "",
     always,
     {},
     [](const B& b) -> Num { return property_table::region(b); }},
    {Property::isothermal_compressibility, "isothermal compressibility", "kappaT", "1/bar",
     in_one_phase, property_table::slopes,
     [](const B& b) -> Num { return -1 / (b.v * b.p_over_v); }},
    {Property::isobaric_expansion, "isobaric expansion", "alpha", "1/K", in_one_phase,
     property_table::slopes, [](const B& b) -> Num { return -b.p_over_t / (b.v * b.p_over_v); }},
    {Property::joule_thomson, "Joule-Thomson coefficient", "mu", "K/bar", in_one_phase,
     property_table::slopes,
     [](const B& b) -> Num {
       return -kj_per_bar_m3 * (kelvin(b.t) * b.p_over_t / b.p_over_v + b.v) / b.cp;
     }},
    {Property::p_over_v, "dp/dv at constant t", "dp/dv", "bar kg/m³", in_one_phase,
     property_table::slopes, [](const B& b) -> Num { return b.p_over_v; }},
    {Property::p_over_t, "dp/dt at constant v", "dp/dt", "bar/K", in_one_phase,
     property_table::slopes, [](const B& b) -> Num { return b.p_over_t; }},
    {Property::saturation_slope,
     "slope of saturation line",
     "dps/dt",
     "bar/K",
     in_wet_states,
     {},
     [](const B& b) -> Num { return numbers::each_lane(b.t, property_table::saturation_slope); }},
    {Property::heat_of_evaporation, "heat of evaporation", "r", "kJ/kg", in_wet_states,
     property_table::evaporation, [](const B& b) -> Num { return b.heat_of_evaporation; }},
    {Property::wet_speed_of_sound, "wet steam's speed of sound", "w_wet", "m/s", in_wet_states,
     property_table::v | property_table::evaporation,
     [](const B& b) -> Num { return property_table::speed_of_sound(b.v, b.wet_v_over_p_s); }},
    {Property::kinematic_viscosity, "kinematic viscosity", "nu", "m²/s", in_one_phase,
     property_table::viscosity, [](const B& b) -> Num { return b.viscosity * b.v; }},
    {Property::thermal_diffusivity, "thermal diffusivity", "a", "m²/s", in_one_phase,
     property_table::diffusivity,
     [](const B& b) -> Num { return b.conductivity * b.v / (b.cp * property_table::joule); }},
    {Property::gibbs_energy, "Gibbs energy", "g", "kJ/kg", always, property_table::h_and_s,
     [](const B& b) -> Num { return b.h - kelvin(b.t) * b.s; }},
    {Property::helmholtz_energy, "Helmholtz energy", "f", "kJ/kg", always, property_table::u_and_s,
     [](const B& b) -> Num { return b.u - kelvin(b.t) * b.s; }},
    {Property::superheat,
     "superheat",
     "dt",
     "K",
     in_one_phase,
     {.quality = true},
     [](const B& b) -> Num { return property_table::superheat(b); }},
    {Property::several,
     "several states",
     "several",
     "",
     in_answers,
     {.several = true},
     [](const B& b) -> Num { return static_cast<double>(b.several); }},
    {Property::approximate,
     "approximate state",
     "approximate",
     "",
     in_answers,
     {},
     [](const B& b) -> Num { return static_cast<double>(b.approximate); }},
}};

inline constexpr const std::array<PropertyRow, property_count>& property_rows =
    property_rows_of<double>;

/// Numbers of properties: those of a state, of its saturated liquid, of its saturated vapour.
constexpr unsigned number_of(Property property) { return static_cast<unsigned>(property); }
constexpr unsigned liquid_numbers = VEK_STEAM_OF_LIQUID, vapour_numbers = VEK_STEAM_OF_VAPOUR;

/// Of the state or of a phase alike.
constexpr const PropertyRow& row_of(Property property) {
  return property_rows[number_of(property) % liquid_numbers];
}

/// The property in a state of some kind, from a basis that has what it needs.
template <class Num>
Num value_of(const PropertyRowOf<Num>& row, const BasisOf<Num>& basis, Exists kind) {
  const Num value = (row.exists & kind) != 0 ? row.of(basis) : Num(missing);
  // Which sign a computed one has depends on the processor.
  return numbers::select(value == value, value, Num(missing));
}

}  // namespace steam
