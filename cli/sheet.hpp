#pragma once

#include <optional>
#include <string>
#include <vector>

namespace command {

/// What a state is shown as: a row for each property, with one value or one for each of some
/// columns. Values that do not exist are NaN.
struct Sheet {
  struct Column {
    std::string head;  ///< for a person, in two lines: "saturated\nliquid"
    std::string key;   ///< for a program
  };
  struct Row {
    std::string letter, name, unit;
    std::vector<double> values;
    bool is_count = false;  ///< such as the number of a region
  };
  std::string title;
  std::vector<Column> columns;
  std::vector<Row> rows;
  std::vector<std::string> notes;
};

/// How sheets are printed.
struct SheetFormat {
  std::string name = "table";   ///< or "csv", "json"
  std::optional<int> digits{};  ///< significant ones; none: those of printed tables, or all in csv
                                ///< and json
  bool coloured = false;
};

std::vector<std::string> sheet_formats();

/// @return  the text of all sheets
std::string text(const std::vector<Sheet>& sheets, const SheetFormat& format);

/// A number with as many significant digits, and no exponent where it can be read without.
std::string significant(double value, int digits);

}  // namespace command
