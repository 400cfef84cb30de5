#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/frame/guards.hpp"

namespace classic {
namespace {

/// Reports a value outside its limits, which are widened by 1e-5 of themselves and inclusive.
/// @param codes  the report's code and, with it, both inputs
void check(const char* routine, int code, double value, double low, double high,
           const double* first, const double* second) {
  constexpr double lower_factor = 0.99999;
  constexpr double upper_factor = 1.00001;
  if (low * lower_factor > value || high * upper_factor < value) {
    ReportError(routine, &code, first, second);
  }
}

/// @return false when the cached terms are those of these inputs; else makes the inputs current
template <class Terms>
bool renew(CommonTerms<Terms>& common, const double* first, const double* second) {
  if (*first == common.first && *second == common.second) {
    return false;
  }
  common.first = *first;
  common.second = *second;
  return true;
}

constexpr double p_low = 0.006112444;
constexpr double p_high = 1000;

}  // namespace

CommonTerms<formulation::Terms1<Guarded>> common1;
CommonTerms<formulation::Terms2<Guarded>> common2;
CommonTerms<formulation::Terms3<Guarded>> common3;
StatePT current_pt;
double conditional_G;

int COMT1(const double* p, const double* t) {
  if (renew(common1, p, t)) {
    current_pt = {*p, *t};
    check("COMT1", 12, *p, p_low, p_high, p, t);
    check("COMT1", 12, *t, 0.01, 350, p, t);
    common1.terms = formulation::terms1<Guarded>(*p, *t);
  }
  return 0;
}

int COMT2(const double* p, const double* t) {
  if (renew(common2, p, t)) {
    current_pt = {*p, *t};
    check("COMT2", 12, *p, p_low, p_high, p, t);
    check("COMT2", 12, *t, 0.01, 800, p, t);
    common2.terms = formulation::terms2<Guarded>(*p, *t);
  }
  return 0;
}

int COMT3(const double* v, const double* t) {
  if (renew(common3, v, t)) {
    check("COMT3", 42, *v, 0.001314782578, 0.008799105448, v, t);
    check("COMT3", 42, *t, 350, 590, v, t);
    common3.terms = formulation::terms3<Guarded>(*v, *t);
  }
  return 0;
}

double PRESS3(const double* v, const double* t) {
  COMT3(v, t);
  const auto& s = common3.terms;
  conditional_G = leaves_conditional_out(s) ? 0.0 : conditional_pressure(s);
  return formulation::pressure(s, conditional_G);
}

double PRESS3X(const double* v, const double* t) {
  const double p = PRESS3(v, t);
  const auto& s = common3.terms;
  const bool included = s.theta < 1 && s.chi < 1;
  return p + formulation::reducing_pressure * (included ? 0.0 : conditional_pressure(s));
}

}  // namespace classic
