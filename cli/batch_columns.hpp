#pragma once

#include <string>
#include <vector>

#include "csv.hpp"
#include "units.hpp"

namespace command {

/// One known property in a file.
struct KnownColumn {
  steam::Property property{};
  std::string name{};  ///< as asked for: of a column, or its number from 1; empty: by the property
  std::size_t place = 0;  ///< from 0; at first where it is expected without a header
  Unit unit{};
};

/// Which columns of a file are read, and what is appended to its rows.
struct BatchColumns {
  Csv csv{};
  steam::Pair pair{};
  KnownColumn first{}, second{};  ///< in the pair's order
  std::vector<steam::Property> wanted{};
  std::vector<Unit> wanted_units{};
  std::size_t count = 0;  ///< fields of each row
  char decimal = '.';     ///< in numbers
  bool has_header = false;
};

/// Finds the columns from the first record of the file. A file without a header begins with two
/// numbers. A unit in the name of a column, as in "p [psi]" or "t_K", is that of its property.
/// @outside  throws Failure when a column is not there
void find_columns(BatchColumns& columns, std::string_view record, Units& units);

/// What is appended to the header: ",h [kJ/kg],status".
std::string appended_names(const BatchColumns& columns);

}  // namespace command
