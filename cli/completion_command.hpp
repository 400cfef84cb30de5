#pragma once

#include "command.hpp"

namespace command {

/// `vek completion SHELL` prints what a shell reads to complete words. Its script asks the command
/// itself, by the hidden `vek complete`, so that completions are what the parser knows.
void define_completion(CLI::App& app, Run& run);

}  // namespace command
