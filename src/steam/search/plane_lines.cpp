#include "steam/search/plane_lines.hpp"

#include "numbers/exponential.hpp"
#include "steam/equations/domain.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/search/lines.hpp"
#include "steam/search/saturated.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {
namespace {

/// The slope of q along a line of constant own value, over the variable z of the equation or,
/// without `over_z`, over t.
double along_line(const Sloped& q, const Sloped& own, bool over_z) {
  return over_z ? q.over_1 - q.over_t * own.over_1 / own.over_t
                : q.over_t - q.over_1 * own.over_t / own.over_1;
}

/// Wet state at t of a line of constant own value.
LinePoint wet_point(Quantity own, double value, double t, Quantity q) {
  const SaturationPressure line = sloped_saturation_pressure(t);
  const auto [first, second] = sloped_saturated_ends(own, q, t, line);
  const double x = first.value.quality(value);
  const double x_over_t = -first.slope.mixed(x) / (first.value.vapour - first.value.liquid);
  return {t,
          at_quality(line.p, t, x),
          {second.value.mixed(x),
           second.slope.mixed(x) + x_over_t * (second.value.vapour - second.value.liquid)}};
}

/// Pressures that a search at t may pass through, beyond the subregion by what rounding and the
/// misfit of the equations need.
std::pair<double, double> pressures(Region region, double t) {
  if (region == Region::water) {
    return {0.9 * saturation_pressure(std::min(t, t_350)), 1.01 * p_highest};
  }
  const double highest = t <= t_350        ? saturation_pressure(t)
                         : t <= t_line_end ? std::min(line_pressure(t), p_highest)
                                           : p_highest;
  return {0.99 * p_lowest, 1.02 * highest};
}

/// The same for the temperature.
std::pair<double, double> temperatures(Region region, double p) {
  constexpr double room = 2;  // K
  const double lowest = p < p_350 ? saturation_temperature(p) : line_temperature(p);
  return region == Region::water ? std::pair{t_lowest - room, std::min(lowest, t_350) + room}
                                 : std::pair{lowest - room, t_highest + room};
}

/// Share by which a search may end beside a limit of the range that it is meant to end at.
constexpr double limit_slack = 1e-13;
double within_range(double p) {
  const bool is_lowest = std::abs(p - p_lowest) <= limit_slack * p_lowest;
  const bool is_highest = std::abs(p - p_highest) <= limit_slack * p_highest;
  return is_lowest ? p_lowest : is_highest ? p_highest : p;
}

double temperature_within_range(double t) {
  constexpr double rounding = 1e-10;  // K
  return std::abs(t - t_lowest) <= rounding    ? t_lowest
         : std::abs(t - t_highest) <= rounding ? t_highest
                                               : t;
}

}  // namespace

LinePoint Isochore::at(const Piece& piece, double t, Quantity q) {
  if (is_wet(piece.region)) {
    return wet_point(own, value_, t, q);
  }
  if (is_3(piece.region)) {
    const auto [y, pressure] = sloped_quantities(piece.region, {value_, t}, {q, Quantity::p});
    const double p = within_range(pressure.value);
    return {t,
            at_volume(region_of_dense(piece.region, p, value_, t), p, value_, t),
            {y.value, y.over_t}};
  }
  const auto excess = [&](double p) {
    const Sloped v = sloped_quantity(piece.region, own, {p, t});
    return Slope{v.value - value_, v.over_1};
  };
  const auto [low, high] = pressures(piece.region, t);
  constexpr double gas_constant = 0.00461526;  // bar m³/(kg K)
  const double start = p_start_ > 0 ? p_start_ : gas_constant * kelvin(t) / value_;
  const double p =
      root(excess, low, high, start, false, {.step = 3e-16, .noise = rounding(own, value_)}).x;
  p_start_ = p;
  const auto [y, v] = sloped_quantities(piece.region, {p, t}, {q, own});
  return {t, at_pressure(piece.region, within_range(p), t), {y.value, along_line(y, v, false)}};
}

template <Quantity Own>
LinePoint CaloricLine<Own>::at(const Piece& piece, double c, Quantity q) {
  if (is_wet(piece.region)) {
    return wet_point(own, value_, c, q);
  }
  if (is_3(piece.region)) {
    const double t = dense_temperature(own, value_, c, t_start_);
    t_start_ = t;
    const auto [y, s, pressure] = sloped_quantities(piece.region, {c, t}, {q, own, Quantity::p});
    const double p = within_range(pressure.value);
    return {c,
            at_volume(region_of_dense(piece.region, p, c, t), p, c, t),
            {y.value, along_line(y, s, true)}};
  }
  const double p = within_range(numbers::exp(c));
  const auto excess = [&](double t) {
    const Sloped s = sloped_quantity(piece.region, own, {p, t});
    return Slope{s.value - value_, s.over_t};
  };
  const auto [low, high] = temperatures(piece.region, p);
  const double t =
      root(excess, low, high, t_start_, true, {.step = 3e-16, .noise = rounding(own, value_)}).x;
  t_start_ = t;
  const auto [y, s] = sloped_quantities(piece.region, {p, t}, {q, own});
  return {c,
          at_pressure(piece.region, p, temperature_within_range(t)),
          {y.value, along_line(y, s, true) * p}};
}

template class CaloricLine<Quantity::s>;
template class CaloricLine<Quantity::h>;

}  // namespace steam
