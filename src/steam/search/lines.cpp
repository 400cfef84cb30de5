#include "steam/search/lines.hpp"

#include "steam/equations/domain.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {
namespace {

/// The quantity of wet states of one temperature.
LinePoint wet_point(double p, double t, double x, Quantity q) {
  const Ends ends = saturated_ends(q, t, p);
  return {x, at_quality(p, t, x), {ends.mixed(x), ends.vapour - ends.liquid}};
}

}  // namespace

Region region_of_dense(Region piece, double p, double v, double t) {
  if (t >= t_critical || piece == Region::dense_steam) {
    return Region::dense_steam;
  }
  // Liquid is wider than the critical volume only in the last hundredths of a kelvin; elsewhere
  // steam at saturation may have a pressure that is a rounding above it.
  const bool may_be_liquid = v < 1.02 * v_critical;
  return v < v_critical || (may_be_liquid && above_saturation(p, t)) ? Region::hot_water
                                                                     : Region::dense_steam;
}

double dense_temperature(Quantity q, double value, double v, double start) {
  // Below 350 °C the equation has no meaning any more: its conditional group grows without bound.
  constexpr double room_below = 1e-3, room = 3;  // K
  const auto excess = [&](double t) {
    const Sloped y = sloped_quantity(Region::dense_steam, q, {v, t});
    return Slope{y.value - value, y.over_t};
  };
  const double first = start > 0 ? start : t_critical;
  return root(excess, t_350 - room_below, t_line_end + room, first, true,
              {.step = 3e-16, .noise = rounding(q, value)})
      .x;
}

Pieces Isobar::pieces() const {
  Pieces line;
  const double t_saturated = p_ < p_critical ? saturation_temperature(p_) : t_critical;
  if (t_saturated <= t_350) {
    line.add({Region::steam, t_highest, t_saturated, Border::range});
    line.add({Region::wet, 1, 0});
    line.add({Region::water, t_saturated, t_lowest, Border::shared, Border::range});
    return line;
  }
  const double t_line = std::max(std::min(line_temperature(p_), t_line_end), t_350);
  line.add({Region::steam, t_highest, t_line, Border::range});
  const double v_line = dense_volume(Region::dense_steam, p_, t_line);
  const double v_350 = dense_volume(Region::hot_water, p_, t_350);
  if (t_saturated < t_jump) {
    const SaturatedVolumes v = saturated_volumes(t_saturated, p_);
    line.add({Region::dense_steam, v_line, v.vapour});
    line.add({Region::wet_above_350, 1, 0});
    line.add({Region::hot_water, v.liquid, v_350});
  } else {
    line.add({Region::hot_water, v_line, v_350});
  }
  line.add({Region::water, t_350, t_lowest, Border::shared, Border::range});
  return line;
}

double Isobar::coordinate(const Site& site) const {
  return is_wet(site.region) ? with_quality(site).x : is_3(site.region) ? site.v : site.t;
}

LinePoint Isobar::at(const Piece& piece, double c, Quantity q) {
  if (is_wet(piece.region)) {
    return wet_point(saturated_pressure(p_), saturation_temperature(p_), c, q);
  }
  if (!is_3(piece.region)) {
    const Sloped y = sloped_quantity(piece.region, q, {p_, c});
    return {c, at_pressure(piece.region, p_, c), {y.value, y.over_t}};
  }
  const double t = dense_temperature(Quantity::p, p_, c, t_start_);
  t_start_ = t;
  const auto [y, p] = sloped_quantities(piece.region, {c, t}, {q, Quantity::p});
  const double t_over_v = -p.over_1 / p.over_t;
  return {c,
          at_volume(region_of_dense(piece.region, p_, c, t), p_, c, t),
          {y.value, y.over_1 + y.over_t * t_over_v}};
}

Pieces IsothermLine::pieces() const {
  Pieces line;
  if (t_ <= t_350) {
    const double p = saturation_pressure(t_);
    line.add({Region::steam, p_lowest, p, Border::range});
    line.add({Region::wet, 1, 0});
    line.add({Region::water, p, p_highest, Border::shared, Border::range});
    return line;
  }
  const double p_line = t_ > t_line_end ? p_highest : std::min(line_pressure(t_), p_highest);
  const bool ends_there = p_line == p_highest;
  line.add({Region::steam, p_lowest, p_line, Border::range,
            ends_there ? Border::range : Border::shared});
  if (ends_there) {
    return line;
  }
  const double v_line = dense_volume(Region::dense_steam, p_line, t_);
  const Region densest = t_ < t_critical ? Region::hot_water : Region::dense_steam;
  const double v_least = dense_volume(densest, p_highest, t_);
  if (t_ < t_jump) {
    const SaturatedVolumes v = saturated_volumes(t_, saturation_pressure(t_));
    line.add({Region::dense_steam, v_line, v.vapour});
    line.add({Region::wet_above_350, 1, 0});
    line.add({Region::hot_water, v.liquid, v_least, Border::shared, Border::range});
  } else {
    line.add({Region::hot_water, v_line, v_least, Border::shared, Border::range});
  }
  return line;
}

double IsothermLine::coordinate(const Site& site) const {
  return is_wet(site.region) ? with_quality(site).x : is_3(site.region) ? site.v : site.p;
}

LinePoint IsothermLine::at(const Piece& piece, double c, Quantity q) const {
  if (is_wet(piece.region)) {
    return wet_point(saturation_pressure(t_), t_, c, q);
  }
  const auto [y, pressure] = sloped_quantities(piece.region, {c, t_}, {q, Quantity::p});
  if (!is_3(piece.region)) {
    return {c, at_pressure(piece.region, c, t_), {y.value, y.over_1}};
  }
  const double p = std::min(pressure.value, p_highest);
  return {c, at_volume(region_of_dense(piece.region, p, c, t_), p, c, t_), {y.value, y.over_1}};
}

LinePoint BoundaryLine::at(const Piece& piece, double c, Quantity q) const {
  const double p = std::min(line_pressure(c), p_highest);
  constexpr double apart = 0.01;  // K: the line is a parabola
  const double p_over_t = (line_pressure(c + apart) - line_pressure(c - apart)) / (2 * apart);
  if (!is_3(piece.region)) {
    const Sloped y = sloped_quantity(piece.region, q, {p, c});
    return {c, at_pressure(piece.region, p, c), {y.value, y.over_1 * p_over_t + y.over_t}};
  }
  const double v = dense_volume(Region::dense_steam, p, c);
  const auto [y, p_here] = sloped_quantities(piece.region, {v, c}, {q, Quantity::p});
  const double v_over_t = (p_over_t - p_here.over_t) / p_here.over_1;
  return {c, at_volume(Region::dense_steam, p, v, c), {y.value, y.over_1 * v_over_t + y.over_t}};
}

Site at_pressure_temperature(double p, double t) {
  if (t <= t_350) {
    return at_pressure(above_saturation(p, t) ? Region::water : Region::steam, p, t);
  }
  if (t > t_line_end || p < line_pressure(t)) {
    return at_pressure(Region::steam, p, t);
  }
  const bool liquid = t < t_critical && above_saturation(p, t);
  const Region region = liquid ? Region::hot_water : Region::dense_steam;
  return at_volume(region, p, dense_volume(region, p, t), t);
}

}  // namespace steam
