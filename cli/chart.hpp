#pragma once

#include "chart_labels.hpp"
#include "chart_process.hpp"

namespace command {

/// All that is on a chart.
struct Chart {
  steam::Diagram diagram;
  Plane plane;
  std::vector<Stroke> strokes;
  std::vector<Label> labels;
  std::vector<Trace> process, straight;  ///< along lines of the diagram, and across them
  std::vector<Spot> points;
};

/// A diagram with a process and marks on it; shows more than usual where they lie outside.
Chart chart_of(steam::Diagram diagram, const std::vector<Mark>& process,
               const std::vector<Mark>& marks);

}  // namespace command
