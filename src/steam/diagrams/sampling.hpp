#pragma once

#include "steam/diagrams/run.hpp"

namespace steam::diagrams {

/// The line of a property's value, sampled so closely that no state of it is farther from the
/// chords than the tolerance, a share of the diagram's width and height; from the run's first state
/// to the last that there is.
Line sampled(const DiagramRow& diagram, Property property, double value, double tolerance);

}  // namespace steam::diagrams
