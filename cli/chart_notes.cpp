#include "chart_notes.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace command {
namespace {

/// What labels keep away from: the process, and the points with a rim.
std::vector<Trace> free_traces(const Chart& chart) {
  std::vector<Trace> traces = chart.process;
  traces.insert(traces.end(), chart.straight.begin(), chart.straight.end());
  for (const Spot point : chart.points) {
    constexpr double rim = 4;
    traces.push_back({point - Spot{rim, 0}, point + Spot{rim, 0}});
    traces.push_back({point - Spot{0, rim}, point + Spot{0, rim}});
  }
  return traces;
}

template <class Items, class Is>
double number_of(const Items& items, const Is& is) {
  return static_cast<double>(std::count_if(items.begin(), items.end(), is));
}

/// How much is wrong with a place for the label of a point.
double cost(const Chart& chart, const std::vector<Trace>& free, const Box& box, Spot point) {
  const auto corners = box.corners();
  const auto is_hidden = [&](const Trace& trace) { return crosses(trace, box); };
  const auto is_hidden_stroke = [&](const Stroke& stroke) {
    return stroke.text.empty() && std::any_of(stroke.parts.begin(), stroke.parts.end(), is_hidden);
  };
  return length(box.centre - point) + 1000 * number_of(free, is_hidden) +
         1000 * number_of(chart.labels, [&](const Label& l) { return overlap(l.box, box); }) +
         1000 * number_of(corners, [](Spot corner) { return !Plane::has(corner); }) +
         60 * number_of(chart.strokes, is_hidden_stroke);
}

/// Around a point, near and where it hides neither the process nor other labels.
Label label_of(const Note& note, const Chart& chart, const std::vector<Trace>& free) {
  const Spot half = half_size(note.text);
  Label label{note.text, {}, process_colour};
  double least = std::numeric_limits<double>::infinity();
  for (int distance = 4; distance < 100; distance += 6) {
    for (int i = 0; i < 16; ++i) {
      const double angle = std::numbers::pi / 8 * (i + 2);  // the first: to the right and up
      const Spot side{std::cos(angle), std::sin(angle)};
      const Box box{note.point + Spot{side.x * (half.x + distance), side.y * (half.y + distance)},
                    half};
      const double found = cost(chart, free, box, note.point);
      if (found < least) {
        least = found;
        label.box = box;
      }
    }
  }
  return label;
}

/// The end of a cycle is its begin.
bool is_repeated(const std::vector<Note>& notes, const Note& note) {
  const auto first = std::find_if(notes.begin(), notes.end(), [&](const Note& other) {
    return other.text == note.text && length(other.point - note.point) < 1;
  });
  return &*first != &note;
}

}  // namespace

void label_all(Chart& chart, const std::vector<Note>& notes) {
  const std::vector<Trace> free = free_traces(chart);
  for (const Note& note : notes) {
    if (!is_repeated(notes, note)) {
      chart.labels.push_back(label_of(note, chart, free));
    }
  }
  const std::vector<Label> on_lines = labels_on(chart.strokes, chart.labels, free);
  chart.labels.insert(chart.labels.end(), on_lines.begin(), on_lines.end());
  interrupt(chart.strokes, chart.labels);
}

}  // namespace command
