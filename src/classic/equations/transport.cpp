#include "formulation/transport.hpp"

#include "classic/equations/routines.hpp"
#include "classic/frame/guards.hpp"

namespace classic {

double VISCOS(const double* v, const double* t) { return formulation::viscosity<Guarded>(*v, *t); }

double THCOND(const double* v, const double* t) {
  return formulation::conductivity<Guarded>(*v, *t);
}

}  // namespace classic
