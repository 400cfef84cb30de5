#include "chart_labels.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace command {
namespace {

constexpr double step = 3;                // between places that are looked at
constexpr double worth_of_crossing = 90;  // of the distance to the guide
constexpr double most_crossings = 3;      // of a label that is still readable

/// Along a trace.
class Walk {
 public:
  explicit Walk(const Trace& trace) : trace_(trace), way_(trace.size(), 0) {
    for (std::size_t i = 1; i < trace.size(); ++i) {
      way_[i] = way_[i - 1] + length(trace[i] - trace[i - 1]);
    }
  }
  [[nodiscard]] double whole() const { return way_.back(); }
  [[nodiscard]] Spot at(double way) const {
    const auto next = std::upper_bound(way_.begin() + 1, way_.end() - 1, way);
    const auto i = static_cast<std::size_t>(next - way_.begin());
    const double share = (way - way_[i - 1]) / std::max(way_[i] - way_[i - 1], 1e-9);
    return trace_[i - 1] + std::clamp(share, 0., 1.) * (trace_[i] - trace_[i - 1]);
  }

 private:
  const Trace& trace_;
  std::vector<double> way_;
};

double distance(Spot spot, const Guide& guide) {
  const Spot from = Plane::at(guide.from), along = Plane::at(guide.to) - from;
  const Spot d = spot - from;
  const double share = (d.x * along.x + d.y * along.y) / (along.x * along.x + along.y * along.y);
  return length(d - std::clamp(share, 0., 1.) * along);
}

/// A label centred on a walk, along its chord; none where the line bends away from it.
std::optional<Box> box_on(const Walk& walk, double way, Spot half) {
  const Spot from = walk.at(way - half.x), to = walk.at(way + half.x);
  const Spot chord = to - from, centre = 0.5 * (from + to);
  const double bend = length(walk.at(way) - centre);
  if (bend > half.y / 2 || length(chord) < half.x) {
    return std::nullopt;
  }
  const Spot direction = (chord.x < 0 ? -1 : 1) / length(chord) * chord;
  return Box{centre, half, direction};
}

/// Looks for places one label after the other.
class Placement {
 public:
  Placement(const std::vector<Stroke>& strokes, const std::vector<Label>& taken,
            const std::vector<Trace>& free)
      : strokes_(strokes), free_(free) {
    for (const Label& label : taken) {
      boxes_.push_back(label.box);
    }
  }

  std::optional<Box> place(const Stroke& stroke) {
    Found best{worth_of_crossing * (most_crossings + 1) + sheet_width, {}};
    const Spot half = half_size(stroke.text);
    for (const Trace& trace : stroke.parts) {
      const Walk walk(trace);
      const int places = static_cast<int>(std::floor((walk.whole() - 2 * half.x) / step));
      for (int i = 0; i <= places; ++i) {
        if (const std::optional<Box> box = box_on(walk, half.x + i * step, half)) {
          consider(stroke, *box, best);
        }
      }
    }
    if (best.box) {
      boxes_.push_back(*best.box);
    }
    return best.box;
  }

 private:
  struct Found {
    double cost;
    std::optional<Box> box;
  };

  void consider(const Stroke& stroke, const Box& box, Found& best) const {
    const double distant = distance(box.centre, stroke.style->guide);
    if (distant >= best.cost || !is_free(box)) {
      return;
    }
    const int crossings = crossings_of(stroke, box);
    const double cost = distant + worth_of_crossing * crossings;
    if (crossings <= most_crossings && cost < best.cost) {
      best = {cost, box};
    }
  }

  [[nodiscard]] bool is_free(const Box& box) const {
    const auto corners = box.corners();
    return std::all_of(corners.begin(), corners.end(), Plane::has) &&
           std::none_of(boxes_.begin(), boxes_.end(),
                        [&](const Box& other) { return overlap(box, other); }) &&
           std::none_of(free_.begin(), free_.end(),
                        [&](const Trace& trace) { return crosses(trace, box); });
  }

  [[nodiscard]] int crossings_of(const Stroke& own, const Box& box) const {
    int crossings = 0;
    for (const Stroke& stroke : strokes_) {
      const bool through =
          &stroke != &own && std::any_of(stroke.parts.begin(), stroke.parts.end(),
                                         [&](const Trace& trace) { return crosses(trace, box); });
      crossings += through ? stroke.style->weight : 0;
    }
    return crossings;
  }

  const std::vector<Stroke>& strokes_;
  const std::vector<Trace>& free_;
  std::vector<Box> boxes_;
};

}  // namespace

Spot half_size(const std::string& text) {
  const auto characters =
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
  return {0.31 * font_size * static_cast<double>(characters) + 3, 0.5 * font_size + 1};
}

std::vector<Label> labels_on(const std::vector<Stroke>& strokes, const std::vector<Label>& taken,
                             const std::vector<Trace>& free) {
  Placement placement(strokes, taken, free);
  std::vector<Label> labels;
  for (const Stroke& stroke : strokes) {
    const std::optional<Box> box = stroke.text.empty() ? std::nullopt : placement.place(stroke);
    if (box) {
      labels.push_back({stroke.text, *box, stroke.style->colour});
    }
  }
  return labels;
}

void interrupt(std::vector<Stroke>& strokes, const std::vector<Label>& labels) {
  for (Stroke& stroke : strokes) {
    for (const Label& label : labels) {
      std::vector<Trace> rest;
      for (const Trace& part : stroke.parts) {
        for (Trace& piece : outside(label.box, part)) {
          rest.push_back(std::move(piece));
        }
      }
      stroke.parts = std::move(rest);
    }
  }
}

}  // namespace command
