#include "chart_plane.hpp"

#include <algorithm>
#include <cmath>

#include "chart_box.hpp"

namespace command {
namespace {

constexpr Spot size = Plane::upper_right - Plane::lower_left;

/// A step between numbers of an axis.
double step_of(double range) {
  const double decade = std::pow(10, std::floor(std::log10(range / 5)));
  const double steps = range / 5 / decade;
  return decade * (steps < 2 ? 1 : steps < 5 ? 2 : 5);
}

}  // namespace

double length(Spot a) { return std::hypot(a.x, a.y); }

double Plane::Axis::share(double value) const {
  return logarithmic ? std::log(value / lowest) / std::log(highest / lowest)
                     : (value - lowest) / (highest - lowest);
}

double Plane::Axis::value(double share) const {
  return logarithmic ? lowest * std::pow(highest / lowest, share)
                     : lowest + (highest - lowest) * share;
}

void Plane::Axis::extend(double value) {
  constexpr double margin = 0.02;
  const double where = share(value);
  if (where >= margin && where <= 1 - margin) {
    return;
  }
  const double beyond = this->value(where < margin ? where - margin : where + margin);
  if (logarithmic) {
    lowest = std::min(lowest, std::pow(10, std::floor(std::log10(beyond))));
    highest = std::max(highest, std::pow(10, std::ceil(std::log10(beyond))));
  } else {
    const double step = step_of(highest - lowest) / 2;
    lowest = std::min(lowest, step * std::floor(beyond / step));
    highest = std::max(highest, step * std::ceil(beyond / step));
  }
}

Plane::Plane(const steam::DiagramInfo& diagram)
    : x_{diagram.x_lowest, diagram.x_highest, diagram.x_logarithmic},
      y_{diagram.y_lowest, diagram.y_highest, diagram.y_logarithmic} {}

void Plane::include(double x, double y) {
  x_.extend(x);
  y_.extend(y);
}

Spot Plane::at(Spot share) { return lower_left + Spot{share.x * size.x, share.y * size.y}; }

Spot Plane::spot(double x, double y) const { return at({x_.share(x), y_.share(y)}); }

std::array<double, 2> Plane::values(Spot spot) const {
  const Spot inside = spot - lower_left;
  return {x_.value(inside.x / size.x), y_.value(inside.y / size.y)};
}

bool Plane::has(Spot spot) {
  return spot.x >= lower_left.x && spot.x <= upper_right.x && spot.y >= lower_left.y &&
         spot.y <= upper_right.y;
}

std::vector<Trace> Plane::shown(const steam::Line& line) const {
  Trace whole;
  for (std::size_t i = 0; i < line.x.size(); ++i) {
    whole.push_back(spot(line.x[i], line.y[i]));
  }
  const Box plane{0.5 * (lower_left + upper_right), 0.5 * size, {1, 0}};
  return inside(plane, whole);
}

}  // namespace command
