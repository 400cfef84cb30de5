#include "classic_sheet.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "classic_answer.hpp"
#include "failure.hpp"
#include "output.hpp"
#include "state_sheet.hpp"

namespace command {
namespace {

using steam::Property;

/// The module stops searching at 1e-8, mostly of the given value; what it then finds is this near.
constexpr double tolerance = 1e-6;

/// The size below which a difference counts as of a value of that size: the zeros of temperature,
/// enthalpy and entropy are conventions.
double size_of(Property property, double value) {
  const std::string_view unit = steam::info(property).unit;
  const double least = unit == "°C" || unit == "kJ/kg"       ? 100
                       : unit == "kJ/(kg K)" || unit.empty() ? 1
                                                             : 0;
  return std::max(std::abs(value), least);
}

/// What only one of them has, such as the quality of water, is no difference.
bool differ(Property property, double engine, double module) {
  return std::abs(engine - module) > tolerance * size_of(property, engine);
}

ClassicAnswer answer_or_failure(const Given& given) {
  ClassicAnswer answer = ask_classic(given);
  if (!answer.is_placed) {
    tell(answer.diagnostics);
    throw Failure(no_answer,
                  fmt::format("the classic module places no state; error flag {}", answer.flag));
  }
  return answer;
}

std::string flag_in_words(int flag) {
  return fmt::format("error flag {}: {}", flag,
                     flag == 0   ? "nothing went wrong"
                     : flag == 1 ? "a floating-point fault, or an argument out of its domain"
                                 : "a diagnostic was written");
}

/// The properties to show and where the module's answer has each.
std::vector<std::size_t> places_of(const std::vector<Property>& wanted) {
  const std::vector<Property> all = classic_properties();
  std::vector<std::size_t> places;
  for (const Property property : wanted.empty() ? all : wanted) {
    const auto found = std::find(all.begin(), all.end(), property);
    if (found == all.end()) {
      throw Failure(wrong_usage,
                    fmt::format("the classic module has no {}", steam::info(property).name));
    }
    places.push_back(static_cast<std::size_t>(found - all.begin()));
  }
  return places;
}

/// Where the engine finds no state it has no values.
std::vector<double> engine_values(const Given& given) {
  const std::vector<Property> all = classic_properties();
  std::vector<double> values(all.size());
  steam::values(given.pair, given.first, given.second, all, values);
  return values;
}

const char* phase_of(const ClassicAnswer& answer) {
  return vek_steam_phase_name(answer.region, answer.values[0], answer.values[1]);
}

Sheet::Row compared(Property property, double engine, double module, const Units& units) {
  Sheet::Row row = row_of(property, units, {engine, module});
  row.values.push_back(row.values[1] - row.values[0]);
  return row;
}

}  // namespace

ClassicSheet classic_sheet(const Given& given, const std::vector<Property>& wanted,
                           const Units& units) {
  const std::vector<std::size_t> places = places_of(wanted);
  const ClassicAnswer answer = answer_or_failure(given);
  tell(answer.diagnostics);
  Sheet sheet{fmt::format("{} (classic module)", phase_of(answer)), {{"", "value"}}, {}, {}};
  const std::vector<Property> all = classic_properties();
  for (const std::size_t i : places) {
    sheet.rows.push_back(row_of(all[i], units, {answer.values[i]}));
  }
  if (wanted.empty()) {
    sheet.rows.push_back(row_of(Property::region, units, {static_cast<double>(answer.region)}));
  }
  sheet.notes.push_back(flag_in_words(answer.flag));
  return {sheet, answer.flag == 0};
}

ClassicSheet comparison(const Given& given, const std::vector<Property>& wanted,
                        const Units& units) {
  const std::vector<std::size_t> places = places_of(wanted);
  const ClassicAnswer answer = answer_or_failure(given);
  const std::vector<double> engine = engine_values(given);
  const std::vector<Property> all = classic_properties();
  Sheet sheet{"",
              {{"engine", "value"}, {"classic\nmodule", "classic"}, {"difference", "difference"}},
              {},
              {flag_in_words(answer.flag)}};
  std::string differing;
  for (const std::size_t i : places) {
    sheet.rows.push_back(compared(all[i], engine[i], answer.values[i], units));
    if (differ(all[i], engine[i], answer.values[i])) {
      differing += (differing.empty() ? "" : ", ") + std::string(steam::info(all[i]).letter);
    }
  }
  const steam::Result result = steam::state(given.pair, given.first, given.second);
  sheet.title = !result ? "the engine finds no state: " + text(result.refusal(), units)
                : differing.empty()
                    ? fmt::format("engine and classic module agree to {}", tolerance)
                    : "engine and classic module differ in " + differing;
  return {sheet, result && differing.empty()};
}

}  // namespace command
