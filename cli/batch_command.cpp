#include "batch_command.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <memory>

#include "batch.hpp"
#include "failure.hpp"
#include "given.hpp"
#include "output.hpp"
#include "properties.hpp"
#include "unit_options.hpp"

namespace command {
namespace {

/// What was typed, before it is understood.
struct Typed {
  std::string pair, first, second, list, delimiter = "comma", decimal = "point";
  BatchOptions options{};
};

/// The pair and, for each of its properties, the column that was named for it.
void set_pair(const Typed& typed, BatchColumns& columns) {
  for (const steam::Pair pair : all_pairs()) {
    const steam::PairInfo info = steam::info(pair);
    const std::string letters = info.letters, turned(letters.rbegin(), letters.rend());
    const bool is_turned = equal_but_for_case(typed.pair, turned);
    if (is_turned || equal_but_for_case(typed.pair, letters)) {
      columns.pair = pair;
      columns.first = {info.first, typed.first, 0};
      columns.second = {info.second, typed.second, 1};
      if (is_turned) {
        std::swap(columns.first.name, columns.second.name);
        std::swap(columns.first.place, columns.second.place);
      }
      return;
    }
  }
  throw Failure(wrong_usage,
                fmt::format("'{}' is no pair of properties; 'vek --help' lists them", typed.pair));
}

/// Without a list those that another pair may be made of.
std::vector<steam::Property> wanted_by(const Typed& typed, const BatchColumns& columns) {
  std::vector<steam::Property> wanted = parse_list(typed.list.empty() ? "p,t,v,h,s,x" : typed.list);
  if (typed.list.empty()) {
    wanted.erase(std::remove_if(wanted.begin(), wanted.end(),
                                [&](steam::Property property) {
                                  return property == columns.first.property ||
                                         property == columns.second.property;
                                }),
                 wanted.end());
  }
  return wanted;
}

int answer(Typed& typed) {
  BatchOptions& options = typed.options;
  options.columns.csv.delimiter = typed.delimiter == "tab"         ? '\t'
                                  : typed.delimiter == "semicolon" ? ';'
                                                                   : ',';
  options.columns.decimal = typed.decimal == "comma" ? ',' : '.';
  if (options.columns.decimal == options.columns.csv.delimiter) {
    throw Failure(wrong_usage, "--decimal comma needs another --delimiter, such as semicolon");
  }
  set_pair(typed, options.columns);
  options.columns.wanted = wanted_by(typed, options.columns);
  const BatchCounts counts = run_batch(options);
  const std::string first = counts.failed == 0
                                ? ""
                                : fmt::format("; the first in line {}: {}",
                                              counts.first_failed_line, counts.first_reason);
  tell(fmt::format("vek: {} rows, {} failed{}\n", counts.rows, counts.failed, first));
  return counts.failed > 0 ? no_answer : success;
}

void add_columns(CLI::App& sub, Typed& typed) {
  const char* const group = "Columns";
  sub.add_option("--first", typed.first, "column of the pair's first property")
      ->type_name("NAME|N")
      ->group(group);
  sub.add_option("--second", typed.second, "and of its second")->type_name("NAME|N")->group(group);
  sub.add_option("--list", typed.list, "properties to append; else those of p,t,v,h,s,x")
      ->type_name("LIST")
      ->group(group);
  sub.add_option("--delimiter", typed.delimiter, "between fields")
      ->check(CLI::IsMember({"comma", "semicolon", "tab"}))
      ->capture_default_str()
      ->group(group);
  sub.add_option("--decimal", typed.decimal, "in numbers, read and written")
      ->check(CLI::IsMember({"point", "comma"}))
      ->capture_default_str()
      ->group(group);
}

}  // namespace

void define_batch(CLI::App& app, Run& run) {
  const auto typed = std::make_shared<Typed>();
  CLI::App& sub = *app.add_subcommand("batch", "append properties to the rows of a CSV file");
  sub.group("Commands");
  sub.add_option("PAIR", typed->pair, "known properties, as in ph")->type_name("")->required();
  sub.add_option("FILE", typed->options.input, "to read; standard input when left out")
      ->type_name("");
  sub.add_option("-o,--output", typed->options.output, "to write, when all rows are done")
      ->type_name("FILE");
  add_columns(sub, *typed);
  add_unit_options(sub, typed->options.units);
  sub.add_option("--digits", typed->options.digits, "significant digits; all when left out")
      ->check(CLI::Range(1, 17))
      ->type_name("N");
  sub.add_option("--threads", typed->options.threads, "one for each core when left out")
      ->type_name("N");
  sub.footer(
      "Columns are found by their names: p, p_psi, \"p [psi]\", pressure; or by number,\n"
      "from 1. A file without a header has them first. Units in names count. Comments\n"
      "begin with #. Other columns are passed on as they are; the last one appended,\n"
      "status, says 'ok' or why a row failed. The exit status is then 1.");
  sub.callback([&run, typed] { run = [typed] { return answer(*typed); }; });
}

}  // namespace command
