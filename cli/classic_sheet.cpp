#include "classic_sheet.hpp"

#include <fmt/core.h>

#include <algorithm>

#include "comparison/classic_answer.hpp"
#include "failure.hpp"
#include "output.hpp"
#include "state_sheet.hpp"

namespace command {
namespace {

using ::comparison::Answer, ::comparison::classic_properties;
using steam::Property;

Answer answer_or_failure(const Given& given) {
  if (!::comparison::finder_of(given.pair)) {
    throw Failure(wrong_usage, fmt::format("the classic module has no finder for {}",
                                           steam::info(given.pair).letters));
  }
  Answer answer = ::comparison::compare(given.pair, given.first, given.second, 0);
  constexpr int nowhere = 7;
  if (answer.region == nowhere) {
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

/// What the first line of a comparison says.
std::string verdict(const Answer& both, const std::vector<std::size_t>& places) {
  const std::vector<Property> all = classic_properties();
  std::string letters;
  for (const std::size_t i : places) {
    if (both.differs[i] != 0) {
      letters += (letters.empty() ? "" : ", ") + std::string(steam::info(all[i]).letter);
    }
  }
  if (!letters.empty()) {
    return "engine and classic module differ in " + letters;
  }
  return both.within_tolerance != 0
             ? fmt::format(
                   "engine and classic module agree to the module's tolerance, {} of the "
                   "given values",
                   VEK_STEAM_MODULE_TOLERANCE)
             : fmt::format("engine and classic module agree to {}", VEK_STEAM_SAME_TO);
}

const char* phase_of(const Answer& answer) {
  return vek_steam_phase_name(answer.region, answer.module[0], answer.module[1]);
}

/// The difference of what is shown, in its units.
Sheet::Row compared(Property property, double engine, double module, const Units& units) {
  Sheet::Row row = row_of(property, units, {engine, module});
  row.values.push_back(row.values[1] - row.values[0]);
  return row;
}

}  // namespace

ClassicSheet classic_sheet(const Given& given, const std::vector<Property>& wanted,
                           const Units& units) {
  const std::vector<std::size_t> places = places_of(wanted);
  const Answer answer = answer_or_failure(given);
  tell(answer.diagnostics);
  Sheet sheet{fmt::format("{} (classic module)", phase_of(answer)), {{"", "value"}}, {}, {}};
  const std::vector<Property> all = classic_properties();
  for (const std::size_t i : places) {
    sheet.rows.push_back(row_of(all[i], units, {answer.module[i]}));
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
  const Answer both = answer_or_failure(given);
  const std::vector<Property> all = classic_properties();
  Sheet sheet{verdict(both, places),
              {{"engine", "value"}, {"classic\nmodule", "classic"}, {"difference", "difference"}},
              {},
              {flag_in_words(both.flag)}};
  bool same = true;
  for (const std::size_t i : places) {
    sheet.rows.push_back(compared(all[i], both.engine[i], both.module[i], units));
    same = same && both.differs[i] == 0;
  }
  if (both.number > 1) {
    sheet.notes.push_back(fmt::format("{} states have this pair; the module's is number {}",
                                      both.states, both.number));
  }
  if (both.number == 0) {
    const steam::Result result = steam::state(given.pair, given.first, given.second);
    sheet.title = "the engine finds no state: " + text(result.refusal(), units);
  }
  return {sheet, same};
}

}  // namespace command
