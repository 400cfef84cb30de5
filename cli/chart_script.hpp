#pragma once

#include "chart.hpp"

namespace command {

/// File formats by the ends of their names.
std::vector<std::string> chart_formats();

/// A script for gnuplot that draws a chart to standard output.
/// @param format  "svg", "png" or "pdf"
std::string script_of(const Chart& chart, const std::string& format);

}  // namespace command
