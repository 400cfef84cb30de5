#include "state_sheet.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "properties.hpp"

namespace command {
namespace {

using steam::Pair;
using steam::Property;

std::string amount(Property property, double value, const Units& units) {
  const Unit unit = units.of(property);
  return fmt::format("{:.7g}{}{}", unit.from_base(value), unit.name.empty() ? "" : " ", unit.name);
}

/// The notes of a state say it better.
bool is_said_in_notes(Property property) {
  const std::string_view letter = steam::info(property).letter;
  return letter == "several" || letter == "approximate";
}

std::vector<Property> properties_of_any_state() {
  std::vector<Property> all = all_properties();
  all.erase(std::remove_if(all.begin(), all.end(), is_said_in_notes), all.end());
  return all;
}

/// A pressure and a temperature beside the saturation line leave it open which phase was meant.
void note_saturation(const steam::State& state, const Given& given, const Units& units,
                     std::vector<std::string>& notes) {
  constexpr double as_near_as_typed = 1e-4;
  if (given.pair != Pair::pt) {
    return;
  }
  const double p = steam::value(Pair::tx, given.second, 0, Property::p);
  if (!(std::abs(given.first - p) <= as_near_as_typed * p)) {
    return;
  }
  notes.push_back(fmt::format(
      "{0} saturates at {1}; this is the {2}. For wet steam,\n"
      "      saturated water or vapour give a quality, as in: vek tx '{0}' 0.5",
      amount(Property::t, given.second, units), amount(Property::p, p, units), state.phase()));
}

std::vector<std::string> notes_of(const steam::State& state, const Given& given,
                                  const Units& units) {
  std::vector<std::string> notes;
  if (state.several) {
    const steam::PairInfo info = steam::info(given.pair);
    const bool has_t = info.first == Property::t || info.second == Property::t;
    notes.push_back(
        fmt::format("{} states have this pair; the first is that of the {}.\n"
                    "      --all shows all.",
                    steam::states(given.pair, given.first, given.second).size(),
                    has_t ? "lowest pressure" : "highest temperature"));
  }
  if (state.approximate) {
    notes.emplace_back(
        "the pair falls between two regions, whose equations do not quite\n"
        "      meet: this is the nearer state of their boundary.");
  }
  note_saturation(state, given, units, notes);
  return notes;
}

bool has_value(const Sheet::Row& row) {
  return std::any_of(row.values.begin(), row.values.end(), [](double v) { return !std::isnan(v); });
}

}  // namespace

Sheet::Row row_of(Property property, const Units& units, std::vector<double> values) {
  const Unit unit = units.of(property);
  for (double& value : values) {
    value = unit.from_base(value);
  }
  const steam::PropertyInfo info = steam::info(property);
  return {info.letter, info.name, unit.name, std::move(values), property == Property::region};
}

Sheet sheet_of(const steam::State& state, std::size_t number, const Given& given,
               const std::vector<Property>& wanted, const Units& units) {
  const bool wet = !std::isnan(state.x);
  const std::vector<Property> shown = wanted.empty() ? properties_of_any_state() : wanted;
  Sheet sheet{state.phase(), {{"", "value"}}, {}, notes_of(state, given, units)};
  std::vector<Side> sides{Side::whole};
  if (wet) {
    sheet.columns = {{"saturated\nliquid", "saturated_liquid"},
                     {"mixture", "value"},
                     {"saturated\nvapour", "saturated_vapour"}};
    sides = {Side::liquid, Side::whole, Side::vapour};
  }
  std::vector<std::vector<double>> columns;
  columns.reserve(sides.size());
  for (const Side side : sides) {
    columns.push_back(values_of_states(given, side, shown)[number]);
  }
  for (std::size_t i = 0; i < shown.size(); ++i) {
    std::vector<double> values;
    values.reserve(columns.size());
    for (const std::vector<double>& column : columns) {
      values.push_back(column[i]);
    }
    if (wet && !steam::info(shown[i]).in_one_phase) {
      values.front() = values.back() = steam::missing;  // only a mixture has it
    }
    const Sheet::Row row = row_of(shown[i], units, values);
    if (!wanted.empty() || has_value(row)) {
      sheet.rows.push_back(row);
    }
  }
  return sheet;
}

}  // namespace command
