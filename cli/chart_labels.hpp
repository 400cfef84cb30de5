#pragma once

#include <string>

#include "chart_box.hpp"
#include "chart_style.hpp"

namespace command {

/// A line as it is drawn.
struct Stroke {
  const LineStyle* style;
  std::string text;  ///< its label; may be empty
  std::vector<Trace> parts;
};

/// A text on the sheet.
struct Label {
  std::string text;
  Box box;
  const char* colour;
};

/// The size of a text, with some room around it.
Spot half_size(const std::string& text);

/// Labels on their lines, near the guides of the styles, so that no two overlap and few lines of
/// others pass through; a line that has no room for one goes without.
/// @param taken  boxes and traces that must stay free
std::vector<Label> labels_on(const std::vector<Stroke>& strokes, const std::vector<Label>& taken,
                             const std::vector<Trace>& free);

/// Interrupts the lines where labels are.
void interrupt(std::vector<Stroke>& strokes, const std::vector<Label>& labels);

}  // namespace command
