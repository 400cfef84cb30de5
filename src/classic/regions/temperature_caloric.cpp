#include <ostream>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/regions/evaluation_pair.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "formulation/boundary_line.hpp"

// The finders from temperature and enthalpy, internal energy or entropy y. They leave the
// temperature in the second argument.

namespace classic {
namespace {

struct Starts {
  double first, second;
};

/// What one of them does differently.
struct Row {
  Function y1, y2, y3;                       // its property by subregion
  bool (*is_wet)(double y, double y_steam);  // at or below 350 °C
  double p_low;                              // lower start of the steam pressure to 350 °C
  Starts v_water_side;                       // of the volume above 350 °C
  Starts p_hot;                              // of the steam pressure above 350 °C
  formulation::Line line;                    // to subregion 3
  double margin;                             // beyond the value on that line
  Starts (*v_steam_side)(double t);
};

constexpr Row by_enthalpy{
    .y1 = ENTHA1,
    .y2 = ENTHA2,
    .y3 = ENTHA3,
    .is_wet = [](double h, double h_steam) { return h <= h_steam; },
    .p_low = 0.01,
    .v_water_side = {0.001314782578, 0.00317},
    .p_hot = {1000, 0.001},
    .line = formulation::boundary_line,
    .margin = 0.2,
    .v_steam_side =
        [](double) {
          return Starts{0.008799105448, 0.00137};
        },
};

constexpr Row by_energy{
    .y1 = ENERG1,
    .y2 = ENERG2,
    .y3 = ENERG3,
    .is_wet = [](double u, double u_steam) { return u <= u_steam; },
    .p_low = 0.01,
    .v_water_side = {0.001314782578, 0.00317},
    .p_hot = {1000, 0.001},
    .line = {15.7473327, -34.17061978, 19.31380707},  // intended: transposed digits in L0
    .margin = 0.2,
    .v_steam_side =
        [](double) {
          return Starts{0.008799105448, 0.00137};
        },
};

constexpr Row by_entropy{
    .y1 = ENTRO1,
    .y2 = ENTRO2,
    .y3 = ENTRO3,
    .is_wet = [](double s, double s_steam) { return s < s_steam; },  // intended: strictly
    .p_low = 0.006112444,
    .v_water_side = {0.00317, 0.001314782578},  // intended: the other way round
    .p_hot = {1000, 0.006112444},
    .line = formulation::boundary_line,
    .margin = 0.0002,
    .v_steam_side =
        [](double t) {
          return Starts{0.00137, 0.01545 - 2.18e-5 * t};
        },
};

Region solve_from(Region region, Function f, double* t, double* y, Starts start,
                  const double* tol) {
  return solve_first(region, f, t, y, start.first, start.second, tol);
}

template <const Row& F>
Region place_to_350(double* t, double* y, const double* tol) {
  const double ps = VEKQPT(t);
  const double y_water = F.y1(&ps, t);
  if (*y <= y_water) {
    return solve_first(water, F.y1, t, y, ps, 1000, tol);
  }
  const double y_steam = F.y2(&ps, t);
  if (F.is_wet(*y, y_steam)) {
    return leave_wet(wet, t, y, y_water, y_steam, *t);
  }
  return solve_first(steam, F.y2, t, y, F.p_low, ps, tol);
}

template <const Row& F>
Region place_steam_side(double* t, double* y, const double* tol) {
  if (*t > 590) {
    return solve_from(steam, F.y2, t, y, F.p_hot, tol);
  }
  const double p_line = formulation::line_pressure(*t, F.line);
  if (*y - F.y2(&p_line, t) > F.margin) {
    return solve_from(steam, F.y2, t, y, F.p_hot, tol);
  }
  return solve_from(steam_side_3, F.y3, t, y, F.v_steam_side(*t), tol);
}

template <const Row& F>
Region place_to_critical(double* t, double* y, const double* tol) {
  const double ps = VEKQPT(t);
  const double v_water = liquid_volume3(t, &ps, tol);
  const double y_water = F.y3(&v_water, t);
  if (*y <= y_water) {
    return solve_from(water_side_3, F.y3, t, y, F.v_water_side, tol);
  }
  const double v_steam = vapour_volume3(t, &ps, tol);
  const double y_steam = F.y3(&v_steam, t);
  if (*y <= y_steam) {
    return leave_wet(wet_above_350, t, y, y_water, y_steam, *t);
  }
  return place_steam_side<F>(t, y, tol);
}

template <const Row& F>
Region place(double* t, double* y, const double* tol) {
  if (*t <= 350) {
    return place_to_350<F>(t, y, tol);
  }
  return *t <= 374.15 ? place_to_critical<F>(t, y, tol) : place_steam_side<F>(t, y, tol);
}

/// In compressed water enthalpy and internal energy hardly depend on pressure: below a threshold
/// the pair is refused.
Region refuse(double t, const char* label, double y) {
  WriteDiagnostic(ErrorStream, " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE  T = ")
      << t << label << y << std::endl;
  return refused;
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrth_(double* t, double* h, double* tol) {
  if (*t <= 350 && *h <= 1400) {
    return refuse(*t, ", H = ", *h);
  }
  return place<by_enthalpy>(t, h, tol);
}

int vekrtu_(double* t, double* u, double* tol) {
  if (*t <= 350 && *u <= 250) {
    return refuse(*t, ", U = ", *u);
  }
  return place<by_energy>(t, u, tol);
}

int vekrts_(double* t, double* s, double* tol) { return place<by_entropy>(t, s, tol); }
