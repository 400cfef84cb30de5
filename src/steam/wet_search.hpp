#pragma once

#include <cmath>

#include "steam/saturated.hpp"

namespace steam {

/// Wet state of two properties that both depend on temperature and quality: Newton iteration in the
/// saturation temperature, in which the first property gives the quality.
/// @tparam Saturation  LowSaturation or HighSaturation
/// @param  t           first value
/// @return             a site of region none when it does not converge near 0 <= x <= 1
template <Quantity A, Quantity B, class Saturation>
Site wet_search(double a, double b, double t, Region region) {
  constexpr int most_steps = 12;
  constexpr double small_step = 1e-8;
  for (int n = 0; n < most_steps; ++n) {
    const SaturationPressure line = sloped_saturation_pressure(t);
    const Saturation saturation(t, line.p);
    const SlopedEnds first = saturation.template sloped_ends<A>(line.over_t);
    const SlopedEnds second = saturation.template sloped_ends<B>(line.over_t);
    const double x = first.value.quality(a);
    if (!(x > -0.5 && x < 1.5)) {
      return {};
    }
    // The quality follows the temperature so that the first property stays a.
    const double x_over_t = -first.over_t.mixed(x) / (first.value.vapour - first.value.liquid);
    const double difference = second.value.mixed(x) - b;
    const double slope =
        second.over_t.mixed(x) + x_over_t * (second.value.vapour - second.value.liquid);
    const double step = std::fmin(std::fmax(-difference / slope, -40), 40);
    if (!std::isfinite(step)) {
      return {};
    }
    t = std::fmin(std::fmax(t + step, -5), t_critical - 1e-4);
    if (std::abs(step) <= small_step * kelvin(t)) {
      const double p = saturation_pressure(t);
      return {
          .region = region, .p = p, .t = t, .x = Saturation(t, p).template ends<A>().quality(a)};
    }
  }
  return {};
}

/// Wet states of a given quality and volume or entropy, from the highest temperature down.
struct WetStates {
  static constexpr int capacity = 4;
  Site sites[capacity];
  int count = 0;
};
WetStates wet_states(Quantity q, double value, double x, int most);

}  // namespace steam
