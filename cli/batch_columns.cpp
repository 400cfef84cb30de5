#include "batch_columns.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <cstring>

#include "amount.hpp"
#include "failure.hpp"
#include "properties.hpp"

namespace command {
namespace {

using Names = std::vector<std::string>;

/// The number of a column, from 0; none when the text is a name.
std::optional<std::size_t> place_in(const std::string& text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && end == text.data() + text.size() && number > 0;
  return is_number ? std::optional(number - 1) : std::nullopt;
}

bool is_number(std::string_view field) {
  try {
    parse_amount(field);
    return true;
  } catch (const Failure&) {
    return false;
  }
}

/// A column's name without its unit, and the unit: "p [psi]", "p (psi)", "p_psi".
struct Named {
  std::string_view name, unit;
  bool in_brackets;
};
Named parts_of(std::string_view column) {
  const std::size_t open = column.find_first_of("[(");
  if (open != std::string_view::npos && std::strchr("])", column.back())) {
    const std::size_t last = column.find_last_not_of(" _", open == 0 ? 0 : open - 1);
    return {column.substr(0, last + 1), column.substr(open + 1, column.size() - open - 2), true};
  }
  const std::size_t line = column.rfind('_');
  return line == std::string_view::npos
             ? Named{column, {}, false}
             : Named{column.substr(0, line), column.substr(line + 1), false};
}

bool is_named_after(std::string_view column, steam::Property property) {
  const steam::PropertyInfo info = steam::info(property);
  const auto is_property = [&](std::string_view name) {
    return equal_but_for_case(name, info.letter) || equal_but_for_case(name, info.name);
  };
  return is_property(column) || is_property(parts_of(column).name);
}

std::size_t place_named(const KnownColumn& known, const Names& names) {
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
    return known.name.empty() ? is_named_after(name, known.property) : name == known.name;
  });
  if (found == names.end()) {
    throw Failure(wrong_usage,
                  fmt::format("no column {} in the header: {}; name it by --first or --second",
                              known.name.empty() ? steam::info(known.property).letter : known.name,
                              fmt::join(names, ", ")));
  }
  return static_cast<std::size_t>(found - names.begin());
}

/// The unit in the name of a column is that of the property.
void read_unit(const KnownColumn& known, const Names& names, Units& units) {
  const Named column = parts_of(names[known.place]);
  const std::string unit(column.unit);
  if (!unit.empty() && Units::has(known.property, unit)) {
    units.assign(known.property, unit);
  } else if (column.in_brackets) {
    throw Failure(wrong_usage, fmt::format("column {}: '{}' is no unit of {}", names[known.place],
                                           unit, steam::info(known.property).name));
  }
}

void place(KnownColumn& known, const BatchColumns& columns, const Names& names, Units& units) {
  const auto number = known.name.empty() ? std::nullopt : place_in(known.name);
  known.place = number ? *number : columns.has_header ? place_named(known, names) : known.place;
  if (known.place >= columns.count) {
    throw Failure(wrong_usage,
                  fmt::format("there is no column {} among {}", known.place + 1, columns.count));
  }
  if (columns.has_header) {
    read_unit(known, names, units);
  }
  known.unit = units.of(known.property);
}

Names contents(const Csv& csv, std::string_view record) {
  std::vector<std::string_view> fields;
  csv.split(record.substr(0, record.size() - line_end_of(record).size()), fields);
  Names names;
  for (const std::string_view field : fields) {
    std::string buffer;
    names.emplace_back(content(field, buffer));
  }
  return names;
}

/// A file begins with a header unless there are numbers where known values are expected.
bool is_header(const BatchColumns& columns, const Names& names) {
  for (const KnownColumn* known : {&columns.first, &columns.second}) {
    const std::size_t place = place_in(known->name).value_or(known->place);
    const bool by_name = !known->name.empty() && !place_in(known->name);
    if (by_name || place >= names.size() || !is_number(names[place])) {
      return true;
    }
  }
  return false;
}

}  // namespace

void find_columns(BatchColumns& columns, std::string_view record, Units& units) {
  const Names names = contents(columns.csv, record);
  columns.count = names.size();
  columns.has_header = is_header(columns, names);
  place(columns.first, columns, names, units);
  place(columns.second, columns, names, units);
  for (const steam::Property property : columns.wanted) {
    columns.wanted_units.push_back(units.of(property));
  }
}

std::string appended_names(const BatchColumns& columns) {
  std::string names;
  for (std::size_t i = 0; i < columns.wanted.size(); ++i) {
    const std::string& unit = columns.wanted_units[i].name;
    names += columns.csv.delimiter;
    names += steam::info(columns.wanted[i]).letter;
    names += unit.empty() ? "" : fmt::format(" [{}]", unit);
  }
  return names + columns.csv.delimiter + "status";
}

}  // namespace command
