#pragma once

#include "chart_plane.hpp"

namespace command {

constexpr double font_size = 12;  // hundredths of an inch

/// Where the labels of a family had best stand: along a line, in shares of the plane.
struct Guide {
  Spot from, to;
};

/// How the lines of a property look on a diagram.
struct LineStyle {
  steam::Property property;
  const char* name;
  const char* colour;
  const char* dashes;  ///< gnuplot's
  double width;
  int weight;  ///< how much labels keep away
  Guide guide;
};

/// @return  of saturated liquid and vapour too, which are lines of quality
const LineStyle& style_of(steam::Diagram diagram, const steam::Line& line);

/// All styles of a diagram, in the order in which they are drawn.
std::vector<const LineStyle*> styles_of(steam::Diagram diagram);

/// How a process is drawn.
constexpr const char* process_colour = "#c2185b";

}  // namespace command
