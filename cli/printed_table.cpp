#include "printed_table.hpp"

#include <fmt/core.h>

#include <algorithm>

#include "csv.hpp"

namespace command {
namespace {

using Block = PrintedTable::Block;
using Column = PrintedTable::Column;

std::string label(const Column& column) {
  return column.unit.empty() ? column.name : fmt::format("{} [{}]", column.name, column.unit);
}

/// A line of cells, each to the right of its width.
template <class CellOf>
std::string line(const Block& block, const CellOf& cell_of) {
  std::string text;
  for (std::size_t i = 0; i < block.columns.size(); ++i) {
    text += fmt::format("{:>{}}", cell_of(i), block.columns[i].width);
  }
  return text.erase(text.find_last_not_of(' ') + 1) + '\n';
}

std::string group_line(const Block& block) {
  std::string text;
  std::size_t column = 0;
  for (const PrintedTable::Group& group : block.groups) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < group.columns; ++i) {
      width += block.columns[column++].width;
    }
    text += fmt::format("{:>{}}", group.head, width);
  }
  return text + '\n';
}

std::size_t width_of(const Block& block) {
  std::size_t width = 0;
  for (const Column& column : block.columns) {
    width += column.width;
  }
  return width;
}

std::string text_of(const Block& block) {
  const std::string rule = std::string(width_of(block), '-') + '\n';
  std::string text = block.groups.empty() ? "" : group_line(block);
  text += line(block, [&](std::size_t i) { return block.columns[i].name; }) + rule;
  for (std::size_t row = 0; row < block.rows.size(); ++row) {
    text += row > 0 && row == block.head_rows ? rule : "";
    text += line(block, [&](std::size_t i) { return block.rows[row][i]; });
  }
  return text;
}

}  // namespace

void fit(PrintedTable& table) {
  for (Block& block : table.blocks) {
    for (std::size_t i = 0; i < block.columns.size(); ++i) {
      std::size_t& width = block.columns[i].width;
      width = block.columns[i].name.size() + (i > 0 ? 1 : 0);
      for (const std::vector<std::string>& row : block.rows) {
        width = std::max(width, row[i].size() + (i > 0 ? 1 : 0));
      }
    }
  }
}

std::string as_text(const PrintedTable& table) {
  std::string text = table.title + '\n' + table.units + '\n';
  for (const Block& block : table.blocks) {
    text += '\n' + text_of(block);
  }
  return text;
}

std::string as_csv(const PrintedTable& table) {
  const Csv csv;
  std::string text;
  for (const Block& block : table.blocks) {
    for (const Column& column : block.columns) {
      text +=
          fmt::format("{}{}", &column == block.columns.data() ? "" : ",", csv.field(label(column)));
    }
    text += '\n';
    for (const std::vector<std::string>& row : block.rows) {
      for (const std::string& cell : row) {
        text += fmt::format("{}{}", &cell == row.data() ? "" : ",", csv.field(cell));
      }
      text += '\n';
    }
  }
  return text;
}

std::string as_markdown(const PrintedTable& table) {
  std::string text = fmt::format("# {}\n", table.title);
  for (const Block& block : table.blocks) {
    std::string heads, rule;
    for (const Column& column : block.columns) {
      heads += fmt::format("| {} ", label(column));
      rule += "|--:";
    }
    text += fmt::format("\n{}|\n{}|\n", heads, rule);
    for (const std::vector<std::string>& row : block.rows) {
      for (const std::string& cell : row) {
        text += fmt::format("| {} ", cell);
      }
      text += "|\n";
    }
  }
  return text;
}

}  // namespace command
