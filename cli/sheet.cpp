#include "sheet.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace command {
namespace {

constexpr int printed_digits = 5;  // the printed steam tables have four to five

std::string number(const Sheet::Row& row, double value, const std::optional<int>& digits) {
  return row.is_count || !digits ? fmt::format("{}", value) : significant(value, *digits);
}

std::size_t places_before_point(const std::string& number) {
  return std::min(number.find_first_of(".e"), number.size());
}

/// Numbers of one column with their points below each other.
std::vector<std::string> column_text(const Sheet& sheet, std::size_t column, int digits) {
  std::vector<std::string> texts;
  std::size_t before = 0, width = sheet.columns.size() > 1 ? 11 : 0;
  for (const Sheet::Row& row : sheet.rows) {
    const double value = row.values[column];
    texts.push_back(std::isnan(value) ? "-" : number(row, value, digits));
    before = std::max(before, places_before_point(texts.back()));
  }
  if (sheet.columns.size() == 1) {
    for (std::string& text : texts) {
      text.insert(0, before - places_before_point(text), ' ');
      width = std::max(width, text.size());
    }
  }
  for (std::string& text : texts) {
    text = sheet.columns.size() == 1 ? fmt::format("{:<{}}", text, width)
                                     : fmt::format("{:>{}}", text, width);
  }
  return texts;
}

/// The two lines above several columns.
std::string heads(const Sheet& sheet, std::size_t width_before, std::size_t width) {
  std::string first(width_before, ' '), second = first;
  for (const Sheet::Column& column : sheet.columns) {
    const std::size_t end = column.head.find('\n');
    const bool two = end != std::string::npos;
    first += fmt::format(" {:>{}}", two ? column.head.substr(0, end) : "", width);
    second += fmt::format(" {:>{}}", two ? column.head.substr(end + 1) : column.head, width);
  }
  first.erase(first.find_last_not_of(' ') + 1);
  return first + '\n' + second + '\n';
}

std::string emphasised(const std::string& text, bool coloured) {
  return coloured ? fmt::format("\033[1m{}\033[0m", text) : text;
}

std::string table(const Sheet& sheet, const SheetFormat& format) {
  std::vector<std::vector<std::string>> columns;
  for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
    columns.push_back(column_text(sheet, i, format.digits.value_or(printed_digits)));
  }
  std::size_t letters = 0, names = 0;
  for (const Sheet::Row& row : sheet.rows) {
    letters = std::max(letters, row.letter.size());
    names = std::max(names, row.name.size());
  }
  const bool several = columns.size() > 1;
  std::string text = emphasised(sheet.title, format.coloured) + '\n';
  if (several) {
    text += heads(sheet, names + 1 + letters, columns[0].empty() ? 0 : columns[0][0].size());
  }
  for (std::size_t i = 0; i < sheet.rows.size(); ++i) {
    const Sheet::Row& row = sheet.rows[i];
    std::string line = fmt::format("{:<{}} {:<{}}", row.name, names, row.letter, letters);
    for (const auto& column : columns) {
      line += (several ? " " : "  ") + column[i];
    }
    line += fmt::format(" {}", row.unit);
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  for (const std::string& note : sheet.notes) {
    text += fmt::format("Note: {}\n", note);
  }
  return text;
}

std::string csv(const std::vector<Sheet>& sheets, const SheetFormat& format) {
  std::string text = "state,property,name,unit";
  std::vector<Sheet::Column> columns = sheets[0].columns;
  for (const Sheet& sheet : sheets) {
    columns = sheet.columns.size() > columns.size() ? sheet.columns : columns;
  }
  // What every state has comes first, so that a script finds it in one place.
  std::stable_partition(columns.begin(), columns.end(),
                        [](const Sheet::Column& column) { return column.key == "value"; });
  for (const Sheet::Column& column : columns) {
    text += ',' + column.key;
  }
  text += '\n';
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    for (const Sheet::Row& row : sheets[i].rows) {
      text += fmt::format("{},{},{},{}", i + 1, row.letter, row.name, row.unit);
      for (const Sheet::Column& column : columns) {
        text += ',';
        for (std::size_t k = 0; k < row.values.size(); ++k) {
          if (sheets[i].columns[k].key == column.key && !std::isnan(row.values[k])) {
            text += number(row, row.values[k], format.digits);
          }
        }
      }
      text += '\n';
    }
  }
  return text;
}

std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
    }
    out += c;
  }
  return out + '"';
}

std::string json_row(const Sheet& sheet, const Sheet::Row& row, const SheetFormat& format) {
  std::string text = fmt::format("      {}: {{\"name\": {}, \"unit\": {}", quoted(row.letter),
                                 quoted(row.name), quoted(row.unit));
  for (std::size_t i = 0; i < row.values.size(); ++i) {
    text +=
        fmt::format(", {}: {}", quoted(sheet.columns[i].key),
                    std::isnan(row.values[i]) ? "null" : number(row, row.values[i], format.digits));
  }
  return text + '}';
}

std::string json(const std::vector<Sheet>& sheets, const SheetFormat& format) {
  std::string text = "[";
  for (const Sheet& sheet : sheets) {
    text += fmt::format("{}\n  {{\n    \"title\": {},\n    \"properties\": {{",
                        text.size() > 1 ? "," : "", quoted(sheet.title));
    for (const Sheet::Row& row : sheet.rows) {
      text +=
          fmt::format("{}\n{}", &row == sheet.rows.data() ? "" : ",", json_row(sheet, row, format));
    }
    text += "\n    },\n    \"notes\": [";
    for (const std::string& note : sheet.notes) {
      text += fmt::format("{}{}", &note == sheet.notes.data() ? "" : ", ", quoted(note));
    }
    text += "]\n  }";
  }
  return text + "\n]\n";
}

}  // namespace

std::vector<std::string> sheet_formats() { return {"table", "csv", "json"}; }

std::string significant(double value, int digits) {
  if (value == 0 || !std::isfinite(value)) {
    return fmt::format("{}", value);
  }
  // The exponent after rounding: 9.99999 may become 10.000.
  const std::string scientific = fmt::format("{:.{}e}", value, digits - 1);
  const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
  if (exponent < -4 || exponent > 9) {
    return scientific;
  }
  return fmt::format("{:.{}f}", value, std::max(digits - 1 - exponent, 0));
}

std::string text(const std::vector<Sheet>& sheets, const SheetFormat& format) {
  if (format.name == "csv") {
    return csv(sheets, format);
  }
  if (format.name == "json") {
    return json(sheets, format);
  }
  std::string all;
  for (const Sheet& sheet : sheets) {
    all += fmt::format("{}{}", all.empty() ? "" : "\n", table(sheet, format));
  }
  return all;
}

}  // namespace command
