#include <fmt/core.h>
#include <unistd.h>

#include <array>
#include <exception>

#include "batch_command.hpp"
#include "command.hpp"
#include "failure.hpp"
#include "help.hpp"
#include "output.hpp"
#include "properties.hpp"
#include "state_command.hpp"
#include "table_command.hpp"

namespace command {
namespace {

constexpr std::array commands{define_states, define_batch, define_table};

constexpr const char* description =
    "Properties of water and steam on the 1967 industrial formulation (IFC-67).";

constexpr const char* footer =
    "\nValues may carry a unit: vek pt 145psi 212degF, vek ph 10MPa 1400Btu/lb.\n"
    "\n"
    "Exit status: 0 success; 1 no such state, a failed row, a difference;\n"
    "2 wrong usage; 3 a file or standard output cannot be read or written.\n"
    "\n"
    "Examples:\n"
    "  vek pt 100 540             all properties of steam at 100 bar and 540 °C\n"
    "  vek ph 100 3000 t,s        two of them, from pressure and enthalpy\n"
    "  vek tx 100 0.9             wet steam of quality 0.9 at 100 °C";

void define(CLI::App& app, Run& run) {
  app.require_subcommand(1);
  app.set_help_flag("-h,--help", "print this");
  app.set_version_flag("--version", std::string("vek ") + vek_steam_version(), "print the version");
  app.formatter(std::make_shared<Help>());
  for (const Define define : commands) {
    define(app, run);
  }
  app.footer("Properties, as in LIST:\n" + property_help() + footer);
}

/// One line for what the parser refuses.
std::string explained(const CLI::App& app, const CLI::ParseError& error) {
  const auto chosen = app.get_subcommands();
  const std::string name = chosen.empty() ? "" : " " + chosen[0]->get_name();
  const std::vector<std::string> rest = app.remaining(true);
  const std::string what =
      name.empty() && !rest.empty()
          ? fmt::format("'{}' is neither a pair of properties nor a command", rest[0])
          : error.what();
  return fmt::format("{}; 'vek{} --help' tells more", what, name);
}

int run(int argc, char** argv) {
  CLI::App app(description, "vek");
  Run run;
  define(app, run);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    print(help_of(app));
    return success;
  } catch (const CLI::CallForVersion& version) {
    print(version.what() + std::string("\n"));
    return success;
  } catch (const CLI::ParseError& error) {
    throw Failure(wrong_usage, explained(app, error));
  }
  return run();
}

}  // namespace
}  // namespace command

int main(int argc, char** argv) {
  command::Status status = command::unusable;
  std::string line;
  try {
    command::prepare_streams();
    return command::run(argc, argv);
  } catch (const command::Failure& failure) {
    status = failure.status();
    line = failure.what();
  } catch (const std::exception& error) {
    line = error.what();
  }
  const bool coloured = command::is_coloured(STDERR_FILENO);
  command::tell(
      fmt::format("{}vek:{} {}\n", coloured ? "\033[31m" : "", coloured ? "\033[0m" : "", line));
  return status;
}
