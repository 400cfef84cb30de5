#include "classic/solve/saturation_temperature.hpp"

#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/solve/bracketing.hpp"

namespace classic {

double VEKQIT(double p) {
  if (!(p <= 221.2 && p >= 0.006112444)) {  // not a number is out of range too
    constexpr int code = 1;
    ReportError("VEKQIT", &code, &p, &p);
    return 0.01;
  }
  constexpr double eps = 1e-12;
  Bracket b{0.01, 374.15, 0, 0};
  return solve_or_warn([p](double t) { return VEKQPT(&t) - p; }, b, eps, std::abs(eps * p),
                       "VEKQIT");
}

}  // namespace classic
