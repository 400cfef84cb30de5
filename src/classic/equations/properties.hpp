#pragma once

namespace classic {

// Properties by subregion. Subregions 1 and 2 take pressure (bar) and temperature (°C), subregion 3
// specific volume (m³/kg) and temperature. Out-of-range inputs are reported by the common-terms
// routines, and the property is computed all the same.

// Specific volume, m³/kg.
double SPVOL1(const double* p, const double* t);
double SPVOL2(const double* p, const double* t);

// Enthalpy, kJ/kg. `ENTHA3` has the conditional group only below the critical temperature and
// volume, `ENTHA3X` always.
double ENTHA1(const double* p, const double* t);
double ENTHA2(const double* p, const double* t);
double ENTHA3(const double* v, const double* t);
double ENTHA3X(const double* v, const double* t);

// Entropy, kJ/(kg K).
double ENTRO1(const double* p, const double* t);
double ENTRO2(const double* p, const double* t);
double ENTRO3(const double* v, const double* t);

// Internal energy, kJ/kg, always as h - p v.
double ENERG1(const double* p, const double* t);
double ENERG2(const double* p, const double* t);
double ENERG3(const double* v, const double* t);

// Isobaric heat capacity, kJ/(kg K).
double HTCAP1(const double* p, const double* t);
double HTCAP2(const double* p, const double* t);
double HTCAP3(const double* v, const double* t);

}  // namespace classic
