#include "steam/property_table.hpp"

#include <cmath>

#include "numbers/power.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {
namespace {

constexpr bool is_in_order() {
  for (std::size_t i = 0; i < property_count; ++i) {
    if (property_rows[i].property != static_cast<Property>(i)) {
      return false;
    }
  }
  return true;
}
static_assert(is_in_order(), "the rows stand in the order of the enumerators");

}  // namespace

double property_table::surface_tension(double t) {
  constexpr double T_critical = 647.15;
  const double x = std::fmax(1 - kelvin(t) / T_critical, 0);
  return 235.8e-3 * numbers::power(x, 1.256) * (1 - 0.625 * x);
}

double property_table::saturation_slope(double t) { return sloped_saturation_pressure(t).over_t; }

double property_table::superheat_at(double p, double t) {
  return p < p_critical ? t - saturation_temperature(p) : missing;
}

}  // namespace steam
