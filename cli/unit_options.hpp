#pragma once

#include <CLI/CLI.hpp>

#include "units.hpp"

namespace command {

/// --units, --unit, --gauge, --ambient: the same for all commands.
void add_unit_options(CLI::App& app, UnitOptions& options);

}  // namespace command
