#include "pairs.hpp"

#include <algorithm>

namespace command {
namespace {

constexpr std::array pairs{
    Pair{"pt", vekrpt_}, Pair{"px", vekrpx_}, Pair{"tx", vekrtx_}, Pair{"pv", vekrpv_},
    Pair{"ph", vekrph_}, Pair{"ps", vekrps_}, Pair{"pu", vekrpu_}, Pair{"tv", vekrtv_},
    Pair{"th", vekrth_}, Pair{"tu", vekrtu_}, Pair{"ts", vekrts_}, Pair{"sx", vekrsx_},
    Pair{"hs", vekrhs_}, Pair{"us", vekrus_}, Pair{"vh", vekrvh_}, Pair{"vs", vekrvs_},
    Pair{"vu", vekrvu_}, Pair{"vx", vekrvx_},
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
