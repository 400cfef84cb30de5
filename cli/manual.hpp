#pragma once

#include <string>
#include <vector>

#include "command.hpp"

namespace command {

/// What the help of the whole command and its manual page say beside commands and options.
struct ManualSection {
  const char* title;
  std::string text;  ///< in lines
};
std::vector<ManualSection> manual_sections();

/// `vek man` prints the manual page, made of the parser's own description.
void define_manual(CLI::App& app, Run& run);

}  // namespace command
