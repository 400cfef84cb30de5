#pragma once

#include <cmath>

#include "steam/search/saturated.hpp"
#include "steam/search/tolerances.hpp"

namespace steam {

namespace wet {

/// Mixed second property less b, when the first property is a, and the quality of that.
struct Excess {
  double value, x;
};
inline Excess excess(const Ends& first, const Ends& second, double a, double b) {
  const double x = first.quality(a);
  return {second.mixed(x) - b, x};
}

/// Slopes along the saturation line while the quality keeps the first property at a.
struct Slopes {
  double excess, x;
};
inline Slopes slopes(const SlopedEnds& first, const SlopedEnds& second, double x) {
  const double x_slope = -first.slope.mixed(x) / (first.value.vapour - first.value.liquid);
  return {second.slope.mixed(x) + x_slope * (second.value.vapour - second.value.liquid), x_slope};
}

/// What the table of saturated states says: temperature and quality, and the slopes over the
/// temperature.
struct Start {
  bool promising = false;
  double t = missing, x = missing;
  Slopes slopes{};
};

/// So close to the critical point the table and its slopes are rough.
constexpr double t_tabulated = t_critical - 0.1;

/// Whether the table's solution may belong to the wet region of the band.
inline bool is_promising(const SaturatedBand& band, double r, double x) {
  const bool rough = r * r < t_critical - t_tabulated;
  const double doubt_x = rough ? 0.01 : 1e-5;
  constexpr double doubt_r = 1e-4;
  const double r_end = band.origin + band.cells / band.scale;
  return std::abs(x - 0.5) < 0.5 + doubt_x && r > band.origin - doubt_r && r < r_end + doubt_r;
}

/// The solution on the table, by Newton's iteration over the table's variable.
template <Quantity A, Quantity B>
Start tabulated(const SaturatedBand& band, double a, double b, double t) {
  // Beyond 350 °C by what overlaps need.
  constexpr double beyond_band = 0.3;
  const double r_least = std::fmax(band.origin - beyond_band, 0.01);
  const double r_most = band.origin + band.cells / band.scale + beyond_band;
  double r = root_of(t);
  constexpr int most_steps = 10;
  for (int n = 0; n < most_steps; ++n) {
    const TabulatedSaturation saturation(band, r);
    const SlopedEnds first = saturation.sloped_ends<A>();
    const SlopedEnds second = saturation.sloped_ends<B>();
    const Excess e = excess(first.value, second.value, a, b);
    // After two steps a wet state is close.
    const double beyond = n < 2 ? 1 : 0.01;
    if (!(std::abs(e.x - 0.5) < 0.5 + beyond)) {
      return {};
    }
    const Slopes over_r = slopes(first, second, e.x);
    const double step = -e.value / over_r.excess;
    const double next = std::fmin(std::fmax(r + step, r_least), r_most);
    constexpr double enough = 1e-5;  // the next step is as exact as the table
    if (std::abs(step) <= enough) {
      const double over_t = -0.5 / r;
      const double x = e.x + over_r.x * step;
      return {is_promising(band, next, x),
              temperature_of(next),
              x,
              {over_r.excess * over_t, over_r.x * over_t}};
    }
    if (next == r) {
      break;
    }
    r = next;
  }
  return {};
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

/// Steps after which the next one would be below the rounding: the table's slopes are good to 1e-6,
/// and to 1e-3 next to the critical point.
inline double small_step(double t) { return t < t_tabulated ? 1e-6 : 2e-10; }

/// Saturation pressure at t, after a step that mostly is so small that the line is straight.
inline double pressure_after(SaturationPressure line, double step, double t) {
  constexpr double straight = 1e-6;  // K
  return std::abs(step) <= straight ? line.p + line.over_t * step : saturation_pressure(t);
}

}  // namespace wet

/// Wet state of two properties that both depend on temperature and quality: an iteration in the
/// saturation temperature, in which the first property gives the quality. It starts from the
/// solution on the table of saturated states; the equations give the excess, the table the slope.
/// @tparam Saturation  LowSaturation or HighSaturation
/// @param  t           first value
/// @return             a site of region none when it does not converge near 0 <= x <= 1
template <Quantity A, Quantity B, class Saturation>
Site wet_search(double a, double b, double t, Region region) {
  const SaturatedBand& band = region == Region::wet ? saturated_to_350 : saturated_above_350;
  const wet::Start start = wet::tabulated<A, B>(band, a, b, t);
  if (!start.promising) {
    return {};
  }
  t = start.t;
  double slope = start.slopes.excess;
  wet::Step last{0, 0, HUGE_VAL};
  constexpr int most_steps = 12;
  for (int n = 0; n < most_steps; ++n) {
    const SaturationPressure line = sloped_saturation_pressure(t);
    const Saturation saturation(t, line.p);
    const auto [value, x] =
        wet::excess(saturation.template ends<A>(), saturation.template ends<B>(), a, b);
    slope = wet::improved(slope, last, value);
    constexpr double widest_step = 1;  // K
    last = {value, x, std::fmin(std::fmax(-value / slope, -widest_step), widest_step)};
    if (!(std::abs(x - 0.5) < 1)) {
      return {};
    }
    t = std::fmin(t + last.step, t_critical - 1e-4);
    // Where the excess hardly depends on the temperature its rounding ends the iteration.
    if (std::abs(last.step) <= wet::small_step(t) || std::abs(value) <= rounding(B, b)) {
      return {.region = region,
              .p = wet::pressure_after(line, last.step, t),
              .t = t,
              .x = x + start.slopes.x * last.step};
    }
  }
  return {};
}

}  // namespace steam
