#include "classic/regions/residuals.hpp"

#include <limits>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/region.hpp"
#include "classic/solve/root_solvers.hpp"
#include "classic/solve/saturated_volumes.hpp"

namespace classic {
namespace {

/// What a region finder made of the trial value and the known one.
struct Placed {
  int region;
  double a, b;  // evaluation pair
};

Placed place(VekFinder finder, const double* x, const double* param, double* eps) {
  Placed state{0, *x, *param};
  state.region = finder(&state.a, &state.b, eps);
  return state;
}

/// A value of saturated water and of saturated steam.
struct Saturated {
  double water, steam;
  double mixed(double weight) const { return classic::mixed(water, weight, steam); }
};

constexpr double second_vapour_volume = 0.0088;

/// Liquid first, then vapour, at temperature t and pressure p above 350 °C.
Saturated saturated_volumes(const double* t, const double* p, const double* eps) {
  const double water = liquid_volume3(t, p, eps);
  return {water, volume3(t, p, vapour_volume_start(*t), second_vapour_volume, eps)};
}

double trial_pressure(const double* x, const Placed&) { return *x; }
double saturation_pressure(const double*, const Placed& state) { return VEKQPT(&state.b); }

/// What one of them does differently.
struct Row {
  VekFinder finder;
  Function y1, y2, y3;                                           // property by subregion
  double (*wet_pressure)(const double* x, const Placed& state);  // of the saturated states
};
constexpr Row entropy_of_pv{vekrpv_, ENTRO1, ENTRO2, ENTRO3, trial_pressure};
constexpr Row enthalpy_of_pv{vekrpv_, ENTHA1, ENTHA2, ENTHA3, trial_pressure};
constexpr Row energy_of_pv{vekrpv_, ENERG1, ENERG2, ENERG3, trial_pressure};
constexpr Row enthalpy_of_ts{vekrts_, ENTHA1, ENTHA2, ENTHA3, saturation_pressure};

/// Above 350 °C.
double mixed_above_350(const Row& row, const Placed& state, const double* p, const double* eps) {
  const Saturated v = saturated_volumes(&state.b, p, eps);
  const double y_water = row.y3(&v.water, &state.b);
  return Saturated{y_water, row.y3(&v.steam, &state.b)}.mixed(state.a);
}

double mixed_to_350(const Row& row, const Placed& state, const double* p) {
  const double y_water = row.y1(p, &state.b);
  return Saturated{y_water, row.y2(p, &state.b)}.mixed(state.a);
}

double property(const Row& row, const Placed& state, const double* x, const double* eps,
                double previous) {
  switch (state.region) {
    case water:
      return row.y1(&state.a, &state.b);
    case steam:
      return row.y2(&state.a, &state.b);
    case steam_side_3:
    case water_side_3:
      return row.y3(&state.a, &state.b);
    case wet_above_350: {
      const double p = row.wet_pressure(x, state);
      return mixed_above_350(row, state, &p, eps);
    }
    case wet: {
      const double p = row.wet_pressure(x, state);
      return mixed_to_350(row, state, &p);
    }
    default:
      return previous;
  }
}

/// One of the residuals that have nothing of their own but their row.
template <const Row& F>
double residual(const double* x, const double* param, double* eps) {
  static double result = 0;
  return result = property(F, place(F.finder, x, param, eps), x, eps, result);
}

/// h - p v, where the subregion's own routine is not called.
double energy(double h, double p, double v) { return h - p * v * 100; }

/// A wet state: volume and enthalpy mixed with the temperature as their weight, intended.
double misweighted_energy(const Placed& state, const double* eps) {
  const double* t = &state.b;
  const double ps = VEKQPT(t);
  Saturated v{};
  Saturated h{};
  if (state.region == wet_above_350) {
    v = saturated_volumes(t, &ps, eps);
    h.water = ENTHA3(&v.water, t);
    h.steam = ENTHA3(&v.steam, t);
  } else {
    v.water = SPVOL1(&ps, t);
    v.steam = SPVOL2(&ps, t);
    h.water = ENTHA1(&ps, t);
    h.steam = ENTHA2(&ps, t);
  }
  return energy(h.mixed(*t), ps, v.mixed(*t));
}

}  // namespace

double SOFPV(const double* x, const double* param, double* eps) {
  return residual<entropy_of_pv>(x, param, eps);
}

double HOFPV(const double* x, const double* param, double* eps) {
  return residual<enthalpy_of_pv>(x, param, eps);
}

double UOFPV(const double* x, const double* param, double* eps) {
  static double result = 0;
  const Placed state = place(energy_of_pv.finder, x, param, eps);
  if (state.region != wet_above_350) {
    return result = property(energy_of_pv, state, x, eps, result);
  }
  // intended: vapour first, its second start value left for the liquid, and the mixed volume
  double start = vapour_volume_start(state.b);
  double second = second_vapour_volume;
  const double v_steam = VEKQI2(PRESS3, &state.b, x, &start, &second, eps);
  start = liquid_volume_start(state.b);
  const double v_water = VEKQI2(PRESS3, &state.b, x, &start, &second, eps);
  return result = Saturated{v_water, v_steam}.mixed(state.a);
}

double HOFTS(const double* x, const double* param, double* eps) {
  return residual<enthalpy_of_ts>(x, param, eps);
}

double UOFTS(const double* x, const double* param, double* eps) {
  static double result = 0;
  const Placed state = place(vekrts_, x, param, eps);
  const double* a = &state.a;
  const double* t = &state.b;
  switch (state.region) {
    case water: {
      const double h = ENTHA1(a, t);
      return result = energy(h, *a, SPVOL1(a, t));
    }
    case steam: {
      const double h = ENTHA2(a, t);
      return result = energy(h, *a, SPVOL2(a, t));
    }
    case steam_side_3:
    case water_side_3: {
      const double h = ENTHA3(a, t);
      return result = energy(h, *a, PRESS3(a, t));
    }
    case wet_above_350:
    case wet:
      return result = misweighted_energy(state, eps);
    default:
      return result;
  }
}

double VOFTX(const double* x, const double* param, double* eps) {
  const Placed state = place(vekrtx_, x, param, eps);
  if (state.region != wet_above_350 && state.region != wet) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  const double ps = VEKQPT(x);
  if (state.region == wet_above_350) {
    return saturated_volumes(x, &ps, eps).mixed(*param);
  }
  const double v_water = SPVOL1(&ps, x);
  return Saturated{v_water, SPVOL2(&ps, x)}.mixed(*param);
}

}  // namespace classic
