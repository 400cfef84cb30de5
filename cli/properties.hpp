#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vek/steam.hpp"

namespace command {

/// All properties of the engine, in its order.
std::vector<steam::Property> all_properties();

/// @param name  letter, name or item of the classic module; capitals do not matter where no other
///              property has the same letters
std::optional<steam::Property> property_named(std::string_view name);

/// @param list  separated by commas, points or blanks
/// @outside     throws Failure
std::vector<steam::Property> parse_list(std::string_view list);

/// Letters and names of all properties, in columns for a help text.
std::string property_help();

bool equal_but_for_case(std::string_view a, std::string_view b);

}  // namespace command
