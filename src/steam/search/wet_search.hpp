#pragma once

#include <cmath>

#include "steam/search/saturated.hpp"
#include "steam/search/tolerances.hpp"

namespace steam {

namespace wet {

/// Mixed second property less b, when the first property is a, and the quality of that.
template <class Num>
struct ExcessOf {
  Num value, x;
};
template <class Num>
[[gnu::always_inline]] inline ExcessOf<Num> excess(const EndsOf<Num>& first,
                                                   const EndsOf<Num>& second, Num a, Num b) {
  const Num x = first.quality(a);
  return {second.mixed(x) - b, x};
}

/// Slopes along the saturation line while the quality keeps the first property at a.
template <class Num>
struct SlopesOf {
  Num excess, x;
};
template <class Num>
[[gnu::always_inline]] inline SlopesOf<Num> slopes(const SlopedEndsOf<Num>& first,
                                                   const SlopedEndsOf<Num>& second, Num x) {
  const Num x_slope = -first.slope.mixed(x) / (first.value.vapour - first.value.liquid);
  return {second.slope.mixed(x) + x_slope * (second.value.vapour - second.value.liquid), x_slope};
}

/// What the table of saturated states says: temperature and quality, and the slopes over the
/// temperature.
template <class Num>
struct StartOf {
  MaskOf<Num> promising = false;
  Num t = missing, x = missing;
  SlopesOf<Num> slopes{0, 0};

  /// That of some lanes.
  [[gnu::always_inline]] void take(MaskOf<Num> lanes, const StartOf& from) {
    promising |= lanes & from.promising;
    t = numbers::select(lanes, from.t, t);
    x = numbers::select(lanes, from.x, x);
    slopes.excess = numbers::select(lanes, from.slopes.excess, slopes.excess);
    slopes.x = numbers::select(lanes, from.slopes.x, slopes.x);
  }
};

/// So close to the critical point the table and its slopes are rough.
constexpr double t_tabulated = t_critical - 0.1;

/// Whether the table's solution may belong to the wet region of the band.
template <class Num>
[[gnu::always_inline]] inline MaskOf<Num> is_promising(const SaturatedBand& band, Num r, Num x) {
  const auto is_rough = r * r < t_critical - t_tabulated;
  const Num doubt_x = numbers::select(is_rough, Num(0.01), Num(1e-5));
  constexpr double doubt_r = 1e-4;
  const double r_end = band.origin + band.cells / band.scale;
  return (numbers::abs(x - 0.5) < 0.5 + doubt_x) & (r > band.origin - doubt_r) &
         (r < r_end + doubt_r);
}

/// A step of Newton's iteration over the table's variable: from which quality, with which slopes.
template <class Num>
struct TableStepOf {
  Num x;
  SlopesOf<Num> over_r;
  Num step;
};
template <Quantity A, Quantity B, class Num>
[[gnu::always_inline]] inline TableStepOf<Num> table_step(const SaturatedBand& band, Num r, Num a,
                                                          Num b) {
  const TabulatedSaturationOf<Num> saturation(band, r);
  const SlopedEndsOf<Num> first = saturation.template sloped_ends<A>();
  const SlopedEndsOf<Num> second = saturation.template sloped_ends<B>();
  const auto [value, x] = excess(first.value, second.value, a, b);
  const SlopesOf<Num> over_r = slopes(first, second, x);
  return {x, over_r, -value / over_r.excess};
}

/// The solution on the table.
template <Quantity A, Quantity B, class Num>
StartOf<Num> tabulated(const SaturatedBand& band, Num a, Num b, Num t) {
  // Beyond 350 °C by what overlaps need.
  constexpr double beyond_band = 0.3;
  const double r_least = std::fmax(band.origin - beyond_band, 0.01);
  const double r_most = band.origin + band.cells / band.scale + beyond_band;
  StartOf<Num> start;
  Num r = root_of(t);
  MaskOf<Num> open = true;
  constexpr int most_steps = 10;
  for (int n = 0; n < most_steps; ++n) {
    const TableStepOf<Num> at = table_step<A, B>(band, r, a, b);
    // After two steps a wet state is close.
    const double beyond = n < 2 ? 1 : 0.01;
    open &= numbers::abs(at.x - 0.5) < 0.5 + beyond;
    const Num next = numbers::smaller(Num(r_most), numbers::larger(Num(r_least), r + at.step));
    constexpr double enough = 1e-5;  // the next step is as exact as the table
    const MaskOf<Num> ends = open & (numbers::abs(at.step) <= enough);
    if (numbers::any(ends)) {
      const Num x = at.x + at.over_r.x * at.step, over_t = -0.5 / r;
      const SlopesOf<Num> slopes{at.over_r.excess * over_t, at.over_r.x * over_t};
      start.take(ends, {is_promising(band, next, x), temperature_of(next), x, slopes});
    }
    open &= (!ends) & !(next == r);
    if (!numbers::any(open)) {
      break;
    }
    r = next;
  }
  return start;
}

/// One evaluation of the iteration.
template <class Num>
struct StepOf {
  Num value, x, step;
};

/// The slope from the last two evaluations, unless they are too close together.
template <class Num>
[[gnu::always_inline]] inline Num improved(Num slope, StepOf<Num> last, Num value) {
  constexpr double least_secant = 1e-5;  // K
  const Num size = numbers::abs(last.step);
  return numbers::select((size > least_secant) & (size < HUGE_VAL),
                         (value - last.value) / last.step, slope);
}

/// Steps after which the next one would be below the rounding: the table's slopes are good to 1e-6,
/// and to 1e-3 next to the critical point.
template <class Num>
Num small_step(Num t) {
  return numbers::select(t < t_tabulated, Num(1e-6), Num(2e-10));
}

/// Saturation pressure at t, after a step that mostly is so small that the line is straight.
template <class Num>
Num pressure_after(SaturationPressureOf<Num> line, Num step, Num t) {
  constexpr double straight = 1e-6;  // K
  const auto is_straight = numbers::abs(step) <= straight;
  const Num along = line.p + line.over_t * step;
  return numbers::all(is_straight) ? along
                                   : numbers::select(is_straight, along, saturation_pressure(t));
}

}  // namespace wet

/// What a search for wet states has found.
template <class Num>
struct WetFoundOf {
  MaskOf<Num> is_found = false;
  Num p = missing, t = missing, x = missing;

  /// That of some lanes.
  [[gnu::always_inline]] void take(MaskOf<Num> lanes, Num its_p, Num its_t, Num its_x) {
    is_found |= lanes;
    p = numbers::select(lanes, its_p, p);
    t = numbers::select(lanes, its_t, t);
    x = numbers::select(lanes, its_x, x);
  }
};

/// Wet state of two properties that both depend on temperature and quality: an iteration in the
/// saturation temperature, in which the first property gives the quality. It starts from the
/// solution on the table of saturated states; the equations give the excess, the table the slope.
/// @tparam Saturation  LowSaturation or HighSaturation
/// @param  t           first value
/// @return             none when it does not converge near 0 <= x <= 1
template <Quantity A, Quantity B, class Saturation, class Num>
WetFoundOf<Num> wet_search(const SaturatedBand& band, Num a, Num b, Num t) {
  const wet::StartOf<Num> start = wet::tabulated<A, B>(band, a, b, t);
  WetFoundOf<Num> found;
  MaskOf<Num> open = start.promising;
  if (!numbers::any(open)) {
    return found;
  }
  t = start.t;
  Num slope = start.slopes.excess;
  wet::StepOf<Num> last{0, 0, HUGE_VAL};
  constexpr int most_steps = 12;
  for (int n = 0; n < most_steps; ++n) {
    const SaturationPressureOf<Num> line = sloped_saturation_pressure(t);
    const Saturation saturation(t, line.p);
    const auto [value, x] =
        wet::excess(saturation.template ends<A>(), saturation.template ends<B>(), a, b);
    slope = wet::improved(slope, last, value);
    constexpr double widest_step = 1;  // K
    last = {value, x,
            numbers::smaller(Num(widest_step), numbers::larger(Num(-widest_step), -value / slope))};
    open &= numbers::abs(x - 0.5) < 1;
    t = numbers::smaller(Num(t_critical - 1e-4), t + last.step);
    // Where the excess hardly depends on the temperature its rounding ends the iteration.
    const MaskOf<Num> ends = open & ((numbers::abs(last.step) <= wet::small_step(t)) |
                                     (numbers::abs(value) <= rounding(B, b)));
    if (numbers::any(ends)) {
      found.take(ends, wet::pressure_after(line, last.step, t), t, x + start.slopes.x * last.step);
    }
    open &= !ends;
    if (!numbers::any(open)) {
      break;
    }
  }
  return found;
}

}  // namespace steam
