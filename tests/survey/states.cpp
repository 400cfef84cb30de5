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
constexpr double t_critical = 374.15;
constexpr double v_critical = 0.00317;
constexpr double to_critical_volume = 2;  // as the highest quality
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

/// Highest pressure of steam.
double steam_limit(double t) {
  return t <= 350 ? saturation_pressure(t) : t <= 590 ? line_pressure(t) : p_highest;
}

/// Quality of the critical volume.
double dense_quality(double t) {
  const double v_water = wet_at(t, 0).v;
  return (v_critical - v_water) / (wet_at(t, 1).v - v_water);
}

/// @param a  places the pressure
State single_phase_in(const Band& band, double t, double a) {
  if (band.region == 2) {
    return steam_at(between_logarithms(band.low, std::fmin(band.high, steam_limit(t)), a), t);
  }
  const double ps = t < t_critical ? saturation_pressure(t) : band.high;
  if (band.region == 1) {
    return water_at(between(std::fmax(band.low, ps), band.high, a), t);
  }
  const bool is_water = band.region == 4;
  const double p = is_water ? between(ps, band.high, a) : between(line_pressure(t), ps, a);
  return at_volume(band.region, p, is_water ? water_volume3(p, t) : steam_volume3(p, t), t);
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

const std::vector<Band>& bands() {
  static const std::vector<Band> all{
      {"water, to 10 °C", 1, 0.01, 10, 0, p_highest},
      {"water, to 165.35 bar", 1, 10, 350, 0, p_350},
      {"water, to 221.2 bar", 1, 10, 350, p_350, p_critical},
      {"water, above 221.2 bar", 1, 10, 350, p_critical, p_highest},
      {"steam, below 0.0611 bar", 2, 0.011, 350, p_lowest, 0.0611},
      {"steam, to 350 °C", 2, 37, 350, 0.0612, p_highest},
      {"steam, to 374.15 °C", 2, 350, t_critical, p_lowest, p_highest},
      {"steam, to 590 °C", 2, t_critical, 590, p_lowest, p_highest},
      {"steam, above 590 °C", 2, 590, 800, p_lowest, p_highest},
      {"thin hot steam, entropy above 9.16", 2, 300, 800, p_lowest, 0.07},
      {"near-critical steam, to 374.15 °C", 3, 350, t_critical, 0, 0},
      {"supercritical, to 221.2 bar", 3, t_critical, 382.5, 0, p_critical},
      {"supercritical, to 400 °C", 3, 382.5, 400, 0, p_highest},
      {"supercritical, to 590 °C", 3, 400, 590, 0, p_highest},
      {"near-critical water, to 221.2 bar", 4, 350, t_critical, 0, p_critical},
      {"near-critical water, to 1000 bar", 4, 350, t_critical, 0, p_highest},
      {"wet, to 12 °C", 6, 0.011, 12, 0, 1},
      {"wet, to 350 °C", 6, 12, 350, 0, 1},
      {"wet, quality 0.4 to 0.6", 6, 12, 350, 0.4, 0.6},
      {"wet, above 350 °C", 5, 350, 374.1, 0, 1},
      {"wet, denser than 0.00317 m³/kg", 6, 12, 350, 0, to_critical_volume},
  };
  return all;
}

State state_in(const Band& band, int k) {
  // Multiples of the powers of the reciprocal plastic number, modulo 1.
  const auto part = [k](double step) { return std::fmod(0.5 + step * (k + 1), 1.0); };
  const double a = part(0.7548776662466927);
  const double t = between(band.t_low, band.t_high, part(0.5698402909980532));
  if (band.region < 5) {
    return single_phase_in(band, t, a);
  }
  const double high = band.high == to_critical_volume ? dense_quality(t) : band.high;
  return state_at(band.region, between(band.low, high, a), t);
}

}  // namespace survey
