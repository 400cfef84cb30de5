#pragma once

#include <string>
#include <vector>

#include "chart_plane.hpp"

namespace command {

/// A state that is marked on a chart.
struct Mark {
  steam::State state;
  std::string text;
};

/// @param text  "ph:100,3000", with units if wanted, and with a text of its own: "ph:100,3000=1"
/// @outside     throws Failure
Mark parse_mark(const std::string& text);

/// The states of a process, from a file of comma-separated values: a first row with letters of
/// properties and, if wanted, "point" for what the marks say; then two known properties a row.
/// @outside  throws Failure, which names the line
std::vector<Mark> read_process(const std::string& path);

/// The way from one state to the next: along the line of what they have in common, pressure before
/// entropy, enthalpy, volume and temperature; straight if there is nothing.
struct Way {
  bool straight;
  Trace trace;
};
Way way_between(steam::Diagram diagram, const Plane& plane, const steam::State& from,
                const steam::State& to);

/// Where a state is.
Spot spot_of(steam::Diagram diagram, const Plane& plane, const steam::State& state);

}  // namespace command
