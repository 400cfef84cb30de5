#pragma once

#include "classic/frame/guards.hpp"
#include "formulation/subregion1.hpp"
#include "formulation/subregion2.hpp"
#include "formulation/subregion3.hpp"

namespace classic {

// The equations as the classic module calls them: arguments by address, guarded elementary
// functions, range reports, and the terms of the last state kept, so that several properties of one
// state evaluate them once.

/// Inputs of the last evaluation, with the terms that belong to them.
template <class Terms>
struct CommonTerms {
  double first = -999.0, second = -999.0;
  Terms terms{};
};

extern CommonTerms<formulation::Terms1<Guarded>> common1;
extern CommonTerms<formulation::Terms2<Guarded>> common2;
extern CommonTerms<formulation::Terms3<Guarded>> common3;

/// Pressure and temperature of whichever of `COMT1` and `COMT2` evaluated last.
struct StatePT {
  double p, t;
};
extern StatePT current_pt;

/// Share of the conditional group in the last `PRESS3`, 0 where that left it out.
extern double conditional_G;

/// Common terms of subregion 1, left in `common1`.
/// @param p   pressure, bar [0.006112444, 1000]
/// @param t   temperature, °C [0.01, 350]
/// @return    0, always
/// @outside   reports "COMT1" out of range, once per excess, then computes with the values as
/// given;
///            a repeated call with the same inputs neither computes nor reports
int COMT1(const double* p, const double* t);

/// Common terms of subregion 2, left in `common2`; t up to 800 °C, else as `COMT1`.
int COMT2(const double* p, const double* t);

/// Common terms of subregion 3, left in `common3`, else as `COMT1`.
/// @param v   specific volume, m³/kg [0.001314782578, 0.008799105448]
/// @param t   temperature, °C [350, 590]
int COMT3(const double* v, const double* t);

/// Pressure in subregion 3, bar; the conditional group only below the critical temperature and
/// volume.
double PRESS3(const double* v, const double* t);

/// Pressure in subregion 3, bar, the conditional group always included.
double PRESS3X(const double* v, const double* t);

/// Saturation pressure, bar.
/// @param t   temperature, °C, up to 374.15; no lower limit
/// @outside   reports "VEKQPT" out of range and returns -1
double VEKQPT(const double* t);

/// The same, and leaves in `saturation_slope` the slope that the Newton steps of `VEKQTP` use.
double VEKQPT_with_slope(const double* t);

/// About 8.0577 times dp/dt in bar/K; keeps its value where `VEKQPT_with_slope` refuses.
extern double saturation_slope;

/// Saturation temperature, °C, by a damped Newton iteration. Nothing in the module calls it.
/// @param p   pressure, bar, up to 221.2
/// @outside   reports "VEKQTP" out of range and returns not-a-number
/// @note      converges at 221.2 bar only: below, its start value lies at absolute zero (intended)
double VEKQTP(const double* p);

/// Dynamic viscosity, Pa·s, of a single phase of specific volume v (m³/kg) at t (°C); no checks.
double VISCOS(const double* v, const double* t);

/// Thermal conductivity, W/(m·K), likewise.
double THCOND(const double* v, const double* t);

}  // namespace classic
