#include "chart.hpp"

#include <fmt/core.h>

#include "chart_notes.hpp"

namespace command {
namespace {

/// The saturation line is known without a label.
std::string label_of(const steam::Line& line) {
  const bool saturated =
      line.property == steam::Property::x && (line.value == 0 || line.value == 1);
  return saturated ? "" : fmt::format("{}", line.value);
}

std::vector<Stroke> strokes_of(steam::Diagram diagram, const Plane& plane) {
  std::vector<Stroke> strokes;
  for (const steam::Line& line : steam::lines(diagram)) {
    strokes.push_back({&style_of(diagram, line), label_of(line), plane.shown(line)});
  }
  return strokes;
}

}  // namespace

Chart chart_of(steam::Diagram diagram, const std::vector<Mark>& process,
               const std::vector<Mark>& marks) {
  Plane plane(steam::info(diagram));
  std::vector<Mark> all = process;
  all.insert(all.end(), marks.begin(), marks.end());
  for (const Mark& mark : all) {
    const std::array<double, 2> values = plane.values(spot_of(diagram, plane, mark.state));
    plane.include(values[0], values[1]);
  }
  Chart chart{diagram, plane, strokes_of(diagram, plane), {}, {}, {}, {}};
  for (std::size_t i = 1; i < process.size(); ++i) {
    const Way way = way_between(diagram, plane, process[i - 1].state, process[i].state);
    (way.straight ? chart.straight : chart.process).push_back(way.trace);
  }
  std::vector<Note> notes;
  for (const Mark& mark : all) {
    chart.points.push_back(spot_of(diagram, plane, mark.state));
    notes.push_back({mark.text, chart.points.back()});
  }
  label_all(chart, notes);
  return chart;
}

}  // namespace command
