#pragma once

#include <string>

namespace command {

/// What gnuplot draws.
/// @param script  sets a terminal and plots to standard output
/// @outside       throws Failure when gnuplot is missing or fails
std::string drawn_by_gnuplot(const std::string& script);

}  // namespace command
