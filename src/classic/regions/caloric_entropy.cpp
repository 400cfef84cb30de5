#include <array>
#include <ostream>

#include "classic/frame/diagnostics.hpp"
#include "classic/frame/guards.hpp"
#include "classic/regions/region.hpp"
#include "classic/regions/residuals.hpp"
#include "classic/solve/root_solvers.hpp"

// The finders from enthalpy or internal energy and entropy: they bracket the temperature from the
// entropy alone, solve for it, and leave the placing to `vekrts_`.

namespace classic {
namespace {

/// Upper start temperature within a band of entropy: T0 exp((s - s0) factor) - kelvin, up to a
/// limit.
struct Band {
  double T0, s0, factor, kelvin, limit;
};

constexpr double unlimited = HUGE_VAL;

/// What one of the two does differently.
struct Row {
  Residual residual;
  std::array<Band, 4> bands;
  std::array<bool (*)(double s), 4> ends;  // whether s is past band i
  bool (*is_low_pressure_steam)(double s);
  Band lower;  // of the lower start temperature there
};

constexpr Row by_enthalpy{
    .residual = HOFTS,
    .bands{{{273.16, 0, 0.2631578947368421, 273.15, 351},
            {623.15, 3.392, 0.2242152466367713, 273.15, 375},
            {647.3, 3.585, 0.19762845849802374, 275.15, 591},  // intended: 275.15
            {863.15, 5.091, 0.273972602739726, 273.15, 800}}},
    .ends{{[](double s) { return !(s <= 3.392247892); }, [](double s) { return !(s < 3.585); },
           [](double s) { return !(s < 5.091); }, [](double s) { return !(s < 6.04); }}},
    .is_low_pressure_steam = [](double s) { return s > 9.15746; },
    .lower = {273.1, 9.15746, 0.5555555555555556, 273.15, 800},
};

// intended: single-precision copies of the entropies, each with a factor of its own
constexpr Row by_energy{
    .residual = UOFTS,
    .bands{{{273.16, 0, 0.2631578947368421, 273.15, 351},
            {623.15, static_cast<double>(3.392F), 0.2242152447190285, 273.15, 375},
            {647.3, static_cast<double>(3.585F), 0.19762846073288365, 273.15, unlimited},
            {863.15, static_cast<double>(5.091F), 0.2739725955813527, 273.15, 800}}},
    .ends{{[](double s) { return !(s <= 3.392247892); }, [](double s) { return !(s <= 3.585); },
           [](double s) { return !(s <= 5.091); }, [](double s) { return !(s < 6.04); }}},
    .is_low_pressure_steam = [](double s) { return s >= 9.15746; },
    .lower = {static_cast<double>(273.1F), static_cast<double>(9.15746F), 0.5555555702727522,
              273.15, 800},
};

double temperature_in(const Band& band, double s) {
  const double t = band.T0 * SafeExp((s - band.s0) * band.factor) - band.kelvin;
  return t > band.limit ? band.limit : t;
}

double upper_start(const Row& row, double s) {
  for (std::size_t i = 0; i < row.bands.size(); ++i) {
    if (!row.ends[i](s)) {
      return temperature_in(row.bands[i], s);
    }
  }
  return 800;
}

int place(const Row& row, double* y, double* s, double* tol) {
  double t_high = upper_start(row, *s);
  double t_low = row.is_low_pressure_steam(*s) ? temperature_in(row.lower, *s) : 0.01;
  double first = VEKQI3(row.residual, s, y, &t_low, &t_high, tol);
  const int region = vekrts_(&first, s, tol);
  *y = first;
  return region;
}

}  // namespace
}  // namespace classic

using namespace classic;

int vekrhs_(double* h, double* s, double* tol) { return place(by_enthalpy, h, s, tol); }

int vekrus_(double* u, double* s, double* tol) {
  if (*u < 250) {
    WriteDiagnostic(ErrorStream, " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE  U = ")
        << *u << ", S = " << *s << std::endl;
    return refused;
  }
  return place(by_energy, u, s, tol);
}
