#pragma once

namespace classic {

// A property of the state that a region finder makes of a trial value x and the known param: the
// functions that `VEKQI3` inverts. Wet states mix the saturated values by the quality. Where the
// finder places no state, each returns its previous result.

// Pressure x and specific volume, through `vekrpv_`: entropy, enthalpy, internal energy.
double SOFPV(const double* x, const double* param, double* eps);
double HOFPV(const double* x, const double* param, double* eps);
/// @note  a wet state above 350 °C gives its specific volume: intended
double UOFPV(const double* x, const double* param, double* eps);

// Temperature x and entropy, through `vekrts_`: enthalpy, internal energy.
double HOFTS(const double* x, const double* param, double* eps);
/// @note  wet states are mixed by the temperature instead of the quality: intended
double UOFTS(const double* x, const double* param, double* eps);

/// Temperature x and quality, through `vekrtx_`: specific volume.
/// @outside  not a number where there is no wet state
double VOFTX(const double* x, const double* param, double* eps);

}  // namespace classic
