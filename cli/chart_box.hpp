#pragma once

#include "chart_plane.hpp"

namespace command {

/// A rectangle in any direction, such as a label fills.
struct Box {
  Spot centre;
  Spot half;             ///< of its length and height
  Spot direction{1, 0};  ///< of length 1

  /// A place as seen from the box, in shares of its half sizes.
  [[nodiscard]] Spot from_within(Spot spot) const;
  [[nodiscard]] std::array<Spot, 4> corners() const;
};

bool overlap(const Box& a, const Box& b);

/// Whether a trace passes through.
bool crosses(const Trace& trace, const Box& box);

/// The parts of a trace that are within a box, and those that are not.
std::vector<Trace> inside(const Box& box, const Trace& trace);
std::vector<Trace> outside(const Box& box, const Trace& trace);

}  // namespace command
