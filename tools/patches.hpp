#pragma once

#include <map>

#include "least_squares.hpp"
#include "samples.hpp"
#include "steam/tables/chart_layout.hpp"

/// States of the regions that have polynomials.
using Samples = std::map<steam::Region, std::vector<Sample>>;

/// What is known of one region in one cell: places in the cell, and there the value of each target
/// and the difference that a start needs no second evaluation at.
struct Patch {
  std::vector<Point> points;
  std::vector<std::vector<double>> values, small;
  std::size_t inside = 0;  // points without those from the margin

  void add(const Point& point, const std::vector<double>& its_values,
           const std::vector<double>& its_small);
};
using Patches = std::map<steam::Region, Patch>;

/// By number of the cell, row by row.
std::vector<Patches> patches_of(steam::Pair pair, const steam::Axes& axes, const Samples& samples);

/// One of the equal parts of a cell.
struct Part {
  int parts;  ///< along each side
  int x, y;

  /// The place in the cell, and that in this part.
  [[nodiscard]] Point in_cell(const Point& here) const {
    return {(here.x + 2 * x + 1 - parts) / parts, (here.y + 2 * y + 1 - parts) / parts};
  }
  [[nodiscard]] Point in_part(const Point& there) const {
    return {there.x * parts - (2 * x + 1 - parts), there.y * parts - (2 * y + 1 - parts)};
  }
};

/// What is known of a part of a cell.
Patches part_of(const Patches& cell, const Part& part);
