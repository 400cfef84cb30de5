#include <fmt/core.h>
#include <unistd.h>

#include <array>
#include <exception>

#include "batch_command.hpp"
#include "chart_command.hpp"
#include "command.hpp"
#include "completion_command.hpp"
#include "failure.hpp"
#include "help.hpp"
#include "manual.hpp"
#include "output.hpp"
#include "state_command.hpp"
#include "table_command.hpp"
#include "vek/steam.h"

namespace command {
namespace {

constexpr std::array commands{define_states, define_batch,      define_table,
                              define_chart,  define_completion, define_manual};

constexpr const char* description =
    "Properties of water and steam on the 1967 industrial formulation (IFC-67).";

std::string footer() {
  std::string text;
  for (const ManualSection& section : manual_sections()) {
    text += fmt::format("{}{}:\n{}", text.empty() ? "" : "\n", section.title, section.text);
  }
  return text;
}

void define(CLI::App& app, Run& run) {
  app.require_subcommand(1);
  app.set_help_flag("-h,--help", "print this");
  app.set_version_flag("--version", std::string("vek ") + vek_steam_version(), "print the version");
  app.formatter(std::make_shared<Help>());
  for (const Define define : commands) {
    define(app, run);
  }
  app.footer(footer());
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
