#pragma once

#include "given.hpp"
#include "sheet.hpp"

namespace command {

/// The row of a property, in its unit, from values in the engine's.
Sheet::Row row_of(steam::Property property, const Units& units, std::vector<double> values);

/// One of the states of a pair.
/// @param number  in the order of `steam::states`
/// @param wanted  empty: all that the state has
Sheet sheet_of(const steam::State& state, std::size_t number, const Given& given,
               const std::vector<steam::Property>& wanted, const Units& units);

}  // namespace command
