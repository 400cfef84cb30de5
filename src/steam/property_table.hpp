#pragma once

#include "steam/equations/basis.hpp"

namespace steam {

/// What a property needs of the basis of its state.
struct Needs {
  Parts parts{};
  bool quality = false, viscosity = false, conductivity = false;
  constexpr Needs& operator|=(const Needs& more) {
    parts.v |= more.parts.v;
    parts.h |= more.parts.h;
    parts.s |= more.parts.s;
    parts.cp |= more.parts.cp;
    parts.slopes |= more.parts.slopes;
    quality |= more.quality;
    viscosity |= more.viscosity;
    conductivity |= more.conductivity;
    return *this;
  }
};

/// In which states a property exists.
enum class Exists : std::uint8_t { always, in_one_phase, in_wet_states };

/// One property: everything that lists properties follows from these rows.
struct PropertyRow {
  Property property;
  const char* name;
  const char* letter;
  const char* unit;
  Exists exists;
  Needs needs;
  double (*of)(const Basis&);
};

namespace property_table {
constexpr Needs v{.parts = {.v = true}}, h{.parts = {.h = true}}, s{.parts = {.s = true}};
constexpr Needs u{.parts = {.v = true, .h = true}};
constexpr Needs cp{.parts = {.cp = true}};
constexpr Needs slopes{.parts = {.v = true, .cp = true, .slopes = true}};
constexpr Needs viscosity{.parts = {.v = true}, .viscosity = true};
constexpr Needs conductivity{.parts = {.v = true}, .conductivity = true};
constexpr Needs prandtl{.parts = {.v = true, .cp = true}, .viscosity = true, .conductivity = true};
constexpr double pascal = 1e5;  // per bar
constexpr double joule = 1000;  // per kJ

/// Surface tension of saturated water, N/m; 0 at and beyond its own critical temperature.
/// @source IAPS release on the surface tension of water substance (1975)
double surface_tension(const Basis& b);
}  // namespace property_table

using B = Basis;
/// By `Property`.
constexpr std::array<PropertyRow, property_count> property_rows{{
    {Property::p, "pressure", "p", "bar", Exists::always, {}, [](const B& b) { return b.p; }},
    {Property::t, "temperature", "t", "°C", Exists::always, {}, [](const B& b) { return b.t; }},
    {Property::v, "specific volume", "v", "m³/kg", Exists::always, property_table::v,
     [](const B& b) { return b.v; }},
    {Property::h, "enthalpy", "h", "kJ/kg", Exists::always, property_table::h,
     [](const B& b) { return b.h; }},
    {Property::s, "entropy", "s", "kJ/(kg K)", Exists::always, property_table::s,
     [](const B& b) { return b.s; }},
    {Property::u, "internal energy", "u", "kJ/kg", Exists::always, property_table::u,
     [](const B& b) { return b.u; }},
    {Property::x,
     "quality",
     "x",
     "",
     Exists::in_wet_states,
     {.quality = true},
     [](const B& b) { return b.x; }},
    {Property::density, "density", "rho", "kg/m³", Exists::always, property_table::v,
     [](const B& b) { return 1 / b.v; }},
    {Property::cp, "isobaric heat capacity", "cp", "kJ/(kg K)", Exists::in_one_phase,
     property_table::cp, [](const B& b) { return b.cp; }},
    {Property::cv, "isochoric heat capacity", "cv", "kJ/(kg K)", Exists::in_one_phase,
     property_table::slopes, [](const B& b) { return b.cv; }},
    {Property::speed_of_sound, "speed of sound", "w", "m/s", Exists::in_one_phase,
     property_table::slopes,
     [](const B& b) { return std::sqrt(-b.v * b.v / b.v_over_p_s * property_table::pascal); }},
    {Property::isentropic_exponent, "isentropic exponent", "kappa", "", Exists::in_one_phase,
     property_table::slopes, [](const B& b) { return -b.v / b.v_over_p_s / b.p; }},
    {Property::viscosity, "dynamic viscosity", "eta", "Pa·s", Exists::in_one_phase,
     property_table::viscosity, [](const B& b) { return b.viscosity; }},
    {Property::conductivity, "thermal conductivity", "lambda", "W/(m K)", Exists::in_one_phase,
     property_table::conductivity, [](const B& b) { return b.conductivity; }},
    {Property::prandtl, "Prandtl number", "Pr", "", Exists::in_one_phase, property_table::prandtl,
     [](const B& b) { return b.viscosity * b.cp * property_table::joule / b.conductivity; }},
    {Property::surface_tension,
     "surface tension",
     "sigma",
     "N/m",
     Exists::in_wet_states,
     {},
     property_table::surface_tension},
    {Property::region,
     "region",
     "region",
     "",
     Exists::always,
     {},
     [](const B& b) { return static_cast<double>(b.region); }},
}};

constexpr const PropertyRow& row_of(Property property) {
  return property_rows[static_cast<std::size_t>(property)];
}

/// The property in a state, from a basis that has what it needs.
inline double value_of(const PropertyRow& row, const Basis& basis, bool wet) {
  const bool exists = row.exists == Exists::always || (row.exists == Exists::in_wet_states) == wet;
  return exists ? row.of(basis) : missing;
}

}  // namespace steam
