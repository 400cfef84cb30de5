#include <CLI/CLI.hpp>
#include <iostream>

#include "pairs.hpp"
#include "state_command.hpp"
#include "vek/version.h"

namespace {

constexpr int wrong_usage = 2;

constexpr const char* footer =
    "Properties: P pressure (bar), T temperature (°C), V specific volume (m³/kg),\n"
    "H enthalpy (kJ/kg), S entropy (kJ/(kg K)), X quality (0 to 1), CP isobaric heat\n"
    "capacity (kJ/(kg K)), DV dynamic viscosity (Pa·s), TC thermal conductivity (kW/(m K)).\n"
    "Exit status: 0 clean, 1 error flag raised or a value missing, 2 wrong usage.\n"
    "Examples: vek pt 10 100          everything at 10 bar and 100 °C\n"
    "          vek px 10 0.5 T,H,S    three properties of wet steam";

void define(CLI::App& app, command::StateOptions& options) {
  app.footer(footer);
  app.set_version_flag("--version", "vek " VEK_VERSION);
  app.add_option("PAIR", options.pair, "the known properties: two of p, t, v, h, s, u, x, as in ph")
      ->required()
      ->check(CLI::IsMember(command::pair_names()));
  app.add_option("A", options.first, "value of the first")->required();
  app.add_option("B", options.second, "value of the second")->required();
  app.add_option("LIST", options.list, "properties, such as H,S; all when left out")
      ->check(CLI::Validator(command::check_list, ""));
}

int run(int argc, char** argv) {
  CLI::App app("Properties of water and steam on the 1967 industrial formulation (IFC-67)", "vek");
  command::StateOptions options;
  define(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : wrong_usage;
  }
  if (const std::string wrong = command::check_known(options.pair, options.first, options.second);
      !wrong.empty()) {
    std::cerr << "vek: " << wrong << '\n';
    return wrong_usage;
  }
  return command::show_state(options);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "vek: " << error.what() << '\n';
    return wrong_usage;
  }
}
