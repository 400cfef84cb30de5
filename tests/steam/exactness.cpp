#include "exactness.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "answers.hpp"
#include "round_trips.hpp"
#include "support/canonical.hpp"

namespace exactness {
namespace {

using canonical::Properties;
using steam::Phase;
using steam::Property;
using steam::Region;
using steam::State;

using answers::is_wet;

State phase_of(const State& s, const Phase& phase) {
  const bool liquid = &phase == &s.saturated_liquid;
  State one;
  static_cast<Phase&>(one) = phase;
  one.region = s.region == Region::wet ? (liquid ? Region::water : Region::steam)
                                       : (liquid ? Region::hot_water : Region::dense_steam);
  return one;
}

Properties of_one_phase(const State& s) {
  return s.region == Region::water   ? canonical::subregion1(s.p, s.t)
         : s.region == Region::steam ? canonical::subregion2(s.p, s.t)
                                     : canonical::subregion3(s.v, s.t);
}

/// Of two phases in equilibrium, at the volumes that the state has above 350 °C: they have its
/// pressure there.
Properties of(const State& s) {
  if (!is_wet(s.region)) {
    return of_one_phase(s);
  }
  State liquid = phase_of(s, s.saturated_liquid), vapour = phase_of(s, s.saturated_vapour);
  liquid.p = vapour.p = canonical::saturation(s.t).p;
  liquid.t = vapour.t = s.t;
  const Properties l = of_one_phase(liquid), v = of_one_phase(vapour);
  const auto mixed = [&s](double a, double b) { return a + s.x * (b - a); };
  const double p = std::max({l.p, v.p, liquid.p}, [&s](double a, double b) {
    return std::abs(a - s.p) < std::abs(b - s.p);
  });
  return {p, mixed(l.v, v.v), mixed(l.h, v.h), mixed(l.s, v.s), mixed(l.u, v.u), steam::missing};
}

/// Every property, in their order.
answers::Properties expected(const State& s) {
  const Properties e = of(s);
  const bool wet = is_wet(s.region);
  const auto unless_wet = [wet](double x) { return wet ? steam::missing : x; };
  const double viscosity = canonical::viscosity(s.v, s.t);
  const double conductivity = canonical::conductivity(s.v, s.t);
  const double w = e.speed_of_sound;
  return answers::listed(
      e.p, s.t, e.v, e.h, e.s, e.u, s.x, 1 / e.v, e.cp, unless_wet(e.cv), unless_wet(w),
      unless_wet(w * w / (1e5 * e.p * e.v)), unless_wet(viscosity), unless_wet(conductivity),
      unless_wet(1000 * viscosity * e.cp / conductivity),
      wet ? canonical::surface_tension(s.t) : steam::missing, static_cast<double>(s.region));
}

/// Beside the critical point the compressibility grows, and what depends on it loses digits. At the
/// lowest pressure saturated water is colder than the lowest temperature, which it then has.
double tolerance(Property p, const State& s) {
  const double critical = 1 + (std::isnan(s.cp) ? 0 : std::abs(s.cp) / 10);
  const bool is_second_derivative = p == Property::cp || p == Property::prandtl ||
                                    p == Property::cv || p == Property::speed_of_sound ||
                                    p == Property::isentropic_exponent;
  return is_second_derivative                                   ? 1e-9 * critical
         : s.p < 0.0061124441                                   ? 3e-10
         : std::abs(s.t - 374.15) < 0.2                         ? 1e-10
         : s.region == Region::water || s.region == Region::wet ? 1e-11
                                                                : 3e-12;
}

}  // namespace

double deviation(const State& s) {
  const Properties e = of(s);
  const auto share = [](char letter, double value, double exact) {
    return std::abs(value - exact) / round_trips::scale(letter, exact);
  };
  return std::max({share('p', s.p, e.p), share('v', s.v, e.v), share('h', s.h, e.h),
                   share('s', s.s, e.s), share('u', s.u, e.u)});
}

std::string fault(const State& s) {
  const auto values = expected(s);
  for (const Property p : answers::all_properties) {
    const auto i = static_cast<std::size_t>(p);
    constexpr char letters[] = "ptvhsuxxxxxxxxxxx";
    const double value = answers::property(s, p), exact = values[i];
    const double allowed = tolerance(p, s) * round_trips::scale(letters[i], exact) + 1e-17;
    if (std::isnan(value) != std::isnan(exact) || std::abs(value - exact) > allowed) {
      char text[100];
      std::snprintf(text, sizeof text, "property %zu is %.17g, should be %.17g", i, value, exact);
      return text;
    }
  }
  if (!is_wet(s.region)) {
    return "";
  }
  const std::string liquid = fault(phase_of(s, s.saturated_liquid));
  return liquid.empty() ? fault(phase_of(s, s.saturated_vapour)) : liquid;
}

}  // namespace exactness
