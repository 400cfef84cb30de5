#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/regions/evaluation_pair.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "formulation/boundary_line.hpp"

namespace classic {
namespace {

Region place_to_350(double* t, double* v, const double* tol) {
  const double ps = VEKQPT(t);
  const double v_water = SPVOL1(&ps, t);
  if (*v < v_water) {
    return solve_first(water, SPVOL1, t, v, ps, 1000, tol);
  }
  const double v_steam = SPVOL2(&ps, t);
  if (*v <= v_steam) {
    return leave_wet(wet, t, v, v_water, v_steam, *t);
  }
  // intended: ten times the lowest pressure
  return solve_first(steam, SPVOL2, t, v, 0.06112444, ps, tol);
}

Region solve_hot_steam(double* t, double* v, const double* tol) {
  return solve_first(steam, SPVOL2, t, v, 1000, 0.00611244, tol);
}

Region place_steam_side(double* t, double* v, const double* tol) {
  if (*t > 590) {
    return solve_hot_steam(t, v, tol);
  }
  const double p_line = formulation::line_pressure(*t);
  const double v_line = SPVOL2(&p_line, t);
  if (20000 * (*v - v_line) / (*v + v_line) > -5) {
    return solve_hot_steam(t, v, tol);
  }
  return leave(steam_side_3, t, v, *v, *t);
}

Region place_to_critical(double* t, double* v, const double* tol) {
  const double ps = VEKQPT(t);
  const double v_water = liquid_volume3(t, &ps, tol);
  const double v_steam = vapour_volume3(t, &ps, tol);
  if (*v <= v_water) {
    return leave(water_side_3, t, v, *v, *t);
  }
  if (*v <= v_steam) {
    return leave_wet(wet_above_350, t, v, v_water, v_steam, *t);
  }
  return place_steam_side(t, v, tol);
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrtv_(double* t, double* v, double* tol) {
  if (*t <= 350) {
    return place_to_350(t, v, tol);
  }
  return *t <= 374.15 ? place_to_critical(t, v, tol) : place_steam_side(t, v, tol);
}
