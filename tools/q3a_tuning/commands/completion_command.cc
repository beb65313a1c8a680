// `completion bash`: the bash completion script, made from the command
// table itself, so every subcommand and option the tool has is completed
// and none it lacks. Hidden from the help; the package installs its output.
#include <fmt/format.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "coordinator/tuning_map.h"
#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/io/registry_view.h"
#include "tools/q3a_tuning/io/table_id.h"

namespace q3a_tool {
namespace {

std::string Words(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, " "));
}

// Every spelling of every named option of `command`, help included.
std::vector<std::string> OptionNames(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    if (!option->nonpositional()) continue;
    for (const std::string& name : option->get_snames()) {
      names.push_back("-" + name);
    }
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

// Whether `command` takes a table name as an operand (schema TABLE).
bool TakesTableOperand(const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional() && option->get_name() == "table") {
      return true;
    }
  }
  return false;
}

std::vector<std::string> TableWords() {
  std::vector<std::string> words;
  for (qawb::TableId id : kAllTableIds) {
    words.emplace_back(TableName(id));
  }
  return words;
}

// The keys of the AWB containers, the ones --key takes.
std::vector<std::string> KeyWords() {
  std::set<std::string> keys;
  for (const Registration& registration :
       ListRegistrations(q3a_coordinator::GetTuningMap())) {
    if (registration.node == q3a_api::kAwb) {
      keys.insert(FormatTuningKey(registration.key));
    }
  }
  return {keys.begin(), keys.end()};
}

std::vector<std::string> NodeWords() {
  std::set<std::string> nodes;
  for (const Registration& registration :
       ListRegistrations(q3a_coordinator::GetTuningMap())) {
    nodes.insert(NodeName(registration.node));
  }
  return {nodes.begin(), nodes.end()};
}

std::string BashCompletion(const CLI::App& app) {
  std::vector<std::string> subcommands;
  std::string cases;
  std::vector<std::string> table_commands;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->get_group().empty()) continue;  // hidden
    subcommands.push_back(command->get_name());
    cases += fmt::format("    {}) options=\"{}\" ;;\n", command->get_name(),
                         Words(OptionNames(*command)));
    if (TakesTableOperand(*command)) {
      table_commands.push_back(command->get_name());
    }
  }
  return fmt::format(
      R"(# bash completion for q3a-tuning; made by `q3a-tuning completion bash`
# from the tool's command table.
_q3a_tuning() {{
  local cur=${{COMP_WORDS[COMP_CWORD]}}
  local prev=${{COMP_WORDS[COMP_CWORD-1]}}
  local command="" i
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${{COMP_WORDS[i]}} in
      -*) ;;
      *) command=${{COMP_WORDS[i]}}; break ;;
    esac
  done
  if [[ -z $command ]]; then
    COMPREPLY=($(compgen -W "{subcommands} {global}" -- "$cur"))
    return
  fi
  case $prev in
    --table) COMPREPLY=($(compgen -W "{tables}" -- "$cur")); return ;;
    --key) COMPREPLY=($(compgen -W "{keys}" -- "$cur")); return ;;
    --node) COMPREPLY=($(compgen -W "{nodes}" -- "$cur")); return ;;
    --format|--from|--to)
      COMPREPLY=($(compgen -W "json binary" -- "$cur")); return ;;
    --tolerance) return ;;
    -o|--output|--against|--base)
      compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- "$cur")); return ;;
  esac
  local options=""
  case $command in
{cases}    *) return ;;
  esac
  if [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$cur"))
    return
  fi
  case $command in
    {table_commands}) COMPREPLY=($(compgen -W "{tables}" -- "$cur")); return ;;
  esac
  compopt -o filenames 2>/dev/null
  COMPREPLY=($(compgen -f -- "$cur"))
}}
complete -F _q3a_tuning q3a-tuning
)",
      fmt::arg("subcommands", Words(subcommands)),
      fmt::arg("global", Words(OptionNames(app))),
      fmt::arg("tables", Words(TableWords())),
      fmt::arg("keys", Words(KeyWords())),
      fmt::arg("nodes", Words(NodeWords())), fmt::arg("cases", cases),
      fmt::arg("table_commands", fmt::join(table_commands, "|")));
}

}  // namespace

void AddCompletionCommand(CLI::App& app, int& exit_code) {
  auto shell = std::make_shared<std::string>();
  auto* command = app.add_subcommand(
      "completion", "Print the shell completion script (bash only)");
  command->group("");
  command->add_option("shell", *shell, "bash")
      ->required()
      ->check(CLI::IsMember({"bash"}));
  // The callback owns `shell`: the option writes into it at parse time.
  command->callback([&app, &exit_code, shell] {
    fmt::print("{}", BashCompletion(app));
    exit_code = kExitOk;
  });
}

}  // namespace q3a_tool
