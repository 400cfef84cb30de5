#include "help.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>

namespace command {
namespace {

template <class Keep>
std::vector<const CLI::Option*> options_that(const CLI::App& app, const Keep& keep) {
  std::vector<const CLI::Option*> kept;
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_group().empty() && keep(*option)) {
      kept.push_back(option);
    }
  }
  return kept;
}

}  // namespace

std::vector<std::string> choices_of(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t open = type.find('{'), close = type.find('}');
  return close == std::string::npos
             ? std::vector<std::string>{}
             : CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

std::string argument_of(const CLI::Option& option) {
  if (option.get_type_size() == 0) {
    return {};
  }
  const std::vector<std::string> choices = choices_of(option);
  const std::string type = option.get_type_name();
  return choices.empty() ? type.substr(0, type.find(':'))
                         : fmt::format("{}", fmt::join(choices, "|"));
}

std::string description_of(const CLI::Option& option) {
  const std::string standard = option.get_default_str();
  return option.get_description() +
         (standard.empty() ? "" : fmt::format(" (default {})", standard));
}

std::string usage_of(const CLI::App& app) {
  std::string usage = app.get_name();
  for (const CLI::App* above = app.get_parent(); above; above = above->get_parent()) {
    usage = fmt::format("{} {}", above->get_name(), usage);
  }
  for (const CLI::Option* option : positionals(app)) {
    const std::string name = option->get_name();
    usage += option->get_required() ? fmt::format(" {}", name) : fmt::format(" [{}]", name);
  }
  return usage + (shown_commands(app).empty() ? " [OPTION...]" : " COMMAND [ARGUMENT...]");
}

std::vector<const CLI::App*> shown_commands(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App* sub) { return !sub->get_group().empty(); });
}

std::vector<const CLI::Option*> positionals(const CLI::App& app) {
  return options_that(app, [](const CLI::Option& option) { return option.get_positional(); });
}

std::vector<const CLI::Option*> named_options(const CLI::App& app) {
  return options_that(app, [](const CLI::Option& option) { return !option.get_positional(); });
}

std::string help_of(const CLI::App& app) {
  std::string text = app.help();
  for (std::size_t at = 0; (at = text.find("\n\n\n", at)) != std::string::npos;) {
    text.erase(at, 1);
  }
  return text;
}

std::string Help::make_usage(const CLI::App* app, std::string /*name*/) const {
  return fmt::format("\nUsage: {}\n", usage_of(*app));
}

std::string Help::make_option_opts(const CLI::Option* option) const {
  const std::string argument = option->get_positional() ? "" : argument_of(*option);
  return argument.empty() ? "" : ' ' + argument;
}

std::string Help::make_option_desc(const CLI::Option* option) const {
  return description_of(*option);
}

std::string Help::make_subcommand(const CLI::App* app) const {
  const std::string& text = app->get_description();
  return fmt::format("  {:<11} {}\n", app->get_name(), text.substr(0, text.find('\n')));
}

}  // namespace command
