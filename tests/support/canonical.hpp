#pragma once

/// The canonical functions of the formulation, written term by term as published, evaluated and
/// differentiated numerically in 50 digits: shares no line and no coefficient with the library.
namespace canonical {

struct Properties {
  double p, v, h, s, u, cp;  // bar, m³/kg, kJ/kg, kJ/(kg K)
};

Properties subregion1(double p, double t);
Properties subregion2(double p, double t);

/// What of the conditional group of subregion 3 takes part: its last sum, in y^32, is negligible
/// near y = 0 and of no use at the negative y above the critical temperature.
enum class Conditional { none, all, without_last_sum };

Properties subregion3(double v, double t, Conditional part);

struct Saturation {
  double p, dp_dt;  // bar, bar/K
};
Saturation saturation(double t);

}  // namespace canonical
