// Every registered subcommand finds its help in subcommands.md: a
// description of whole sentences on one line and an example that runs it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <string>

#include "tools/q3a_tuning/commands/commands.h"
#include "tools/q3a_tuning/commands/subcommand_help.h"

namespace q3a_tool {
namespace {

using testing::EndsWith;
using testing::Not;
using testing::StartsWith;

TEST(SubcommandHelpTest, EverySubcommandHasADescriptionAndAnExample) {
  CLI::App app;
  int exit_code = 0;
  for (auto* add_command : kAddCommands) add_command(app, exit_code);
  const auto commands = app.get_subcommands({});
  ASSERT_EQ(commands.size(), std::size(kAddCommands));
  for (const CLI::App* command : commands) {
    const std::string& name = command->get_name();
    SCOPED_TRACE(name);
    const std::string description = command->get_description();
    EXPECT_THAT(description, EndsWith("."));
    EXPECT_EQ(description.find('\n'), std::string::npos);
    EXPECT_EQ(description.find("  "), std::string::npos);
    EXPECT_THAT(description, Not(StartsWith(" ")));
    EXPECT_EQ(command->get_footer(), "Example:\n  " +
                                         FindSubcommandHelp(name).example);
    EXPECT_THAT(FindSubcommandHelp(name).example,
                StartsWith("q3a-tuning " + name + " "));
  }
}

TEST(SubcommandHelpTest, AnUnknownNameOrAPrefixHasNoHelp) {
  for (const char* name : {"", "frobnicate", "lis", "list ", "Example:"}) {
    const SubcommandHelp help = FindSubcommandHelp(name);
    EXPECT_EQ(help.description, "") << name;
    EXPECT_EQ(help.example, "") << name;
  }
}

}  // namespace
}  // namespace q3a_tool
