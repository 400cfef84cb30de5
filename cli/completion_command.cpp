#include "completion_command.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <memory>

#include "failure.hpp"
#include "given.hpp"
#include "help.hpp"
#include "output.hpp"
#include "properties.hpp"

namespace command {
namespace {

/// Candidates come in lines, with a description behind a tabulator.
constexpr const char* bash_script =
    R"script(_vek() {
  local IFS=$'\n'
  COMPREPLY=($("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null | cut -f1))
}
complete -o default -F _vek vek
)script";
constexpr const char* zsh_script =
    R"script(#compdef vek
_vek() {
  local -a found
  found=("${(@f)$(${words[1]} complete -- "${(@)words[2,CURRENT]}" 2>/dev/null | sed 's/:/\\:/g; s/\t/:/')}")
  if [[ -n $found ]]; then _describe vek found; else _files; fi
}
if [[ $funcstack[1] = _vek ]]; then _vek "$@"; else compdef _vek vek; fi
)script";
constexpr const char* fish_script =
    R"script(complete -c vek -a '(vek complete -- (commandline -opc)[2..-1] (commandline -ct))'
)script";

struct Candidate {
  std::string word, description;
};
using Candidates = std::vector<Candidate>;

/// Where the words before the one that is typed have led.
struct Place {
  const CLI::App* app;
  std::size_t positionals = 0;        ///< given already
  const CLI::Option* asks = nullptr;  ///< whose value is typed
};

Place place_after(const CLI::App& app, const std::vector<std::string>& words) {
  Place place{&app};
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    const std::string& word = words[i];
    const auto subs = place.app->get_subcommands(
        [&](const CLI::App* sub) { return equal_but_for_case(sub->get_name(), word); });
    if (place.asks) {
      place.asks = nullptr;
    } else if (word.size() > 1 && word[0] == '-') {
      const CLI::Option* const option = place.app->get_option_no_throw(word);
      place.asks = option && option->get_type_size() != 0 ? option : nullptr;
    } else if (!subs.empty()) {
      place = {subs[0]};
    } else {
      ++place.positionals;
    }
  }
  return place;
}

/// What a list of properties may go on with.
Candidates list_candidates(const std::string& typed) {
  const std::string before = typed.substr(0, typed.find_last_of(',') + 1);
  Candidates found;
  for (const steam::Property property : all_properties()) {
    const steam::PropertyInfo info = steam::info(property);
    found.push_back({before + info.letter, info.name});
  }
  return found;
}

Candidates value_candidates(const CLI::Option& option, const std::string& typed) {
  const std::string kind = option.get_positional() ? option.get_name() : argument_of(option);
  Candidates found;
  if (kind == "LIST") {
    return list_candidates(typed);
  }
  if (kind == "PAIR") {
    for (const steam::Pair pair : all_pairs()) {
      found.push_back({steam::info(pair).letters, ""});
    }
  }
  for (const std::string& choice : choices_of(option)) {
    found.push_back({choice, ""});
  }
  return found;
}

Candidates option_candidates(const CLI::App& app) {
  Candidates found;
  for (const CLI::Option* option : named_options(app)) {
    for (const std::string& name : option->get_lnames()) {
      found.push_back({"--" + name, description_of(*option)});
    }
  }
  return found;
}

Candidates candidates(const CLI::App& app, const std::vector<std::string>& words) {
  const Place place = place_after(app, words);
  const std::string typed = words.empty() ? "" : words.back();
  const auto values = positionals(*place.app);
  Candidates found;
  if (place.asks) {
    found = value_candidates(*place.asks, typed);
  } else if (typed[0] == '-') {
    found = option_candidates(*place.app);
  } else if (place.positionals < values.size()) {
    found = value_candidates(*values[place.positionals], typed);
  } else {
    for (const CLI::App* sub : shown_commands(*place.app)) {
      found.push_back({sub->get_name(), sub->get_description()});
    }
  }
  found.erase(std::remove_if(found.begin(), found.end(),
                             [&](const Candidate& c) { return c.word.rfind(typed, 0) != 0; }),
              found.end());
  return found;
}

int print_candidates(const CLI::App& app, const std::vector<std::string>& words) {
  std::string text;
  for (const Candidate& candidate : candidates(app, words)) {
    text += fmt::format("{}\t{}\n", candidate.word, candidate.description);
  }
  print(text);
  return success;
}

int print_script(const std::string& shell) {
  print(shell == "bash" ? bash_script : shell == "zsh" ? zsh_script : fish_script);
  return success;
}

}  // namespace

void define_completion(CLI::App& app, Run& run) {
  const auto shell = std::make_shared<std::string>();
  CLI::App& sub = *app.add_subcommand("completion", "completion of words for a shell");
  sub.group("Commands");
  sub.add_option("SHELL", *shell, "whose script is printed")
      ->check(CLI::IsMember({"bash", "zsh", "fish"}))
      ->required();
  sub.footer(
      "bash: eval \"$(vek completion bash)\" in ~/.bashrc\n"
      "zsh:  eval \"$(vek completion zsh)\" in ~/.zshrc, behind compinit\n"
      "fish: vek completion fish | source, in config.fish");
  sub.callback([&run, shell] { run = [shell] { return print_script(*shell); }; });

  const auto words = std::make_shared<std::vector<std::string>>();
  CLI::App& complete = *app.add_subcommand("complete", "candidates for the last of some words");
  complete.group("");
  complete.add_option("WORDS", *words, "behind the name of the command");
  complete.callback(
      [&app, &run, words] { run = [&app, words] { return print_candidates(app, *words); }; });
}

}  // namespace command
