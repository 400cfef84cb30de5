#pragma once

#include <string>
#include <vector>

#include "vek/vek.h"

namespace command {

/// A pair of known properties and the finder that takes it.
struct Pair {
  const char* name;
  VekFinder finder;
};

const Pair& pair_named(const std::string& name);
std::vector<std::string> pair_names();

/// @return an empty text, or which of two known values is out of range and what is accepted
std::string check_known(const std::string& pair, double first, double second);

/// @return an empty text, or how far the state found is from the known value it was asked for
std::string check_reproduced(char letter, double value, double found);

}  // namespace command
