#include <cmath>
#include <ostream>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/regions/evaluation_pair.hpp"
#include "classic/solve/bracketing.hpp"
#include "classic/solve/saturated_volumes.hpp"

namespace classic {
namespace {

struct WetEntropy {
  Region region;
  double s;
};

/// Entropy of the wet state of quality x at t.
WetEntropy wet_entropy(const double* t, double x, const double* tol) {
  double ps = VEKQPT(t);
  if (*t <= 350) {
    if (ps < 0.006112444) {
      ps = 0.006112444;
    }
    const double s_water = ENTRO1(&ps, t);
    return {wet, mixed(s_water, x, ENTRO2(&ps, t))};
  }
  const double v_water = liquid_volume3(t, &ps, tol);
  const double s_water = ENTRO3(&v_water, t);
  // intended: this finder's own second start value
  const double v_steam = volume3(t, &ps, vapour_volume_start(*t), 0.0088, tol);
  return {wet_above_350, mixed(s_water, x, ENTRO3(&v_steam, t))};
}

/// Tells when an iteration returns exactly to an earlier value and so can never end: it compares
/// with a saved value, which it renews at doubling intervals.
class CycleDetector {
 public:
  explicit CycleDetector(double start) : saved_(start) {}
  bool returns(double value) {
    if (value == saved_) {
      return true;
    }
    if (++steps_ == interval_) {
      saved_ = value;
      interval_ *= 2;
      steps_ = 0;
    }
    return false;
  }

 private:
  double saved_;
  unsigned long long steps_ = 0, interval_ = 1;
};

/// Passes that are granted, in those to 350 °C. Nearly every search that finds its state makes far
/// fewer; others wander for minutes, many to end nowhere. This is the one place where the module
/// deviates from its definition.
constexpr long work_limit = 2'000'000;

/// What a pass costs: above 350 °C two volumes are solved for.
int work_of_pass(Region region) { return region == wet ? 1 : 20; }

double next_temperature(double t, double s, double s_of_t) {
  // intended: one digit more than in the refusal below
  constexpr double s_critical = 4.442864888;
  const double next = 374.15 + (t - 374.15) * (s - s_critical) / (s_of_t - s_critical);
  return next < 0.01 ? 0.01 : next;
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrsx_(double* s, double* x, double* tol) {
  // intended: a test for equality, and the words
  if (*s == 4.44286488) {
    WriteDiagnostic(ErrorStream, " POINT IS BELOW CRITICAL POINT  S = ") << *s << std::endl;
    return refused;
  }
  const double tolerance = *tol * *s > *tol ? *tol * *s : *tol;  // of the entropy
  double t = 0.01;
  CycleDetector cycle(t);
  long work = 0;
  for (;;) {
    const WetEntropy at_t = wet_entropy(&t, *x, tol);
    const double next = next_temperature(t, *s, at_t.s);
    if (std::abs(next - t) <= *tol * t || std::abs(at_t.s - *s) <= tolerance) {
      return leave(at_t.region, s, x, *x, next);
    }
    if (next > 374.15) {  // intended: said at each pass, and the iteration goes on
      WriteDiagnostic(ErrorStream, " POINT IS NOT IN WET-REGIONINT  S = ")
          << *s << ", X = " << *x << std::endl;
    }
    work += work_of_pass(at_t.region);
    if (std::isnan(next) || cycle.returns(next) || work > work_limit) {
      warn_of_limit("VEKRSX");
      return refused;
    }
    t = next;
  }
}
