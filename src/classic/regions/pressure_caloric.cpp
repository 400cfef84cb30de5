#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/regions/evaluation_pair.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"

// The finders from pressure and enthalpy, entropy or internal energy y.

namespace classic {
namespace {

/// What one of them does differently.
struct Row {
  Function y1, y2, y3;              // its property by subregion
  Function y3_water, press3_water;  // subregion 3 for near-critical water in the middle band
  bool (*is_water)(double y, double y_water, double tol);
  bool (*is_steam)(double y, double y_steam);
  bool (*is_water_at_350)(double y, double y_350);
  bool (*is_steam_at_line)(double y, double y_line);
};

constexpr Row by_enthalpy{
    .y1 = ENTHA1,
    .y2 = ENTHA2,
    .y3 = ENTHA3,
    .y3_water = ENTHA3X,  // intended: with the conditional group everywhere, here alone
    .press3_water = PRESS3X,
    .is_water = [](double h, double h_water, double) { return h <= h_water; },
    .is_steam = [](double h, double h_steam) { return h >= h_steam; },
    .is_water_at_350 = [](double h, double h_350) { return h - h_350 < 0.2; },
    .is_steam_at_line = [](double h, double h_line) { return h - h_line > -0.2; },  // sign intended
};

constexpr Row by_entropy{
    .y1 = ENTRO1,
    .y2 = ENTRO2,
    .y3 = ENTRO3,
    .y3_water = ENTRO3,
    .press3_water = PRESS3,
    // intended: the relative tolerance as an absolute margin
    .is_water = [](double s, double s_water, double tol) { return s - s_water <= tol; },
    .is_steam = [](double s, double s_steam) { return s >= s_steam; },
    .is_water_at_350 = [](double s, double s_350) { return s - s_350 < 0.0002; },
    .is_steam_at_line = [](double s, double s_line) { return s - s_line >= 0.0002; },
};

constexpr Row by_energy{
    .y1 = ENERG1,
    .y2 = ENERG2,
    .y3 = ENERG3,
    .y3_water = ENERG3,
    .press3_water = PRESS3,
    .is_water = [](double u, double u_water, double) { return u <= u_water; },
    .is_steam = [](double u, double u_steam) { return u > u_steam; },  // intended: strictly
    .is_water_at_350 = [](double u, double u_350) { return u - u_350 <= 0.2; },
    .is_steam_at_line = [](double u, double u_line) { return u - u_line > 0.2; },
};

/// Solves y(v, t) = y and p(v, t) = p, which v and t replace.
Region solve_volume_and_temperature(Region region, Function f, Function press3, double* p,
                                    double* y, double v1, double v2, double t1, double t2,
                                    const double* tol) {
  VEKQID(f, y, press3, p, &v1, &v2, &t1, &t2, tol);
  return leave(region, p, y, v1, t1);
}

/// Up to the saturation pressure at 350 °C.
template <const Row& F>
Region place_low(double* p, double* y, const double* tol) {
  const double ts = VEKQIT(*p);
  const double y_water = F.y1(p, &ts);
  const double y_steam = F.y2(p, &ts);
  if (F.is_water(*y, y_water, *tol)) {
    return solve_temperature(water, F.y1, p, y, 0.01, ts, tol);
  }
  if (F.is_steam(*y, y_steam)) {
    return solve_temperature(steam, F.y2, p, y, ts, 800, tol);
  }
  return leave_wet(wet, p, y, y_water, y_steam, ts);
}

/// Steam or subregion 3, beside the boundary line at the temperature t_line.
/// @param v, t  second start values of the subregion-3 solve
template <const Row& F>
Region place_beside_line(double* p, double* y, double t_line, double v, double t,
                         const double* tol) {
  if (F.is_steam_at_line(*y, F.y2(p, &t_line))) {
    return solve_temperature(steam, F.y2, p, y, t_line, 800, tol);
  }
  const double v_line = SPVOL2(p, &t_line);
  return solve_volume_and_temperature(steam_side_3, F.y3, PRESS3, p, y, v_line, v, t_line, t, tol);
}

/// Up to the critical pressure.
template <const Row& F>
Region place_middle(double* p, double* y, const double* tol) {
  const double ts = VEKQIT(*p);
  double v1 = liquid_volume_start(ts);
  double v2 = 0.00174;
  const double v_water = VEKQI2(F.press3_water, &ts, p, &v1, &v2, tol);
  const double y_water = F.y3_water(&v_water, &ts);
  if (*y < y_water) {
    return solve_volume_and_temperature(water_side_3, F.y3_water, F.press3_water, p, y,
                                        0.001314782578, v_water, 350, ts, tol);
  }
  const double v_steam = vapour_volume3(&ts, p, tol);
  const double y_steam = F.y3(&v_steam, &ts);
  if (*y < y_steam) {
    return leave_wet(wet_above_350, p, y, y_water, y_steam, ts);
  }
  return place_beside_line<F>(p, y, line_temperature_single(*p), v_steam, ts, tol);
}

template <const Row& F>
Region place_supercritical(double* p, double* y, const double* tol) {
  constexpr double t_critical = 374.15;
  const double v_critical = volume3(&t_critical, p, 0.00317, 0.001314782578, tol);
  if (*y <= F.y3(&v_critical, &t_critical)) {
    constexpr double t_350 = 350;
    const double v_350 = SPVOL1(p, &t_350);
    return solve_volume_and_temperature(water_side_3, F.y3, PRESS3, p, y, v_critical, v_350,
                                        t_critical, t_350, tol);
  }
  return place_beside_line<F>(p, y, line_temperature(*p), v_critical, t_critical, tol);
}

template <const Row& F>
Region place(double* p, double* y, const double* tol) {
  if (*p <= p_saturation_350) {
    return place_low<F>(p, y, tol);
  }
  constexpr double t_350 = 350;
  if (F.is_water_at_350(*y, F.y1(p, &t_350))) {
    return solve_temperature(water, F.y1, p, y, 350, 0.01, tol);
  }
  // The critical pressure itself belongs to the middle band, unlike in `vekrpv_`: intended.
  return *p <= 221.2 ? place_middle<F>(p, y, tol) : place_supercritical<F>(p, y, tol);
}

}  // namespace
}  // namespace classic

int vekrph_(double* p, double* h, double* tol) {
  return classic::place<classic::by_enthalpy>(p, h, tol);
}
int vekrps_(double* p, double* s, double* tol) {
  return classic::place<classic::by_entropy>(p, s, tol);
}
int vekrpu_(double* p, double* u, double* tol) {
  return classic::place<classic::by_energy>(p, u, tol);
}
