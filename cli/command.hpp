#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace command {

/// What the parsed command line asks for; gives the exit status.
using Run = std::function<int()>;

/// Adds subcommands to the app, each of which sets `run` when it is the one on the command line.
using Define = void (*)(CLI::App& app, Run& run);

}  // namespace command
