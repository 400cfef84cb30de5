#include "manual.hpp"

#include <fmt/core.h>

#include "failure.hpp"
#include "help.hpp"
#include "output.hpp"
#include "properties.hpp"
#include "vek/steam.h"

namespace command {
namespace {

constexpr const char* unit_text =
    "Values are in the units of the list above, or carry another: 145psi, 212F,\n"
    "1400Btu/lb. --units and --unit set those of all values. Units are spelled as\n"
    "UDUNITS-2 knows them. Pressures may count from the ambient one: 130psig, 6barg;\n"
    "--ambient says what that is.\n";

constexpr const char* status_text =
    "  0  success\n"
    "  1  no such state, a row that failed, a difference that was looked for\n"
    "  2  wrong usage\n"
    "  3  a file or standard output cannot be read or written\n";

constexpr const char* example_text =
    "  vek pt 100 540                     everything about steam at 100 bar, 540 °C\n"
    "  vek ph 100 3000 t,s                two properties, from pressure and enthalpy\n"
    "  vek tx 100 0.9                     wet steam of quality 0.9 at 100 °C\n"
    "  vek pt 1000psi 900F --units US     in other units\n"
    "  vek th 20 84 --all                 all states that have the pair\n"
    "  vek batch ph plant.csv -o out.csv  each row of a table with columns p and h\n"
    "  vek table saturation 0.01:374:5    a steam table\n";

/// Text as man pages have it: no line of it is taken for a command.
std::string roff(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if ((out.empty() || out.back() == '\n') && (c == '.' || c == '\'')) {
      out += "\\&";
    }
    if (c == '-') {
      out += "\\-";
    } else if (c == '\\') {
      out += "\\e";
    } else {
      out += c;
    }
  }
  return out;
}

std::string as_it_stands(std::string_view text) {
  return fmt::format(".nf\n{}{}.fi\n", roff(text), text.empty() || text.back() == '\n' ? "" : "\n");
}

std::string entry(const std::string& head, const std::string& text) {
  return fmt::format(".TP\n\\fB{}\\fR\n{}\n", roff(head), roff(text));
}

std::string values_of(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : positionals(app)) {
    text += entry(option->get_name(), description_of(*option));
  }
  return text;
}

std::string options_of(const CLI::App& app) {
  std::string text;
  for (const CLI::Option* option : named_options(app)) {
    const std::string argument = argument_of(*option);
    text += entry(option->get_name(false, true) + (argument.empty() ? "" : " " + argument),
                  description_of(*option));
  }
  return text;
}

/// A command that is no pair, and those below it.
std::string command_text(const CLI::App& app, const std::string& before) {
  const std::string name = before + ' ' + app.get_name();
  std::string text = fmt::format(".SS {}\n{}\n", roff(name), roff(app.get_description()));
  if (shown_commands(app).empty()) {
    text += fmt::format(".PP\n{}\n{}{}.PP\n{}", roff(usage_of(app)), values_of(app),
                        options_of(app), as_it_stands(app.get_footer()));
  }
  for (const CLI::App* sub : shown_commands(app)) {
    text += command_text(*sub, name);
  }
  return text;
}

bool is_pair(const CLI::App& app) { return positionals(app).size() == 3; }

/// All pairs, then the options that they share.
std::string pairs_text(const CLI::App& app) {
  std::string text =
      ".SH STATES\n\\fBvek\\fR \\fIPAIR A B\\fR [\\fILIST\\fR] [\\fIOPTION\\fR...]\n";
  const CLI::App* last = nullptr;
  for (const CLI::App* sub : shown_commands(app)) {
    if (is_pair(*sub)) {
      const auto values = positionals(*sub);
      text += entry(sub->get_name(),
                    values[0]->get_description() + "; " + values[1]->get_description());
      last = sub;
    }
  }
  text += ".PP\nEither order and either case: \\fBvek tp 100 10\\fR. The options of all pairs:\n";
  return text + options_of(*last);
}

std::string manual(const CLI::App& app) {
  std::string text = fmt::format(
      ".TH VEK 1 \"\" \"vek {}\"\n.SH NAME\nvek \\- properties of water and steam\n"
      ".SH SYNOPSIS\n\\fBvek\\fR \\fIPAIR A B\\fR [\\fILIST\\fR] [\\fIOPTION\\fR...]\n.br\n"
      "\\fBvek\\fR \\fICOMMAND\\fR [\\fIARGUMENT\\fR...]\n.SH DESCRIPTION\n{}\n",
      vek_steam_version(), roff(app.get_description()));
  text += pairs_text(app) + ".SH COMMANDS\n";
  for (const CLI::App* sub : shown_commands(app)) {
    text += is_pair(*sub) ? "" : command_text(*sub, "vek");
  }
  for (const ManualSection& section : manual_sections()) {
    text += fmt::format(".SH {}\n{}", section.title, as_it_stands(section.text));
  }
  return text;
}

}  // namespace

std::vector<ManualSection> manual_sections() {
  return {{"Properties", property_help()},
          {"Units", unit_text},
          {"Exit status", status_text},
          {"Examples", example_text}};
}

void define_manual(CLI::App& app, Run& run) {
  CLI::App& sub = *app.add_subcommand("man", "the manual page, as in: vek man | man -l -");
  sub.group("Commands");
  sub.callback([&app, &run] {
    run = [&app] {
      print(manual(app));
      return success;
    };
  });
}

}  // namespace command
