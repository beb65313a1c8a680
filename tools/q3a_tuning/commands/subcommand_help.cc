#include "tools/q3a_tuning/commands/subcommand_help.h"

#include "tools/q3a_tuning/commands/subcommands_md.h"

namespace q3a_tool {

SubcommandHelp FindSubcommandHelp(std::string_view name) {
  const std::string_view text = kSubcommandsMarkdown;
  const std::string heading = "\n## " + std::string(name) + "\n";
  const size_t found = text.find(heading);
  if (found == std::string_view::npos) return {};
  std::string_view section = text.substr(found + heading.size());
  section = section.substr(0, section.find("\n## "));

  constexpr std::string_view kExample = "Example: ";
  SubcommandHelp help;
  while (!section.empty()) {
    const size_t end = section.find('\n');
    const std::string_view line = section.substr(0, end);
    section.remove_prefix(end == std::string_view::npos ? section.size()
                                                        : end + 1);
    if (line.empty()) continue;
    if (line.starts_with(kExample)) {
      help.example = line.substr(kExample.size());
    } else {
      if (!help.description.empty()) help.description += ' ';
      help.description += line;
    }
  }
  return help;
}

}  // namespace q3a_tool
