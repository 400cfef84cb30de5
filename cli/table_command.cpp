#include "table_command.hpp"

#include <unistd.h>

#include <memory>

#include "failure.hpp"
#include "output.hpp"
#include "ranges.hpp"
#include "steam_tables.hpp"
#include "unit_options.hpp"

namespace command {
namespace {

/// What both tables can be asked.
struct TableOptions {
  UnitOptions units{};
  std::string format = "text", output;
};

struct SaturationOptions : TableOptions {
  std::string by = "t", values;
};

struct WaterSteamOptions : TableOptions {
  std::string pressures = "1,10,100", temperatures = "0.01,50:800:50";
};

int write(const TableOptions& options, const PrintedTable& table) {
  const bool is_pdf = options.format == "pdf";
  if (is_pdf && options.output.empty() && isatty(STDOUT_FILENO) == 1) {
    throw Failure(wrong_usage, "a PDF is not for the terminal; write it with -o FILE");
  }
  Output output(options.output);
  output.write(options.format == "csv"        ? as_csv(table)
               : options.format == "markdown" ? as_markdown(table)
               : is_pdf                       ? as_pdf(table)
                                              : as_text(table));
  output.finish();
  return success;
}

int write_saturation(const SaturationOptions& options) {
  const Units units(options.units);
  const bool by_pressure = options.by == "p";
  const auto by = by_pressure ? steam::Property::p : steam::Property::t;
  // Round values in the units of the engine, whatever those of the table are.
  const std::vector<double> values =
      !options.values.empty() ? parse_ranges(options.values, by, units)
      : by_pressure
          ? parse_ranges("0.01,0.02:0.1:0.02,0.2:1:0.2,2:20:2,30:220:10,221.2", by, Units())
          : parse_ranges("0.01,5:370:5,374.15", by, Units());
  return write(options, saturation_table(by, values, units));
}

int write_water_steam(const WaterSteamOptions& options) {
  const Units units(options.units);
  const Grid grid{parse_ranges(options.pressures, steam::Property::p, units),
                  parse_ranges(options.temperatures, steam::Property::t, units)};
  const bool by_rows = options.format == "csv" || options.format == "markdown";
  return write(options,
               by_rows ? water_steam_list(grid, units) : water_steam_table(grid, 3, units));
}

void add_table_options(CLI::App& sub, TableOptions& options) {
  sub.add_option("--format", options.format, "of the table")
      ->check(CLI::IsMember({"text", "csv", "markdown", "pdf"}))
      ->capture_default_str();
  sub.add_option("-o,--output", options.output, "to write instead of standard output")
      ->type_name("FILE");
  add_unit_options(sub, options.units);
  sub.footer("RANGE is a list of values and of ranges FROM:TO:STEP, as in 0.01,5:370:5,374.15.");
}

}  // namespace

void define_table(CLI::App& app, Run& run) {
  CLI::App& table = *app.add_subcommand("table", "steam tables as they are printed");
  table.group("Commands");
  table.require_subcommand(1);

  const auto saturation = std::make_shared<SaturationOptions>();
  CLI::App& sub = *table.add_subcommand("saturation", "saturated water and steam");
  sub.add_option("RANGE", saturation->values, "temperatures or pressures")->type_name("");
  sub.add_option("--by", saturation->by, "what the rows go by")
      ->check(CLI::IsMember({"t", "p"}))
      ->capture_default_str();
  add_table_options(sub, *saturation);
  sub.callback(
      [&run, saturation] { run = [saturation] { return write_saturation(*saturation); }; });

  const auto both = std::make_shared<WaterSteamOptions>();
  CLI::App& grid = *table.add_subcommand("water-steam", "compressed water and superheated steam");
  grid.add_option("-p,--pressures", both->pressures, "of the blocks")
      ->type_name("RANGE")
      ->capture_default_str();
  grid.add_option("-t,--temperatures", both->temperatures, "of the rows")
      ->type_name("RANGE")
      ->capture_default_str();
  add_table_options(grid, *both);
  grid.callback([&run, both] { run = [both] { return write_water_steam(*both); }; });
}

}  // namespace command
