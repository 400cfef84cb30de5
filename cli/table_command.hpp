#pragma once

#include "command.hpp"

namespace command {

/// `vek table saturation|water-steam`: steam tables as they are printed.
void define_table(CLI::App& app, Run& run);

}  // namespace command
