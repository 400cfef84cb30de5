#include "comparison/classic_answer.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <sstream>
#include <string_view>
#include <utility>

#include "classic/frame/diagnostics.hpp"
#include "classic/regions/region.hpp"

namespace comparison {
namespace {

struct Finder {
  std::string_view letters;
  VekFinder function;
};
constexpr std::array finders{
    Finder{"pt", vekrpt_}, Finder{"px", vekrpx_}, Finder{"tx", vekrtx_}, Finder{"pv", vekrpv_},
    Finder{"ph", vekrph_}, Finder{"ps", vekrps_}, Finder{"pu", vekrpu_}, Finder{"tv", vekrtv_},
    Finder{"th", vekrth_}, Finder{"tu", vekrtu_}, Finder{"ts", vekrts_}, Finder{"sx", vekrsx_},
    Finder{"hs", vekrhs_}, Finder{"us", vekrus_}, Finder{"vh", vekrvh_}, Finder{"vs", vekrvs_},
    Finder{"vu", vekrvu_}, Finder{"vx", vekrvx_},
};

struct Item {
  const char* item;
  steam::Property property;
  double unit = 1;                 // in the engine's unit
  bool only_in_one_phase = false;  // the last ones; 0 where the module has no value
};
using P = steam::Property;
constexpr std::array items{
    Item{"P", P::p},
    Item{"T", P::t},
    Item{"V", P::v},
    Item{"H", P::h},
    Item{"S", P::s},
    Item{"X", P::x},
    Item{"CP", P::cp, 1, true},
    Item{"DV", P::viscosity, 1, true},
    Item{"TC", P::conductivity, 1000, true},  // kW/(m K)
};

/// The diagnostic lines of the module go into a text while this lives.
class Diagnostics {
 public:
  Diagnostics() { stream().rdbuf(text_.rdbuf()); }
  ~Diagnostics() { stream().rdbuf(nullptr); }
  Diagnostics(const Diagnostics&) = delete;
  Diagnostics& operator=(const Diagnostics&) = delete;
  [[nodiscard]] std::string text() const { return text_.str(); }

 private:
  static std::ios& stream() { return static_cast<std::ios&>(classic::ErrorStream); }
  std::ostringstream text_;
};

/// The module leaves slots without a value as they are: a slot that still holds this has none.
constexpr double untouched = -std::numeric_limits<double>::max();

int region_of(VekFinder finder, double first, double second) {
  double tolerance = 1e-8;
  return finder(&first, &second, &tolerance);
}

/// Without what the module would only refuse.
std::string list_for(int region) {
  const bool wet = region == classic::wet || region == classic::wet_above_350;
  std::string list;
  for (const Item& item : items) {
    if (!wet || !item.only_in_one_phase) {
      list += std::string(item.item) + ' ';
    }
  }
  return list;
}

}  // namespace

VekFinder finder_of(steam::Pair pair) {
  const std::string_view letters = steam::info(pair).letters;
  const auto* const found = std::find_if(finders.begin(), finders.end(),
                                         [&](const Finder& f) { return f.letters == letters; });
  return found == finders.end() ? nullptr : found->function;
}

Reply request(VekFinder finder, double first, double second, const std::string& list,
              std::size_t items) {
  std::vector<double> values(items, untouched);
  const Diagnostics diagnostics;
  vek(finder, &first, &second, list.c_str(), values.data());
  std::replace(values.begin(), values.end(), untouched, steam::missing);
  return {std::move(values), VEKHasError(), diagnostics.text()};
}

std::vector<steam::Property> classic_properties() {
  std::vector<steam::Property> properties;
  properties.reserve(items.size());
  for (const Item& item : items) {
    properties.push_back(item.property);
  }
  return properties;
}

ClassicAnswer ask_classic(VekFinder finder, double first, double second) {
  const int region = region_of(finder, first, second);
  Reply reply = request(finder, first, second, list_for(region), items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    double& value = reply.values[i];
    value = items[i].only_in_one_phase && value == 0 ? steam::missing : value * items[i].unit;
  }
  return {region, region != classic::refused, std::move(reply)};
}

}  // namespace comparison
