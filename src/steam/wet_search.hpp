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

namespace wet {

/// Whether the table's solution may be one of the wet region.
inline bool is_promising(Excess e, Slopes slope) {
  constexpr double doubt_x = 0.01, doubt_t = 2;
  return std::abs(e.x - 0.5) < 0.5 + doubt_x &&
         std::abs(e.value) < doubt_t * std::abs(slope.excess);
}

/// One evaluation of the iteration.
struct Step {
  double value, x, step;
};

/// The slope from the last two evaluations, unless they are too close together.
inline double improved(double slope, Step last, double value) {
  constexpr double least_secant = 1e-5;  // K
  return std::abs(last.step) > least_secant && std::isfinite(last.step)
             ? (value - last.value) / last.step
             : slope;
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
  const wet::Excess start = wet::excess(first.value, second.value, a, b);
  wet::Slopes slope = wet::slopes(first, second, start.x);
  if (!wet::is_promising(start, slope)) {
    return {};
  }
  const double small_step = low ? 2e-9 : 2e-10;  // K; the slope is good to about 1e-3
  wet::Step last{0, 0, HUGE_VAL};
  constexpr int most_steps = 12;
  for (int n = 0; n < most_steps; ++n) {
    const Saturation saturation(t, saturation_pressure(t));
    const auto [value, x] =
        wet::excess(saturation.template ends<A>(), saturation.template ends<B>(), a, b);
    slope.excess = wet::improved(slope.excess, last, value);
    last = {value, x, wet::limited(-value / slope.excess)};
    if (!std::isfinite(last.step) || !(std::abs(x - 0.5) < 1)) {
      return {};
    }
    t = std::fmin(std::fmax(t + last.step, t_low), t_high);
    if (std::abs(last.step) <= small_step) {
      return {.region = region, .p = saturation_pressure(t), .t = t, .x = x + slope.x * last.step};
    }
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
