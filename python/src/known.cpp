#include "known.hpp"

#include <nanobind/nanobind.h>

#include <cctype>
#include <vector>

namespace python {
namespace {

using Pairs = std::array<std::array<Known, quantity_count>, quantity_count>;

Pairs all_pairs() {
  Pairs pairs;
  for (int number = 0; number < vek_steam_pair_count(); ++number) {
    const steam::PairInfo pair = steam::info(static_cast<steam::Pair>(number));
    const auto first = static_cast<std::size_t>(pair.first);
    const auto second = static_cast<std::size_t>(pair.second);
    pairs[first][second] = {number, false};
    pairs[second][first] = {number, true};
  }
  return pairs;
}

steam::PropertyInfo info_of(int property) {
  return steam::info(static_cast<steam::Property>(property % VEK_STEAM_OF_LIQUID));
}

std::vector<Conversion> all_conversions() {
  std::vector<Conversion> all;
  for (int property = 0; property < vek_steam_property_count(); ++property) {
    all.push_back(si_conversion(info_of(property).unit));
  }
  return all;
}

bool is_word_of_python(const std::string& name) {
  namespace nb = nanobind;
  return nb::cast<bool>(nb::module_::import_("keyword").attr("iskeyword")(name.c_str()));
}

}  // namespace

Known known_of(int first, int second) {
  static const Pairs pairs = all_pairs();
  return pairs[static_cast<std::size_t>(first)][static_cast<std::size_t>(second)];
}

std::string identifier(int property) {
  std::string name = info_of(property).letter;
  for (char& c : name) {
    c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  }
  if (property >= VEK_STEAM_OF_LIQUID) {
    return name + (property >= VEK_STEAM_OF_VAPOUR ? "_vapour" : "_liquid");
  }
  return is_word_of_python(name) ? name + "_" : name;
}

const Conversion& conversion_of(int property) {
  static const std::vector<Conversion> conversions = all_conversions();
  return conversions[static_cast<std::size_t>(property % VEK_STEAM_OF_LIQUID)];
}

void from_si(int pair, double& first, double& second) {
  const steam::PairInfo info = steam::info(static_cast<steam::Pair>(pair));
  first = conversion_of(static_cast<int>(info.first)).from_si(first);
  second = conversion_of(static_cast<int>(info.second)).from_si(second);
}

}  // namespace python
