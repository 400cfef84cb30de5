#pragma once

#include "command.hpp"

namespace command {

/// `vek batch PAIR [FILE]`: properties for each row of a table.
void define_batch(CLI::App& app, Run& run);

}  // namespace command
