#pragma once

#include <cmath>

#include "steam/rough_saturation.hpp"
#include "steam/saturated.hpp"

namespace steam {

namespace wet {

/// Mixed second property less b, when the first property is a, and what a step needs.
struct Excess {
  double value, x;
};
inline Excess excess(const Ends& first, const Ends& second, double a, double b) {
  const double x = first.quality(a);
  return {second.mixed(x) - b, x};
}

/// Slopes over the saturation temperature while the quality keeps the first property at a.
struct Slopes {
  double excess, x;
};
inline Slopes slopes(const SlopedEnds& first, const SlopedEnds& second, double x) {
  const double x_over_t = -first.over_t.mixed(x) / (first.value.vapour - first.value.liquid);
  return {second.over_t.mixed(x) + x_over_t * (second.value.vapour - second.value.liquid),
          x_over_t};
}

constexpr double widest_step = 40;  // K

inline double limited(double step) { return std::fmin(std::fmax(step, -widest_step), widest_step); }

/// Towards the solution on the table of saturated states.
template <Quantity A, Quantity B>
double rough_search(double a, double b, double t, double t_low, double t_high) {
  constexpr int most_steps = 4;
  constexpr double enough = 1e-4;  // K: the next step is as exact as the table
  for (int n = 0; n < most_steps; ++n) {
    const RoughSaturation saturation(t);
    const SlopedEnds first = saturation.ends<A>();
    const SlopedEnds second = saturation.ends<B>();
    const Excess e = excess(first.value, second.value, a, b);
    const double step = limited(-e.value / slopes(first, second, e.x).excess);
    t = std::fmin(std::fmax(t + step, t_low), t_high);
    if (!(std::abs(step) > enough)) {
      break;
    }
  }
  return t;
}

}  // namespace wet

/// Wet state of two properties that both depend on temperature and quality: an iteration in the
/// saturation temperature, in which the first property gives the quality. The equations give the
/// excess, the table of saturated states the slope.
/// @tparam Saturation  LowSaturation or HighSaturation
/// @param  t           first value
/// @return             a site of region none when it does not converge near 0 <= x <= 1
template <Quantity A, Quantity B, class Saturation>
Site wet_search(double a, double b, double t, Region region) {
  const bool low = region == Region::wet;
  const double t_low = low ? -5 : t_350 - 1;
  const double t_high = low ? t_350 + 5 : t_critical - 1e-4;
  t = wet::rough_search<A, B>(a, b, t, t_low, t_high);
  const RoughSaturation rough(t);
  const SlopedEnds first = rough.ends<A>();
  const SlopedEnds second = rough.ends<B>();
  const auto [rough_value, rough_x] = wet::excess(first.value, second.value, a, b);
  wet::Slopes slope = wet::slopes(first, second, rough_x);
  constexpr double doubt_x = 0.01, doubt_t = 2;
  if (!(std::abs(rough_x - 0.5) < 0.5 + doubt_x) ||
      !(std::abs(rough_value) < doubt_t * std::abs(slope.excess))) {
    return {};
  }
  double last_step = HUGE_VAL;
  double last_value = 0;
  constexpr int most_steps = 12;
  for (int n = 0; n < most_steps; ++n) {
    const Saturation saturation(t, saturation_pressure(t));
    const auto [value, x] =
        wet::excess(saturation.template ends<A>(), saturation.template ends<B>(), a, b);
    if (n > 0 && std::abs(last_step) > 1e-5) {
      slope.excess = (value - last_value) / last_step;
    }
    const double step = wet::limited(-value / slope.excess);
    if (!std::isfinite(step) || !(x > -0.5 && x < 1.5)) {
      return {};
    }
    t = std::fmin(std::fmax(t + step, t_low), t_high);
    // The slope is good to about 1e-3.
    constexpr double small_step = 2e-9;  // K
    if (std::abs(step) <= small_step * (low ? 1 : 0.1)) {
      return {.region = region, .p = saturation_pressure(t), .t = t, .x = x + slope.x * step};
    }
    last_step = step;
    last_value = value;
  }
  return {};
}

/// Wet states of a given quality and volume or entropy, from the highest temperature down.
struct WetStates {
  static constexpr int capacity = 6;
  Site sites[capacity];
  int count = 0;
};
WetStates wet_states(Quantity q, double value, double x, int most);

}  // namespace steam
