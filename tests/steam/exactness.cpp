#include "exactness.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

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
  const auto single = [&](double Properties::*q) {
    return s.x == 0 ? l.*q : s.x == 1 ? v.*q : steam::missing;
  };
  const double p = std::max({l.p, v.p, liquid.p}, [&s](double a, double b) {
    return std::abs(a - s.p) < std::abs(b - s.p);
  });
  return {p,
          mixed(l.v, v.v),
          mixed(l.h, v.h),
          mixed(l.s, v.s),
          mixed(l.u, v.u),
          single(&Properties::cp),
          single(&Properties::cv),
          single(&Properties::speed_of_sound),
          single(&Properties::p_over_v),
          single(&Properties::p_over_t)};
}

double saturation_temperature(double p, double t) {
  for (int n = 0; n < 60; ++n) {
    const canonical::Saturation line = canonical::saturation(t);
    t = std::min(t + std::clamp((p - line.p) / line.dp_dt, -20.0, 20.0), 374.15);
  }
  return t;
}

double superheat(const State& s) {
  return s.p < 221.2 ? s.t - saturation_temperature(s.p, std::min(s.t, 370.0)) : steam::missing;
}

/// What a property should be, and a size that its error may be a share of.
struct Expected {
  double value, size;
};

/// Every property, in their order. Of the speed of sound of wet steam only whether it exists.
// NOLINTNEXTLINE(readability-function-size): straight formulas
std::array<Expected, steam::property_count> expected(const State& s, bool of_phase) {
  const Properties e = of(s);
  const bool wet = is_wet(s.region), single = !wet || s.x == 0 || s.x == 1;
  const auto plain = [](double value) { return Expected{value, std::abs(value)}; };
  const auto like = [](char letter, double value) {
    return Expected{value, round_trips::scale(letter, value)};
  };
  const auto one = [single, plain](double x) { return plain(single ? x : steam::missing); };
  const auto both = [wet, plain](double x) { return plain(wet ? x : steam::missing); };
  const double viscosity = canonical::viscosity(s.v, s.t);
  const double conductivity = canonical::conductivity(s.v, s.t);
  const double w = e.speed_of_sound, T = s.t + 273.15;
  const bool has_two_phases = wet && s.saturated_liquid.v != s.saturated_vapour.v;
  const double v_over_t = -e.p_over_t / e.p_over_v;
  const double least_energy = round_trips::scale('h', e.h) + T * round_trips::scale('s', e.s);
  return {like('p', e.p),
          like('t', s.t),
          like('v', e.v),
          like('h', e.h),
          like('s', e.s),
          like('u', e.u),
          plain(s.x),
          plain(1 / e.v),
          plain(e.cp),
          plain(e.cv),
          plain(w),
          plain(w * w / (1e5 * e.p * e.v)),
          one(viscosity),
          one(conductivity),
          one(1000 * viscosity * e.cp / conductivity),
          both(canonical::surface_tension(s.t)),
          plain(static_cast<double>(s.region)),
          plain(-1 / (e.v * e.p_over_v)),
          {v_over_t / e.v, 1 / T + std::abs(v_over_t / e.v)},
          {100 * (T * v_over_t - e.v) / e.cp, 100 * (T * std::abs(v_over_t) + e.v) / e.cp},
          plain(e.p_over_v),
          {e.p_over_t, std::abs(e.p_over_v * e.v / T) + std::abs(e.p_over_t)},
          both(canonical::saturation(s.t).dp_dt),
          {both(s.saturated_vapour.h - s.saturated_liquid.h).value, 2000},
          {has_two_phases ? 0 : steam::missing, HUGE_VAL},
          one(viscosity * e.v),
          one(conductivity * e.v / (1000 * e.cp)),
          {e.h - T * e.s, least_energy},
          {e.u - T * e.s, least_energy},
          {one(superheat(s)).value, 400},
          plain(of_phase ? steam::missing : s.several),
          plain(of_phase ? steam::missing : s.approximate)};
}

/// Beside the critical point the compressibility grows, and what depends on it loses digits. At the
/// lowest pressure saturated water is colder than the lowest temperature, which it then has.
double tolerance(Property p, const State& s) {
  const double critical = 1 + (std::isnan(s.cp) ? 0 : std::abs(s.cp) / 10);
  switch (p) {
    case Property::cp:
    case Property::prandtl:
    case Property::cv:
    case Property::speed_of_sound:
    case Property::isentropic_exponent:
    case Property::isothermal_compressibility:
    case Property::isobaric_expansion:
    case Property::joule_thomson:
    case Property::p_over_v:
    case Property::p_over_t:
    case Property::thermal_diffusivity:
      return 1e-9 * critical;
    default:
      return s.p < 0.0061124441                                     ? 3e-10
             : std::abs(s.t - 374.15) < 0.2                         ? 1e-10
             : s.region == Region::water || s.region == Region::wet ? 1e-11
                                                                    : 3e-12;
  }
}

/// @param values    those of the state
/// @param of_phase  whether it is a phase of a wet state
std::string fault_of(const State& s, std::span<const std::optional<double>> values, bool of_phase) {
  const auto all = expected(s, of_phase);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const double value = values[i].value_or(all[i].value);
    const double allowed = tolerance(static_cast<Property>(i), s) * all[i].size + 1e-17;
    if (std::isnan(value) != std::isnan(all[i].value) || std::abs(value - all[i].value) > allowed) {
      char text[100];
      std::snprintf(text, sizeof text, "property %zu is %.17g, should be %.17g", i, value,
                    all[i].value);
      return text;
    }
  }
  return "";
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

std::string fault(const State& s, const answers::Values& values) {
  constexpr std::size_t n = steam::property_count;
  const std::span all(values);
  std::string text = fault_of(s, all.first(n), false);
  for (const Phase* phase : {&s.saturated_liquid, &s.saturated_vapour}) {
    const bool liquid = phase == &s.saturated_liquid;
    if (text.empty() && is_wet(s.region)) {
      text = fault_of(phase_of(s, *phase), all.subspan(liquid ? n : 2 * n, n), true);
      text += text.empty() ? "" : liquid ? " in the liquid" : " in the vapour";
    }
  }
  return text;
}

}  // namespace exactness
