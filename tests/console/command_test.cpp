#include "console/command.h"

#include <gtest/gtest.h>

#include "console/command_error.h"

namespace tallyfold::console {
namespace {

constexpr Option kOptions[] = {{"name", "TEXT", "", false}, {"split", "TEXT", "", true}};

constexpr Command kAccounts[] = {
    {.name = "accounts"},
    {.name = "account add", .options = kOptions},
    {.name = "account rename", .words = "NAME", .least_words = 1, .most_words = 1},
};
constexpr Command kFiles[] = {{.name = "save"}};
constexpr Subject kSubjects[] = {{"Accounts", kAccounts}, {"Files", kFiles}};

// The command found and its arguments, or the error: what a session makes of the words.
std::string Outcome(std::string_view typed) {
  const Line line = ReadWords(typed);
  const auto [command, length] = FindCommand(kSubjects, line.words);
  if (command == nullptr) return UnknownCommand(kSubjects, line.words);
  try {
    const Arguments arguments(*command, std::span(line.words).subspan(length));
    std::string outcome(command->name);
    for (std::size_t i = 0; i < arguments.WordCount(); ++i) outcome += " " + arguments.WordAt(i);
    if (const auto name = arguments.Text("name")) outcome += " name:" + *name;
    for (const std::string& split : arguments.AllTexts("split")) outcome += " split:" + split;
    return outcome;
  } catch (const CommandError& error) {
    return error.what();
  }
}

TEST(Commands, AreFoundByTheirFirstWordsAndTakeWhatTheySay) {
  struct Case {
    std::string_view typed;
    std::string_view outcome;
  } const cases[] = {
      {"accounts", "accounts"},
      {"account rename Joint", "account rename Joint"},
      {"account add split=a name=x split=b", "account add name:x split:a split:b"},
      {"account", "expected one of: account add, account rename"},
      {"account x", "expected one of: account add, account rename"},
      {"account add=x", "expected one of: account add, account rename"},
      {"acc", "unknown command \"acc\"; help lists the commands"},
      {"name=x", "unknown command \"x\"; help lists the commands"},
      {"\"\"", "unknown command \"\"; help lists the commands"},
      {"save now", "\"now\" is too much; expected save"},
      {"account add x", "\"x\" is too much; expected account add [name= split=]"},
      {"save name=x", "save has no option \"name=\"; it takes none"},
      {"account add nam=x", "account add has no option \"nam=\"; it takes name= split="},
      {"account add name=x name=y", "account add: name= is given twice"},
      {"account rename", "expected account rename NAME"},
      {"account rename a b", "\"b\" is too much; expected account rename NAME"},
  };
  for (const Case& c : cases) EXPECT_EQ(Outcome(c.typed), c.outcome) << c.typed;
}

TEST(Commands, ShowOnlyTheBeginningOfWhatIsLong) {
  std::string shown = "unknown command \"" + std::string(59, 'x');
  EXPECT_EQ(Outcome(std::string(59, 'x') + "é" + std::string(500, 'y')),
            shown + "\"...; help lists the commands");
}

}  // namespace
}  // namespace tallyfold::console
