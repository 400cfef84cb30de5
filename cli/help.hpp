#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace command {

/// The words that an option takes, empty when it takes any.
std::vector<std::string> choices_of(const CLI::Option& option);

/// What follows the name of an option: "bar|SI|US", "N"; empty for a flag.
std::string argument_of(const CLI::Option& option);

/// What it is for, with its default.
std::string description_of(const CLI::Option& option);

/// "vek ph P H [LIST] [OPTION...]"
std::string usage_of(const CLI::App& app);

/// Subcommands and options that are shown, in their order.
std::vector<const CLI::App*> shown_commands(const CLI::App& app);
std::vector<const CLI::Option*> positionals(const CLI::App& app);
std::vector<const CLI::Option*> named_options(const CLI::App& app);

/// The help of what was chosen on the command line.
std::string help_of(const CLI::App& app);

/// Help texts in lines of at most 80.
class Help : public CLI::Formatter {
 public:
  Help() { column_width(26); }
  [[nodiscard]] std::string make_usage(const CLI::App* app, std::string name) const override;
  [[nodiscard]] std::string make_option_opts(const CLI::Option* option) const override;
  [[nodiscard]] std::string make_option_desc(const CLI::Option* option) const override;
  [[nodiscard]] std::string make_subcommand(const CLI::App* app) const override;
};

}  // namespace command
