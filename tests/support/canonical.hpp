#pragma once

/// The canonical functions of the formulation, written term by term as published and
/// differentiated automatically in extended precision: shares no line and no coefficient with the
/// library.
namespace canonical {

struct Properties {
  double p, v, h, s, u, cp;           // bar, m³/kg, kJ/kg, kJ/(kg K)
  double cv = 0, speed_of_sound = 0;  // kJ/(kg K), m/s
  double p_over_v = 0, p_over_t = 0;  // at constant t and v: bar kg/m³, bar/K
};

Properties subregion1(double p, double t);
Properties subregion2(double p, double t);

/// What of the conditional group of subregion 3 takes part: its last sum, in y^32, is negligible
/// near y = 0 and of no use at the negative y above the critical temperature.
enum class Conditional { none, all, without_last_sum };

Properties subregion3(double v, double t, Conditional part);
/// With the group in the liquid below the critical temperature alone.
Properties subregion3(double v, double t);

struct Saturation {
  double p, dp_dt;  // bar, bar/K
};
Saturation saturation(double t);

double viscosity(double v, double t);     // Pa·s
double conductivity(double v, double t);  // W/(m K)
double surface_tension(double t);         // N/m

/// Pressure at the boundary of subregions 2 and 3, 350 to 590 °C.
double boundary_line(double t);

}  // namespace canonical
