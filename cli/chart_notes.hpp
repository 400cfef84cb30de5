#pragma once

#include "chart.hpp"

namespace command {

/// What a point of a chart is.
struct Note {
  std::string text;
  Spot point;
};

/// Labels the points and then the lines of a chart, and interrupts the lines where labels are.
void label_all(Chart& chart, const std::vector<Note>& notes);

}  // namespace command
