#pragma once

#include <array>
#include <string>
#include <vector>

#include "api/vek.h"

namespace command {

/// A pair of known properties and the finder that takes it.
struct Pair {
  const char* name;
  VekFinder finder;
};

const Pair& pair_named(const std::string& name);
std::vector<std::string> pair_names();

}  // namespace command
