#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/boundary_line.hpp"
#include "classic/regions/evaluation_pair.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "classic/solve/saturation_temperature.hpp"

namespace classic {
namespace {

/// Distance of two volumes relative to their mean, in units of 1e-4.
double distance(double v, double v_line) { return 20000 * (v - v_line) / (v + v_line); }

/// Subregion 3 at the given volume: its pressure gives the temperature.
Region leave_subregion_3(Region region, double* p, double* v, double t1, double t2,
                         const double* tol) {
  const double t = VEKQI1(PRESS3, v, p, &t1, &t2, tol);
  return leave(region, p, v, *v, t);
}

Region place_low(double* p, double* v, const double* tol) {
  const double ts = VEKQIT(*p);
  const double v_water = SPVOL1(p, &ts);
  const double v_steam = SPVOL2(p, &ts);
  if (*v <= v_water) {
    return solve_temperature(water, SPVOL1, p, v, 0.01, ts, tol);
  }
  if (*v >= v_steam) {
    return solve_temperature(steam, SPVOL2, p, v, ts, 800, tol);
  }
  return leave_wet(wet, p, v, v_water, v_steam, ts);
}

Region place_beside_line(double* p, double* v, const double* tol) {
  const double t_line = line_temperature(*p);
  if (distance(*v, SPVOL2(p, &t_line)) >= -5) {
    return solve_temperature(steam, SPVOL2, p, v, t_line, 800, tol);
  }
  return leave_subregion_3(steam_side_3, p, v, 374.15, t_line, tol);
}

Region place_middle(double* p, double* v, const double* tol) {
  const double ts = VEKQIT(*p);
  const double v_water = liquid_volume3(&ts, p, tol);
  const double v_steam = vapour_volume3(&ts, p, tol);
  if (v_water < *v && *v < v_steam) {
    return leave_wet(wet_above_350, p, v, v_water, v_steam, ts);
  }
  if (*v <= v_water) {
    return leave_subregion_3(water_side_3, p, v, 350, 374.15, tol);
  }
  return place_beside_line(p, v, tol);
}

Region place_supercritical(double* p, double* v, const double* tol) {
  constexpr double t_critical = 374.15;
  if (*v <= volume3(&t_critical, p, 0.001314782578, 0.00317, tol)) {
    return leave_subregion_3(water_side_3, p, v, 350, 374.15, tol);
  }
  return place_beside_line(p, v, tol);
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrpv_(double* p, double* v, double* tol) {
  if (*p <= p_saturation_350) {
    return place_low(p, v, tol);
  }
  constexpr double t_350 = 350;
  if (distance(*v, SPVOL1(p, &t_350)) < 5) {
    return solve_temperature(water, SPVOL1, p, v, 0.01, 350, tol);
  }
  // The critical pressure itself belongs to the supercritical band, unlike in the caloric finders.
  return *p < 221.2 ? place_middle(p, v, tol) : place_supercritical(p, v, tol);
}
