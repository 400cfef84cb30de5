#include "classic/equations/properties.hpp"

#include "classic/equations/routines.hpp"
#include "classic/frame/guards.hpp"

namespace classic {
namespace {

const auto& terms1(const double* p, const double* t) {
  COMT1(p, t);
  return common1.terms;
}

const auto& terms2(const double* p, const double* t) {
  COMT2(p, t);
  return common2.terms;
}

const auto& terms3(const double* v, const double* t) {
  COMT3(v, t);
  return common3.terms;
}

}  // namespace

double SPVOL1(const double* p, const double* t) { return volume(terms1(p, t)); }
double SPVOL2(const double* p, const double* t) { return volume(terms2(p, t)); }

double ENTHA1(const double* p, const double* t) { return enthalpy(terms1(p, t)); }
double ENTHA2(const double* p, const double* t) { return enthalpy(terms2(p, t)); }
double ENTHA3(const double* v, const double* t) { return enthalpy(terms3(v, t)); }

double ENTHA3X(const double* v, const double* t) {
  const double h = ENTHA3(v, t);
  const auto& s = common3.terms;
  if (s.theta < 1 && s.chi < 1) {
    return h;
  }
  return h + conditional_enthalpy(s) * formulation::enthalpy_scale;
}

double ENTRO1(const double* p, const double* t) { return entropy(terms1(p, t)); }
double ENTRO2(const double* p, const double* t) { return entropy(terms2(p, t)); }
double ENTRO3(const double* v, const double* t) { return entropy(terms3(v, t)); }

double ENERG1(const double* p, const double* t) {
  const double h = ENTHA1(p, t);
  return h - 100 * *p * SPVOL1(p, t);
}

double ENERG2(const double* p, const double* t) {
  const double h = ENTHA2(p, t);
  return h - 100 * *p * SPVOL2(p, t);
}

double ENERG3(const double* v, const double* t) {
  const double h = ENTHA3(v, t);
  return h - PRESS3(v, t) * *v * 100;
}

double HTCAP1(const double* p, const double* t) {
  COMT1(p, t);
  auto& s = common1.terms;
  s.root = root_in_Z(s);  // anew: a negative radicand raises the flag with known terms, too
  return heat_capacity(s);
}

double HTCAP2(const double* p, const double* t) { return heat_capacity(terms2(p, t)); }
double HTCAP3(const double* v, const double* t) { return heat_capacity(terms3(v, t)); }

}  // namespace classic
