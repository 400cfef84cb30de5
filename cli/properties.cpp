#include "properties.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "failure.hpp"

namespace command {
namespace {

/// Items of the classic module that are no letters of the engine.
struct Item {
  const char* item;
  steam::Property property;
};
constexpr std::array items{Item{"DV", steam::Property::viscosity},
                           Item{"TC", steam::Property::conductivity}};

template <class Matches>
std::optional<steam::Property> first_that(const Matches& matches) {
  for (const steam::Property property : all_properties()) {
    if (matches(steam::info(property))) {
      return property;
    }
  }
  return std::nullopt;
}

}  // namespace

bool equal_but_for_case(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

std::vector<steam::Property> all_properties() {
  std::vector<steam::Property> all;
  all.reserve(steam::property_count);
  for (std::size_t i = 0; i < steam::property_count; ++i) {
    all.push_back(static_cast<steam::Property>(i));
  }
  return all;
}

std::optional<steam::Property> property_named(std::string_view name) {
  if (const auto exact = first_that([&](const auto& info) { return info.letter == name; })) {
    return exact;
  }
  for (const Item& item : items) {
    if (equal_but_for_case(item.item, name)) {
      return item.property;
    }
  }
  return first_that([&](const auto& info) {
    return equal_but_for_case(info.letter, name) || equal_but_for_case(info.name, name);
  });
}

std::vector<steam::Property> parse_list(std::string_view list) {
  std::vector<steam::Property> properties;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find_first_of(",. "), list.size());
    const auto property = property_named(list.substr(0, end));
    if (!property) {
      throw Failure(wrong_usage, fmt::format("'{}' is no property; 'vek --help' lists them",
                                             list.substr(0, end)));
    }
    properties.push_back(*property);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return properties;
}

std::string property_help() {
  std::string text;
  for (const steam::Property property : all_properties()) {
    const auto info = steam::info(property);
    text +=
        fmt::format("  {:<12}{}{}{}\n", info.letter, info.name, *info.unit ? ", " : "", info.unit);
  }
  return text;
}

}  // namespace command
