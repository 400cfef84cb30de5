#pragma once

namespace formulation {

// Reduction values of the 1967 industrial formulation and the scales that follow from them.
constexpr double critical_temperature = 374.15;             // °C
constexpr double celsius_offset = 273.15;                   // K
constexpr double reducing_temperature = 647.3;              // K
constexpr double reducing_pressure = 221.2;                 // bar
constexpr double reducing_volume = 0.00317;                 // m³/kg
constexpr double enthalpy_scale = 70.1204;                  // kJ/kg, 221.2 bar · 0.00317 m³/kg
constexpr double entropy_scale = 0.1083275143;              // kJ/(kg K), the same / 647.3 K
constexpr double enthalpy_origin = 1.0416781631075301e-08;  // makes u of water zero at 0.01 °C
constexpr double entropy_origin = -1.592689186543051e-06;   // makes s of water zero at 0.01 °C

/// Ideal-gas constant I1 of the formulation, reduced.
constexpr double ideal_gas_constant = 4.260321148;

/// @tparam Divisor  how the policy of the elementary functions divides
template <class Divisor = double, class Num>
Num reduced_temperature(Num t) {
  return (t + celsius_offset) / Divisor(reducing_temperature);
}

/// Slopes of the specific volume over pressure, m³/(kg bar), and temperature, m³/(kg K).
template <class Num>
struct VolumeSlopes {
  Num over_p, over_t;
};

}  // namespace formulation
