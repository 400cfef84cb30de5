#pragma once

#include <string>
#include <vector>

namespace command {

/// A table as it is printed: blocks of rows below heads. Every cell is text already.
struct PrintedTable {
  struct Column {
    std::string name, unit;
    std::size_t width = 0;  ///< characters, with the blank before it; set by `fit`
  };
  /// A head over some columns, such as the pressure of a group.
  struct Group {
    std::string head;
    std::size_t columns;
  };
  struct Block {
    std::vector<Group> groups{};  ///< none, or one for all columns in their order
    std::vector<Column> columns{};
    std::vector<std::vector<std::string>> rows{};
    std::size_t head_rows = 0;  ///< the first rows, apart from the others by a rule
  };
  std::string title;
  std::string units;  ///< of all columns, in a line
  std::vector<Block> blocks{};
};

/// Makes each column as wide as its cells.
void fit(PrintedTable& table);

std::string as_text(const PrintedTable& table);
std::string as_csv(const PrintedTable& table);
std::string as_markdown(const PrintedTable& table);
/// Pages of A4.
std::string as_pdf(const PrintedTable& table);

}  // namespace command
