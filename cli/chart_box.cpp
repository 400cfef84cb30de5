#include "chart_box.hpp"

#include <algorithm>
#include <cmath>

namespace command {
namespace {

double dot(Spot a, Spot b) { return a.x * b.x + a.y * b.y; }
Spot turned(Spot a) { return {-a.y, a.x}; }

/// The shares of a segment between which it is within a box; from > to: nowhere.
struct Part {
  double from, to;
  [[nodiscard]] bool is_empty() const { return !(from < to); }
};

/// Between -1 and 1 along one direction.
Part between(double a, double b) {
  if (a == b) {
    return std::abs(a) <= 1 ? Part{0, 1} : Part{1, 0};
  }
  const double low = (-1 - a) / (b - a), high = (1 - a) / (b - a);
  return {std::max(0., std::min(low, high)), std::min(1., std::max(low, high))};
}

Part part_within(const Box& box, Spot from, Spot to) {
  const Spot a = box.from_within(from), b = box.from_within(to);
  const Part along = between(a.x, b.x), across = between(a.y, b.y);
  return {std::max(along.from, across.from), std::min(along.to, across.to)};
}

/// Collects parts of segments that follow each other into traces.
class Collector {
 public:
  void add(Spot from, Spot to) {
    if (open_.empty()) {
      open_.push_back(from);
    }
    open_.push_back(to);
  }
  void end() {
    if (!open_.empty()) {
      traces_.push_back(std::move(open_));
      open_.clear();
    }
  }
  std::vector<Trace> taken() {
    end();
    return std::move(traces_);
  }

 private:
  Trace open_;
  std::vector<Trace> traces_;
};

/// Whether all corners of one box are beyond one side of another.
bool is_beyond(const Box& a, const Box& b) {
  Spot least{1e9, 1e9}, most{-1e9, -1e9};
  for (const Spot corner : b.corners()) {
    const Spot c = a.from_within(corner);
    least = {std::min(least.x, c.x), std::min(least.y, c.y)};
    most = {std::max(most.x, c.x), std::max(most.y, c.y)};
  }
  return least.x > 1 || most.x < -1 || least.y > 1 || most.y < -1;
}

}  // namespace

Spot Box::from_within(Spot spot) const {
  const Spot d = spot - centre;
  return {dot(d, direction) / half.x, dot(d, turned(direction)) / half.y};
}

std::array<Spot, 4> Box::corners() const {
  const Spot along = half.x * direction, across = half.y * turned(direction);
  return {centre - along - across, centre + along - across, centre + along + across,
          centre - along + across};
}

bool overlap(const Box& a, const Box& b) { return !is_beyond(a, b) && !is_beyond(b, a); }

bool crosses(const Trace& trace, const Box& box) {
  const double reach = length(box.half);
  for (std::size_t i = 1; i < trace.size(); ++i) {
    const Spot a = trace[i - 1] - box.centre, b = trace[i] - box.centre;
    const bool is_near = std::min(a.x, b.x) < reach && std::max(a.x, b.x) > -reach &&
                         std::min(a.y, b.y) < reach && std::max(a.y, b.y) > -reach;
    if (is_near && !part_within(box, trace[i - 1], trace[i]).is_empty()) {
      return true;
    }
  }
  return false;
}

std::vector<Trace> inside(const Box& box, const Trace& trace) {
  Collector collector;
  for (std::size_t i = 1; i < trace.size(); ++i) {
    const Spot a = trace[i - 1], step = trace[i] - a;
    const Part part = part_within(box, a, trace[i]);
    if (part.is_empty()) {
      collector.end();
      continue;
    }
    if (part.from > 0) {
      collector.end();
    }
    collector.add(a + part.from * step, a + part.to * step);
  }
  return collector.taken();
}

std::vector<Trace> outside(const Box& box, const Trace& trace) {
  Collector collector;
  for (std::size_t i = 1; i < trace.size(); ++i) {
    const Spot a = trace[i - 1], b = trace[i];
    const Part part = part_within(box, a, b);
    if (part.is_empty()) {
      collector.add(a, b);
      continue;
    }
    if (part.from > 0) {
      collector.add(a, a + part.from * (b - a));
    }
    collector.end();
    if (part.to < 1) {
      collector.add(a + part.to * (b - a), b);
    }
  }
  return collector.taken();
}

}  // namespace command
