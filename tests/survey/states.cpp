#include "states.hpp"

#include <cmath>
#include <limits>

#include "formulation/saturation.hpp"
#include "formulation/subregion1.hpp"
#include "formulation/subregion2.hpp"
#include "formulation/subregion3.hpp"

namespace survey {
namespace {

using formulation::line_pressure;
using Plain = formulation::Elementary;
constexpr double p_lowest = 0.006112444;
constexpr double p_highest = 1000;
constexpr double p_350 = 165.3512406;
constexpr double p_critical = 221.2;
constexpr double single_phase = std::numeric_limits<double>::quiet_NaN();

double between(double low, double high, double a) { return low + (high - low) * a; }
double between_logarithms(double low, double high, double a) {
  return std::exp(between(std::log(low), std::log(high), a));
}

double saturation_pressure(double t) {
  return formulation::saturation_pressure<Plain>(formulation::saturation_terms(t));
}

double pressure3(double v, double t) {
  const auto s = formulation::terms3<Plain>(v, t);
  return pressure(s, leaves_conditional_out(s) ? 0.0 : conditional_pressure(s));
}

/// First volume at which the pressure of subregion 3 passes p, going from v by factors.
double volume3(double v, double factor, double p, double t) {
  const bool above = pressure3(v, t) > p;
  while ((pressure3(v * factor, t) > p) == above) {
    v *= factor;
  }
  double other = v * factor;
  for (int i = 0; i < 60; ++i) {
    const double middle = 0.5 * (v + other);
    ((pressure3(middle, t) > p) == above ? v : other) = middle;
  }
  return v;
}

double water_volume3(double p, double t) { return volume3(0.0012, 1.0005, p, t); }
double steam_volume3(double p, double t) { return volume3(0.0095, 1 / 1.0005, p, t); }

State with_energy(State s) {
  s.u = s.h - 100 * s.p * s.v;
  return s;
}

State water_at(double p, double t) {
  const auto s = formulation::terms1<Plain>(p, t);
  return with_energy(
      {1, p, t, volume(s), enthalpy(s), formulation::entropy<Plain>(s), 0, single_phase});
}

State steam_at(double p, double t) {
  const auto s = formulation::terms2<Plain>(p, t);
  return with_energy(
      {2, p, t, volume(s), enthalpy(s), formulation::entropy<Plain>(s), 0, single_phase});
}

State at_volume(int region, double p, double v, double t) {
  const auto s = formulation::terms3<Plain>(v, t);
  return with_energy({region, p, t, v, enthalpy(s), entropy(s), 0, single_phase});
}

State wet_between(int region, const State& water, const State& steam, double x) {
  const auto mix = [x](double w, double s) { return w + x * (s - w); };
  return with_energy({region, water.p, water.t, mix(water.v, steam.v), mix(water.h, steam.h),
                      mix(water.s, steam.s), 0, x});
}

State wet_at(double t, double x) {
  const double ps = saturation_pressure(t);
  return wet_between(6, water_at(ps, t), steam_at(ps, t), x);
}

State wet_above_350_at(double t, double x) {
  if (!(t >= 350 && t <= 374.15)) {
    const double none = single_phase;
    return {5, none, t, none, none, none, none, x};
  }
  const double ps = saturation_pressure(t);
  return wet_between(5, at_volume(4, ps, water_volume3(ps, t), t),
                     at_volume(3, ps, steam_volume3(ps, t), t), x);
}

State water_in(double p_low, double p_high, double t_low, double t_high, double a, double b) {
  const double t = between(t_low, t_high, b);
  return water_at(between(std::fmax(p_low, saturation_pressure(t)), p_high, a), t);
}

State near_critical_water(double a, double b, double p_high) {
  const double t = between(350, 374.15, b);
  const double p = between(saturation_pressure(t), p_high, a);
  return at_volume(4, p, water_volume3(p, t), t);
}

State supercritical(double a, double b, double t_low, double t_high) {
  const double t = between(t_low, t_high, b);
  const double p = between(line_pressure(t), p_highest, a);
  return at_volume(3, p, steam_volume3(p, t), t);
}

}  // namespace

State state_at(int region, double first, double t) {
  switch (region) {
    case 1:
      return water_at(first, t);
    case 2:
      return steam_at(first, t);
    case 3:
    case 4:
      return at_volume(region, pressure3(first, t), first, t);
    case 5:
      return wet_above_350_at(t, first);
    default:
      return wet_at(t, first);
  }
}

const std::vector<Band>& bands() {  // NOLINT(readability-function-size): a table
  static const std::vector<Band> all{
      {"water, to 10 °C", 1,
       [](double a, double b) { return water_in(0, p_highest, 0.01, 10, a, b); }},
      {"water, to 165.35 bar", 1,
       [](double a, double b) { return water_in(0, p_350, 10, 350, a, b); }},
      {"water, to 221.2 bar", 1,
       [](double a, double b) { return water_in(p_350, p_critical, 10, 350, a, b); }},
      {"water, above 221.2 bar", 1,
       [](double a, double b) { return water_in(p_critical, p_highest, 10, 350, a, b); }},
      {"steam, below 0.0611 bar", 2,
       [](double a, double b) {
         const double t = between(0.011, 350, b);
         return steam_at(between_logarithms(p_lowest, std::fmin(0.0611, saturation_pressure(t)), a),
                         t);
       }},
      {"steam, to 350 °C", 2,
       [](double a, double b) {
         const double t = between(37, 350, b);
         return steam_at(between_logarithms(0.0612, saturation_pressure(t), a), t);
       }},
      {"steam, to 374.15 °C", 2,
       [](double a, double b) {
         const double t = between(350, 374.15, b);
         return steam_at(between_logarithms(p_lowest, line_pressure(t), a), t);
       }},
      {"steam, to 590 °C", 2,
       [](double a, double b) {
         const double t = between(374.15, 590, b);
         return steam_at(between_logarithms(p_lowest, line_pressure(t), a), t);
       }},
      {"steam, above 590 °C", 2,
       [](double a, double b) {
         return steam_at(between_logarithms(p_lowest, p_highest, a), between(590, 800, b));
       }},
      {"thin hot steam, entropy above 9.16", 2,
       [](double a, double b) {
         return steam_at(between_logarithms(p_lowest, 0.07, a), between(300, 800, b));
       }},
      {"near-critical steam, to 374.15 °C", 3,
       [](double a, double b) {
         const double t = between(350, 374.15, b);
         const double p = between(line_pressure(t), saturation_pressure(t), a);
         return at_volume(3, p, steam_volume3(p, t), t);
       }},
      {"supercritical, to 221.2 bar", 3,
       [](double a, double b) {
         const double t = between(374.15, 382.5, b);
         const double p = between(line_pressure(t), p_critical, a);
         return at_volume(3, p, steam_volume3(p, t), t);
       }},
      {"supercritical, to 400 °C", 3,
       [](double a, double b) { return supercritical(a, b, 382.5, 400); }},
      {"supercritical, to 590 °C", 3,
       [](double a, double b) { return supercritical(a, b, 400, 590); }},
      {"near-critical water, to 221.2 bar", 4,
       [](double a, double b) { return near_critical_water(a, b, p_critical); }},
      {"near-critical water, to 1000 bar", 4,
       [](double a, double b) { return near_critical_water(a, b, p_highest); }},
      {"wet, to 12 °C", 6, [](double a, double b) { return wet_at(between(0.011, 12, b), a); }},
      {"wet, to 350 °C", 6, [](double a, double b) { return wet_at(between(12, 350, b), a); }},
      {"wet, quality 0.4 to 0.6", 6,
       [](double a, double b) { return wet_at(between(12, 350, b), between(0.4, 0.6, a)); }},
      {"wet, above 350 °C", 5,
       [](double a, double b) { return wet_above_350_at(between(350, 374.1, b), a); }},
      {"wet, denser than 0.00317 m³/kg", 6,
       [](double a, double b) {
         const double t = between(12, 350, b);
         return wet_at(t, a * (0.00317 - wet_at(t, 0).v) / (wet_at(t, 1).v - wet_at(t, 0).v));
       }},
  };
  return all;
}

State state_in(const Band& band, int k) {
  // Multiples of the powers of the reciprocal plastic number, modulo 1.
  const auto part = [k](double step) { return std::fmod(0.5 + step * (k + 1), 1.0); };
  return band.state(part(0.7548776662466927), part(0.5698402909980532));
}

}  // namespace survey
