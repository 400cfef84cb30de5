#pragma once

#include <string>

namespace command {

/// What `vek PAIR A B [LIST]` was asked.
struct StateOptions {
  std::string pair;
  double first = 0, second = 0;
  std::string list;  // empty: everything
};

/// @return an empty text, or what is wrong with a property list and what is accepted
std::string check_list(const std::string& list);

/// Requests the properties from the module and prints them.
/// @return exit status: 0, or 1 when the error flag was raised or a value is missing
int show_state(const StateOptions& options);

}  // namespace command
