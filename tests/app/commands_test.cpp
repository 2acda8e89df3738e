#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <tuple>
#include <utility>

#include "app/commands/command.h"
#include "app/commands/command_tables.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_reveal.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/menus.h"
#include "app/shell/print_sheet.h"
#include "app/shell/undo.h"
#include "app/states.h"
#include "app/test_application.h"
#include "app/views/balance_field.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "ledger/ledger_fixture.h"
#include "registers/table_data_source.h"

namespace tallyfold {
namespace {

// Everything by which the outside can tell that something was done.
auto Traces(const TestApplication& test) {
  const auto& heard = test.speech.Heard();
  return std::make_tuple(
      test.front_end.changed.size(), test.alerts.Requests().size(),
      test.panels.OpenRequests().size() + test.panels.SaveRequests().size(),
      std::ranges::count_if(heard, [](const auto& text) { return text != "(stop)"; }),
      test.host.Requests().size(), test.files.Changes().size());
}

TEST(Commands, CanRunExactlyWhenRunningThemDoesSomething) {
  for (const State& state : States()) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      const bool can = command->can(test.app);
      const auto before = Traces(test);
      // Nobody can order from a menu that is off; and without a password, locking is a thing that
      // only the menus do not offer.
      const bool is_locking = command->name == "lock" || command->name == "Account_Lock";
      const bool is_ordered_from_sheets = command->menu == Menu::None && command->shortcut.empty();
      if (!can && !is_ordered_from_sheets && (!test.app.menus().AreOn() || is_locking)) continue;
      command->run(test.app);
      test.loop.AdvanceBy(std::chrono::seconds(3));
      EXPECT_EQ(Traces(test) != before, can) << command->name << ": " << state.name;
    }
  }
}

TEST(Commands, AreTakenBackWholeByUndo) {
  for (const State& state : States()) {
    for (const Command* command : Commands()) {
      TestApplication test;
      state.reach(test);
      if (!command->can(test.app) || command->menu == Menu::Edit) continue;
      const std::string where = std::string(command->name) + ": " + state.name;
      auto& undo = test.app.undo();
      const bool was_open = test.app.desk().IsUnlocked();
      const std::size_t steps = undo.UndoLines().size();
      const std::string before = BytesOf(test.app.desk().accounts());
      AgreeTo(test, command->name);
      command->run(test.app);
      const std::string after = BytesOf(test.app.desk().accounts());
      if (!was_open || !test.app.desk().IsUnlocked() || undo.UndoLines().size() <= steps) continue;
      test.app.sheets().CancelOpen();
      EXPECT_TRUE(undo.UndoStep()) << where;
      EXPECT_EQ(BytesOf(test.app.desk().accounts()), before) << where;
      EXPECT_TRUE(undo.RedoStep()) << where;
      EXPECT_EQ(BytesOf(test.app.desk().accounts()), after) << where;
    }
  }
}

// Whether a text is made of sentences that were looked up, each once; what they were given, as the
// name of an account, stands within them.
bool IsLookedUp(std::string_view text) {
  while (!text.empty()) {
    if (text.front() == ' ' || text.front() == '\n') {
      text.remove_prefix(1);
      continue;
    }
    std::size_t depth = 0;
    std::size_t end = 0;
    std::size_t inner = 0;  // where the second bracket is closed
    do {
      if (text[end] == '[') ++depth;
      if (text[end] == ']' && --depth == 1 && inner == 0) inner = end;
    } while (++end < text.size() && depth > 0);
    const bool is_twice = text.starts_with("[[") && inner + 2 == end;
    if (text.front() != '[' || depth != 0 || is_twice) return false;
    text.remove_prefix(end);
  }
  return true;
}

// What the program says in a state, without what holds names that somebody gave.
std::vector<std::string> TextsShown(TestApplication& test) {
  auto& app = test.app;
  std::vector<std::string> texts;
  const auto items = [&texts](const std::vector<PopUpItem>& list) {
    for (const PopUpItem& item : list) {
      if (!item.is_separator) texts.push_back(item.title);
    }
  };
  items(app.balanceField().State().mode_items);
  items(app.reminder().State().unit_items);
  items(app.reminder().State().balance_items);
  for (const auto* rows :
       {&app.registers().entryDataSource(), &app.registers().reconcileDataSource()}) {
    for (const TableColumn& column : rows->VisibleTableColumns()) texts.push_back(TitleOf(column));
  }
  items(app.printSheet().State().papers);
  items(app.printSheet().State().orientations);
  if (const auto& print = app.printSheet().State(); print.is_open) {
    texts.insert(texts.end(), {print.heading, print.facts});
  }
  texts.push_back(app.undo().UndoTitle());
  texts.push_back(app.undo().RedoTitle());
  texts.push_back(app.entryReveal().State().text);
  texts.push_back(app.search().State().entry.label);
  for (const AlertRequest& alert : test.alerts.Requests()) {
    texts.push_back(alert.title);
    texts.push_back(alert.message);
    texts.insert(texts.end(), alert.buttons.begin(), alert.buttons.end());
  }
  return texts;
}

TEST(Commands, ShowNoTextThatWasNotLookedUp) {
  const std::pair<const char*, bool> texts[] = {{"", true},
                                                {"[A]", true},
                                                {"[A]  [B]", true},
                                                {"[A {[1]} [2] B]", true},
                                                {"[[1] and [2]]", true},
                                                {"A", false},
                                                {"[A] 1", false},
                                                {"1 [A]", false},
                                                {"[[A]]", false},
                                                {"[A", false}};
  for (const auto& [text, is_looked_up] : texts) EXPECT_EQ(IsLookedUp(text), is_looked_up) << text;

  for (const State& state : States()) {
    for (const Command* command : Commands()) {
      // Those that ask or tell say the most.
      if (command->menu == Menu::None && command->shortcut.empty()) continue;
      TestApplication test;
      test.ambient.localizer.brackets = true;
      state.reach(test);
      if (!command->can(test.app)) continue;
      command->run(test.app);
      for (const std::string& text : TextsShown(test)) {
        EXPECT_TRUE(IsLookedUp(text)) << text << " after " << command->name << ": " << state.name;
      }
    }
  }
}

TEST(Commands, HaveKeysOfTheirOwnWhereTheyCanRun) {
  for (const State& state : States()) {
    TestApplication test;
    state.reach(test);
    std::set<std::string_view> keys;
    for (const Command* command : Commands()) {
      if (command->shortcut.empty() || !command->can(test.app)) continue;
      EXPECT_TRUE(keys.insert(command->shortcut).second) << command->name << ": " << state.name;
    }
  }
}

TEST(Commands, AreFoundByOperationAndByControl) {
  std::set<std::string_view> names;
  for (const Command* command : Commands()) {
    EXPECT_TRUE(names.insert(command->name).second) << command->name;
    EXPECT_EQ(command->title.empty(), command->menu == Menu::None) << command->name;
    EXPECT_EQ(CommandNamed(command->name), command);
  }
  EXPECT_EQ(CommandNamed("depositEntry_MenuItem"), CommandNamed("Entry_Deposit"));
  EXPECT_EQ(CommandNamed("debitSheet_OK_Button"), CommandNamed("DebitSheet_OK"));
  for (const char* none : {"", " ", "Entry", "debitEntry_Button debitEntry_MenuItem"}) {
    EXPECT_EQ(CommandNamed(none), nullptr) << none;
  }
  TestApplication test;
  EXPECT_FALSE(Order(test.app, "Entry_Debit") || Order(test.app, "Entry_Debits"));
  test.AddAccount("A");
  EXPECT_TRUE(Order(test.app, "debitEntry_Button"));
  EXPECT_TRUE(test.app.entries().editEntryIsNew());
}

}  // namespace
}  // namespace tallyfold
