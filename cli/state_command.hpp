#pragma once

#include "command.hpp"

namespace command {

/// `vek ph 100 3000 [LIST]`: each pair, in either order, is a subcommand.
void define_states(CLI::App& app, Run& run);

}  // namespace command
