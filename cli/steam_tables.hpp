#pragma once

#include <vector>

#include "printed_table.hpp"
#include "units.hpp"

namespace command {

/// Saturated water and steam, with the digits of printed tables.
/// @param by      pressure or temperature, which stands first
/// @param values  of it, in the engine's unit
/// @outside       throws Failure
PrintedTable saturation_table(steam::Property by, const std::vector<double>& values,
                              const Units& units);

/// Which rows a table of water and superheated steam has.
struct Grid {
  std::vector<double> pressures, temperatures;  ///< bar, °C
};

/// In columns for some pressures side by side; above them the saturated states of each.
PrintedTable water_steam_table(const Grid& grid, std::size_t pressures_beside, const Units& units);

/// As a list, one state in each row, the saturated ones where they belong.
PrintedTable water_steam_list(const Grid& grid, const Units& units);

}  // namespace command
