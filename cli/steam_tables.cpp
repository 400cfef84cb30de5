#include "steam_tables.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "failure.hpp"
#include "given.hpp"
#include "sheet.hpp"

namespace command {
namespace {

using steam::Pair;
using steam::Property;
using Row = std::vector<std::string>;

constexpr std::array shown{Property::v, Property::h, Property::s};

/// What a property's cells look like.
struct Cells {
  Property property;
  Unit unit;
  [[nodiscard]] std::string operator()(double value) const;
  /// Of a value that the user chose: without zeros at the end.
  [[nodiscard]] std::string chosen(double value) const;
};

/// With at most so many decimals, and no sign before a zero.
std::string fixed(double number, int decimals) {
  std::string text = fmt::format("{:.{}f}", number, std::max(decimals, 0));
  if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos) {
    text.erase(0, 1);
  }
  return text;
}

/// Printed tables have enthalpies to 0.1 kJ/kg and entropies to 0.0001 kJ/(kg K), volumes to
/// 1e-7 m³/kg or five digits, the others five digits; in other units of that size it is the same.
std::string Cells::operator()(double value) const {
  const double number = unit.from_base(value);
  const auto magnitude = static_cast<int>(std::log10(unit.from_base.slope));
  std::string digits = significant(number, 5);
  switch (property) {
    case Property::h:
      return fixed(number, 1 - magnitude);
    case Property::s:
      return fixed(number, 4 - magnitude);
    case Property::v:
      return std::min(digits, fixed(number, 7 - magnitude),
                      [](const auto& a, const auto& b) { return a.size() < b.size(); });
    default:
      return digits;
  }
}

std::string Cells::chosen(double value) const {
  std::string number = (*this)(value);
  if (number.find('.') != std::string::npos) {
    number.erase(number.find_last_not_of('0') + 1);
    number.erase(number.find_last_not_of('.') + 1);
  }
  return number;
}

Cells cells_of(Property property, const Units& units) { return {property, units.of(property)}; }

PrintedTable::Column column(const Cells& cells, const std::string& mark = {}) {
  return {steam::info(cells.property).letter + mark, cells.unit.name};
}

/// A table with its columns set.
PrintedTable table(std::string title, const Units& units, std::vector<PrintedTable::Block> blocks) {
  std::string line;
  for (const Property property :
       {Property::p, Property::t, Property::v, Property::h, Property::s}) {
    line += fmt::format("{}{} in {}", line.empty() ? "" : ", ", steam::info(property).letter,
                        units.of(property).name);
  }
  PrintedTable made{std::move(title), std::move(line), std::move(blocks)};
  fit(made);
  return made;
}

std::vector<double> values(const Given& given, const Units& units) {
  (void)state_or_failure(given, units);
  std::vector<double> out(shown.size());
  steam::values(given.pair, given.first, given.second, shown, out);
  return out;
}

Row cells(const std::vector<double>& of, const Units& units) {
  Row row;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    row.push_back(cells_of(shown[i], units)(of[i]));
  }
  return row;
}

void append(Row& row, const Row& more) { row.insert(row.end(), more.begin(), more.end()); }

bool has_saturation(double p) { return p <= steam::limits().p_critical; }

std::string pressure_head(double p, const Units& units) {
  const Cells pressure = cells_of(Property::p, units), temperature = cells_of(Property::t, units);
  std::string head = fmt::format("{} {}", pressure.chosen(p), pressure.unit.name);
  if (has_saturation(p)) {
    const double t = steam::value(Pair::px, p, 0, Property::t);
    head += fmt::format(" ({} {})", temperature(t), temperature.unit.name);
  }
  return head;
}

/// The states of one temperature, or saturated ones, at each pressure.
template <class GivenAt>
Row row_over(const std::string& name, const std::vector<double>& pressures, const Units& units,
             const GivenAt& given_at) {
  Row row{name};
  for (const double p : pressures) {
    const Given given = given_at(p);
    const bool exists = given.pair == Pair::pt || has_saturation(p);
    append(row, exists ? cells(values(given, units), units) : Row(shown.size(), "-"));
  }
  return row;
}

PrintedTable::Block block_of(const std::vector<double>& pressures,
                             const std::vector<double>& temperatures, const Units& units) {
  const Cells temperature = cells_of(Property::t, units);
  PrintedTable::Block block{{{"", 1}}, {column(temperature)}, {}, 2};
  for (const double p : pressures) {
    block.groups.push_back({pressure_head(p, units), shown.size()});
    for (const Property property : shown) {
      block.columns.push_back(column(cells_of(property, units)));
    }
  }
  const auto saturated = [](double x) { return [x](double p) { return Given{Pair::px, p, x}; }; };
  block.rows = {row_over("sat.liq.", pressures, units, saturated(0)),
                row_over("sat.vap.", pressures, units, saturated(1))};
  for (const double t : temperatures) {
    block.rows.push_back(row_over(temperature.chosen(t), pressures, units, [t](double p) {
      return Given{Pair::pt, p, t};
    }));
  }
  return block;
}

/// The states of an isobar, the saturated ones where they belong.
std::vector<Given> states_at(double p, const std::vector<double>& temperatures) {
  std::vector<Given> states;
  for (const double t : temperatures) {
    states.push_back({Pair::pt, p, t});
  }
  if (has_saturation(p)) {
    const double saturation = steam::value(Pair::px, p, 0, Property::t);
    const auto place = std::find_if(states.begin(), states.end(),
                                    [&](const Given& given) { return given.second >= saturation; });
    states.insert(place, {{Pair::px, p, 0}, {Pair::px, p, 1}});
  }
  return states;
}

Row list_row(const Given& given, const Units& units) {
  const Cells pressure = cells_of(Property::p, units), temperature = cells_of(Property::t, units);
  const steam::State state = state_or_failure(given, units);
  const bool saturated = given.pair == Pair::px;
  const char* const phase = !saturated          ? state.phase()
                            : given.second == 0 ? "saturated water"
                                                : "saturated steam";
  Row row{pressure.chosen(given.first),
          saturated ? temperature(state.t) : temperature.chosen(state.t), phase};
  append(row, cells(values(given, units), units));
  return row;
}

}  // namespace

PrintedTable saturation_table(Property by, const std::vector<double>& list, const Units& units) {
  const bool by_pressure = by == Property::p;
  const Property other = by_pressure ? Property::t : Property::p;
  const Cells first = cells_of(by, units), second = cells_of(other, units);
  const Cells v = cells_of(Property::v, units), h = cells_of(Property::h, units),
              s = cells_of(Property::s, units);
  PrintedTable::Block block;
  block.columns = {column(first),   column(second), column(v, "'"), column(v, "\""), column(h, "'"),
                   column(h, "\""), column(h),      column(s, "'"), column(s, "\"")};
  block.columns[6].name.assign(1, 'r');
  for (const double value : list) {
    const Pair pair = by_pressure ? Pair::px : Pair::tx;
    const auto liquid = values({pair, value, 0}, units), vapour = values({pair, value, 1}, units);
    block.rows.push_back({first.chosen(value), second(steam::value(pair, value, 0, other)),
                          v(liquid[0]), v(vapour[0]), h(liquid[1]), h(vapour[1]),
                          h(vapour[1] - liquid[1]), s(liquid[2]), s(vapour[2])});
  }
  return table(fmt::format("Saturation, by {}", steam::info(by).name), units, {block});
}

PrintedTable water_steam_table(const Grid& grid, std::size_t pressures_beside, const Units& units) {
  std::vector<PrintedTable::Block> blocks;
  for (std::size_t i = 0; i < grid.pressures.size(); i += pressures_beside) {
    const auto begin = grid.pressures.begin() + static_cast<std::ptrdiff_t>(i);
    const std::size_t count = std::min(pressures_beside, grid.pressures.size() - i);
    blocks.push_back(
        block_of({begin, begin + static_cast<std::ptrdiff_t>(count)}, grid.temperatures, units));
  }
  return table("Water and steam", units, std::move(blocks));
}

PrintedTable water_steam_list(const Grid& grid, const Units& units) {
  PrintedTable::Block block;
  block.columns = {
      column(cells_of(Property::p, units)), column(cells_of(Property::t, units)), {"phase", ""}};
  for (const Property property : shown) {
    block.columns.push_back(column(cells_of(property, units)));
  }
  for (const double p : grid.pressures) {
    for (const Given& given : states_at(p, grid.temperatures)) {
      block.rows.push_back(list_row(given, units));
    }
  }
  return table("Water and steam", units, {block});
}

}  // namespace command
