#include "patches.hpp"

#include <cmath>

#include "steam/equations/slopes.hpp"

namespace {

using steam::Axes;
using steam::Pair;
using steam::Quantity;
using steam::Region;

double quantity_of(const Sample& s, Quantity q) {
  const std::array<double, 6> all{s.p, s.t, s.v, s.h, s.s, s.u};
  return all[static_cast<std::size_t>(q)];
}

/// What the polynomials of a region are to give, in the order of `steam::unknowns`.
std::vector<double> targets(Pair pair, Region region, const Sample& s) {
  const steam::Known& k = steam::known_of(pair);
  const int count = steam::unknowns(pair, region);
  if (count == 0) {
    return {};
  }
  const bool knows_t = k.first == Quantity::t || pair == Pair::pt;
  if (count == 1 && !knows_t) {
    return {s.t};
  }
  const double z = steam::is_3(region)                                        ? 1 / s.v
                   : region == Region::water || !steam::gives_root_of_p(pair) ? s.p
                                                                              : std::pow(s.p, 0.25);
  return count == 1 ? std::vector{z} : std::vector{z, s.t};
}

/// How far a start may be from them for Newton's iteration to end with its first step. Nothing is
/// asked of wet states, which have a table, nor of pressures that u and s of water hardly tell.
std::vector<double> small_differences(Pair pair, Region region, const Sample& s,
                                      const std::vector<double>& values) {
  if (values.empty() || steam::is_wet(region)) {
    return std::vector<double>(values.size(), HUGE_VAL);
  }
  const double step = steam::is_3(region) ? steam::Dense::small_step : steam::Steam::small_step;
  const double of_t = step * steam::kelvin(s.t);
  const bool knows_t = steam::known_of(pair).first == Quantity::t || pair == Pair::pt;
  if (values.size() == 1 && !knows_t) {
    return {of_t};
  }
  const bool is_root = region == Region::steam && steam::gives_root_of_p(pair);
  const double of_z = pair == Pair::us && region == Region::water ? HUGE_VAL
                      : is_root                                   ? step * values[0] / 4
                      : region == Region::water ? step * (s.p + steam::Water::z_floor)
                                                : step * values[0];
  return values.size() == 1 ? std::vector{of_z} : std::vector{of_z, of_t};
}

/// Water states that are not the preferred ones of their pair would bend the polynomials.
bool is_preferred(Pair pair, Region region, const Sample& s) {
  if (region != Region::water) {
    return true;
  }
  const auto terms = steam::Water::terms(s.p, s.t);
  switch (pair) {
    case Pair::pv:
      return formulation::volume_slopes(terms).over_t > 0;
    case Pair::th:
      return steam::sloped<steam::Water, Quantity::h>(terms, s.p, s.t).over_1 < 0;
    case Pair::tu:
      return steam::sloped<steam::Water, Quantity::u>(terms, s.p, s.t).over_1 < 0;
    case Pair::ts:
      return steam::sloped<steam::Water, Quantity::s>(terms, s.p, s.t).over_1 < 0;
    default:
      return true;
  }
}

/// Cells take in points a little beyond their sides, so that no thin part of a region is missed.
constexpr double margin = 0.08;

/// The places that a value has in the cell that it is in and in those next to it.
std::vector<steam::Coordinate> places(const steam::Axis& axis, double value) {
  std::vector<steam::Coordinate> all;
  const auto middle = static_cast<int>(axis(value).cell);
  for (int cell = middle - 1; cell <= middle + 1; ++cell) {
    const double low = axis.lower_side(cell), high = axis.lower_side(cell + 1);
    const double place = 2 * (value - low) / (high - low) - 1;
    if (cell >= 0 && cell < axis.cells && std::abs(place) < 1 + 2 * margin) {
      all.push_back({cell, place});
    }
  }
  return all;
}

void add_sample(std::vector<Patches>& cells, const Axes& axes, Region region, const Point& at,
                const std::vector<double>& values, const std::vector<double>& small) {
  for (const auto& y : places(axes.second, at.y)) {
    for (const auto& x : places(axes.first, at.x)) {
      const auto number = static_cast<std::size_t>(y.cell * axes.first.cells + x.cell);
      cells[number][region].add({x.place, y.place}, values, small);
    }
  }
}

}  // namespace

void Patch::add(const Point& point, const std::vector<double>& its_values,
                const std::vector<double>& its_small) {
  points.push_back(point);
  values.resize(its_values.size());
  small.resize(its_values.size());
  for (std::size_t n = 0; n < its_values.size(); ++n) {
    values[n].push_back(its_values[n]);
    small[n].push_back(its_small[n]);
  }
  inside += std::abs(point.x) <= 1 && std::abs(point.y) <= 1 ? 1 : 0;
}

std::vector<Patches> patches_of(Pair pair, const Axes& axes, const Samples& samples) {
  const steam::Known& k = steam::known_of(pair);
  const int count = axes.first.cells * axes.second.cells;
  std::vector<Patches> cells(static_cast<std::size_t>(count));
  for (const auto& [region, states] : samples) {
    if (pair == Pair::pt && !steam::is_3(region)) {
      continue;
    }
    // (p, t) knows the sides of subregion 3; elsewhere it is one.
    const Region as =
        region == Region::hot_water && pair != Pair::pt ? Region::dense_steam : region;
    for (const Sample& s : states) {
      if (is_preferred(pair, region, s)) {
        const auto values = targets(pair, region, s);
        add_sample(cells, axes, as, {quantity_of(s, k.first), quantity_of(s, k.second)}, values,
                   small_differences(pair, region, s, values));
      }
    }
  }
  return cells;
}

Patches part_of(const Patches& cell, const Part& part) {
  Patches own;
  for (const auto& [region, patch] : cell) {
    for (std::size_t i = 0; i < patch.points.size(); ++i) {
      const Point here = part.in_part(patch.points[i]);
      if (std::abs(here.x) >= 1 + 2 * margin || std::abs(here.y) >= 1 + 2 * margin) {
        continue;
      }
      std::vector<double> values, small;
      for (std::size_t n = 0; n < patch.values.size(); ++n) {
        values.push_back(patch.values[n][i]);
        small.push_back(patch.small[n][i]);
      }
      own[region].add(here, values, small);
    }
  }
  return own;
}
