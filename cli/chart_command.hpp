#pragma once

#include "command.hpp"

namespace command {

/// `vek chart hs|ts|ph|pv`
void define_chart(CLI::App& app, Run& run);

}  // namespace command
