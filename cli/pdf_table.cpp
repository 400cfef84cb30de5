#include <fmt/core.h>

#include <algorithm>
#include <vector>

#include "pdf.hpp"
#include "printed_table.hpp"

namespace command {
namespace {

using Block = PrintedTable::Block;

constexpr double margin = 50, size = 8.5, line_height = 11.5;
constexpr double line_width = Pdf::width - 2 * margin;
constexpr double widest = 6.5;  // for one character, where a table is narrow

/// The right ends of a block's columns, which share the width of the page.
std::vector<double> right_ends(const Block& block) {
  double characters = 0;
  for (const auto& column : block.columns) {
    characters += static_cast<double>(column.width);
  }
  const double one = std::min(line_width / characters, widest);
  std::vector<double> ends;
  double end = margin;
  for (const auto& column : block.columns) {
    ends.push_back(end += static_cast<double>(column.width) * one);
  }
  return ends;
}

/// Writes blocks down the pages.
class Pages {
 public:
  explicit Pages(const PrintedTable& table) : table_(table) {}

  std::string file() {
    new_page();
    for (const Block& block : table_.blocks) {
      add(block);
    }
    return pdf_.file(table_.title);
  }

 private:
  void new_page() {
    pdf_.add_page();
    ++number_;
    y_ = Pdf::height - margin;
    pdf_.text(margin, y_, 11, table_.title, true);
    pdf_.text_before(Pdf::width - margin, y_, size, table_.units);
    pdf_.text_before(Pdf::width - margin, margin / 2, size, fmt::format("{}", number_));
    y_ -= 2 * line_height;
  }

  [[nodiscard]] bool has_room(std::size_t lines) const {
    return y_ - static_cast<double>(lines) * line_height > margin;
  }

  void rule(const Block& block) {
    pdf_.rule(margin, right_ends(block).back(), y_ + line_height - 3);
    y_ -= 2;
  }

  template <class CellOf>
  void line(const Block& block, bool bold, const CellOf& cell_of) {
    const std::vector<double> ends = right_ends(block);
    for (std::size_t i = 0; i < ends.size(); ++i) {
      pdf_.text_before(ends[i], y_, size, cell_of(i), bold);
    }
    y_ -= line_height;
  }

  void group_line(const Block& block) {
    const std::vector<double> ends = right_ends(block);
    std::size_t columns = 0;
    for (const auto& group : block.groups) {
      columns += group.columns;
      pdf_.text_before(ends[columns - 1], y_, size, group.head, true);
    }
    y_ -= line_height;
  }

  void heads(const Block& block) {
    if (!block.groups.empty()) {
      group_line(block);
    }
    line(block, true, [&](std::size_t i) { return block.columns[i].name; });
    rule(block);
  }

  void add(const Block& block) {
    constexpr std::size_t fewest_rows = 8;  // below heads at the foot of a page
    if (!has_room(fewest_rows)) {
      new_page();
    }
    heads(block);
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
      if (!has_room(1)) {
        new_page();
        heads(block);
      }
      if (row > 0 && row == block.head_rows) {
        rule(block);
      }
      line(block, false, [&](std::size_t i) { return block.rows[row][i]; });
    }
    y_ -= line_height;
  }

  const PrintedTable& table_;
  Pdf pdf_;
  int number_ = 0;
  double y_ = 0;
};

}  // namespace

std::string as_pdf(const PrintedTable& table) { return Pages(table).file(); }

}  // namespace command
