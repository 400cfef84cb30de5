#include "classic/solve/saturated_volumes.hpp"

#include "classic/equations/routines.hpp"
#include "classic/solve/root_solvers.hpp"

namespace classic {

double volume3(const double* t, const double* p, double start, double second, const double* tol) {
  return VEKQI2(PRESS3, t, p, &start, &second, tol);
}

double liquid_volume3(const double* t, const double* p, const double* tol) {
  return volume3(t, p, liquid_volume_start(*t), 0.00174, tol);
}

double vapour_volume3(const double* t, const double* p, const double* tol) {
  return volume3(t, p, vapour_volume_start(*t), 0.008799105448, tol);
}

}  // namespace classic
