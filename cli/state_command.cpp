#include "state_command.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "classic_sheet.hpp"
#include "failure.hpp"
#include "output.hpp"
#include "properties.hpp"
#include "state_sheet.hpp"
#include "unit_options.hpp"

namespace command {
namespace {

/// What `vek PAIR A B [LIST]` was asked.
struct StateOptions {
  steam::Pair pair{};
  std::string first, second;      ///< in the pair's order
  std::vector<std::string> list;  ///< empty: everything
  UnitOptions units{};
  SheetFormat format{};
  bool all = false, classic = false, compare = false;
};

double read(const Units& units, steam::Property property, const std::string& text) {
  try {
    return units.read(property, text);
  } catch (const Failure& failure) {
    throw Failure(failure.status(),
                  fmt::format("{}: {}", steam::info(property).name, failure.what()));
  }
}

Given given_of(const StateOptions& options, const Units& units) {
  const steam::PairInfo info = steam::info(options.pair);
  return {options.pair, read(units, info.first, options.first),
          read(units, info.second, options.second)};
}

std::vector<Sheet> sheets_of(const StateOptions& options, const Given& given,
                             const std::vector<steam::Property>& wanted, const Units& units) {
  std::vector<Sheet> sheets;
  const steam::State first = state_or_failure(given, units);
  if (!options.all) {
    return {sheet_of(first, 0, given, wanted, units)};
  }
  const steam::Results states = steam::states(given.pair, given.first, given.second);
  for (const steam::State& state : states) {
    Sheet sheet = sheet_of(state, sheets.size(), given, wanted, units);
    if (states.size() > 1) {
      sheet.notes.erase(sheet.notes.begin());  // that there are several
      sheet.title = fmt::format("{} ({} of {})", sheet.title, sheets.size() + 1, states.size());
    }
    sheets.push_back(sheet);
  }
  return sheets;
}

int show(StateOptions options) {
  const Units units(options.units);
  const std::vector<steam::Property> wanted =
      parse_list(fmt::format("{}", fmt::join(options.list, ",")));
  const Given given = given_of(options, units);
  options.format.coloured = is_coloured(STDOUT_FILENO);
  if (options.classic || options.compare) {
    const auto& [sheet, good] =
        (options.compare ? comparison : classic_sheet)(given, wanted, units);
    print(text({sheet}, options.format));
    return good ? success : no_answer;
  }
  print(text(sheets_of(options, given, wanted, units), options.format));
  return success;
}

std::string upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return std::toupper(c); });
  return text;
}

/// What a value is and which are possible: "pressure, 0.006112444 to 1000 bar".
std::string range_text(steam::Property property, double lowest, double highest) {
  const steam::PropertyInfo info = steam::info(property);
  return fmt::format("{}, {:.7g} to {:.7g}{}{}", info.name, lowest, highest, *info.unit ? " " : "",
                     info.unit);
}

void add_output_options(CLI::App& app, StateOptions& options) {
  app.add_option("--format", options.format.name, "of the output")
      ->check(CLI::IsMember(sheet_formats()))
      ->capture_default_str()
      ->group("Output");
  app.add_option("--digits", options.format.digits, "significant digits; 17 lose nothing")
      ->check(CLI::Range(1, 17))
      ->type_name("N")
      ->group("Output");
  app.add_flag("--all", options.all, "all states where the pair has several")->group("Output");
  auto* const classic =
      app.add_flag("--classic", options.classic, "ask the classic module, show its diagnostics")
          ->group("Classic module");
  app.add_flag("--compare", options.compare, "compare with the classic module; 1 if they differ")
      ->excludes(classic)
      ->group("Classic module");
}

/// One pair in one of its orders.
/// @param turned  the second property of the pair is given first
void define_pair(CLI::App& app, Run& run, steam::Pair pair, bool turned) {
  const steam::PairInfo info = steam::info(pair);
  std::string letters = info.letters;
  if (turned) {
    std::reverse(letters.begin(), letters.end());
  }
  const auto options = std::make_shared<StateOptions>();
  options->pair = pair;
  CLI::App& sub = *app.add_subcommand(
      letters,
      fmt::format("{} and {}", steam::info(info.first).name, steam::info(info.second).name));
  sub.ignore_case();
  sub.group(turned ? "" : "State from two known properties, vek PAIR A B [LIST]");
  const auto add_value = [&](steam::Property property, std::string& text, double lowest,
                             double highest) {
    sub.add_option(upper(steam::info(property).letter), text, range_text(property, lowest, highest))
        ->type_name("")
        ->required();
  };
  if (turned) {
    add_value(info.second, options->second, info.second_lowest, info.second_highest);
  }
  add_value(info.first, options->first, info.first_lowest, info.first_highest);
  if (!turned) {
    add_value(info.second, options->second, info.second_lowest, info.second_highest);
  }
  sub.add_option("LIST", options->list, "properties, such as t,s,cp; all when left out")
      ->type_name("");
  add_unit_options(sub, options->units);
  add_output_options(sub, *options);
  sub.footer("Values may carry a unit, as in 145psi or 212F. 'vek --help' lists properties.");
  sub.callback([&run, options] { run = [options] { return show(*options); }; });
}

}  // namespace

void define_states(CLI::App& app, Run& run) {
  for (const steam::Pair pair : all_pairs()) {
    define_pair(app, run, pair, false);
    define_pair(app, run, pair, true);
  }
}

}  // namespace command
