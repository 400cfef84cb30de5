#include "pairs.hpp"

#include <algorithm>

namespace command {
namespace {

constexpr std::array pairs{
    Pair{"pt", vekrpt_},
    Pair{"px", vekrpx_},
    Pair{"tx", vekrtx_},
};

}  // namespace

const Pair& pair_named(const std::string& name) {
  return *std::find_if(pairs.begin(), pairs.end(), [&](const Pair& p) { return p.name == name; });
}

std::vector<std::string> pair_names() {
  std::vector<std::string> names;
  names.reserve(pairs.size());
  for (const Pair& p : pairs) {
    names.emplace_back(p.name);
  }
  return names;
}

}  // namespace command
