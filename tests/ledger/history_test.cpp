#include <gtest/gtest.h>

#include "ledger/ledger_fixture.h"

namespace tallyfold {
namespace {

using Refusal = History::Refusal;

TextList NamesOf(const std::vector<History::Line>& lines) {
  TextList names;
  for (const auto& line : lines) names.push_back(line.name + (line.can_be_reached ? "" : "!"));
  return names;
}

struct HistoryTest : testing::Test, LedgerFixture {
  void Step(std::string_view name, const std::shared_ptr<LDGRAccount>& ordered_in) {
    Change change(ledger, name, ordered_in);
    change.Add(first, MakeEntry({.number = change.NextNumber(first)}));
    change.Add(second, MakeEntry({}));
    change.Close();
  }
};

TEST_F(HistoryTest, RefusesWhatWasOrderedInALockedAccountAndWhatIsOlder) {
  Step("A", second);
  Step("B", first);
  Step("C", second);
  Step("D", nullptr);
  second->setAuthenticated(false);
  EXPECT_EQ(NamesOf(history.UndoLines()), (TextList{"D", "B!"}));
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(history.WhyNotUndo(), Refusal::Locked);
  EXPECT_FALSE(history.Undo());
  EXPECT_EQ(history.WhyNotRedo(), Refusal::None);
  second->setAuthenticated(true);
  EXPECT_TRUE(history.Undo());
  EXPECT_TRUE(history.Undo()) << "the half in the other account follows";
  EXPECT_EQ(NamesOf(history.RedoLines()), (TextList{"B", "C", "D"}));
  second->setAuthenticated(false);
  EXPECT_TRUE(history.Redo());
  EXPECT_EQ(history.WhyNotRedo(), Refusal::Locked);
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(history.WhyNotUndo(), Refusal::Locked) << "of what is older A was ordered there";
}

TEST_F(HistoryTest, BringsARemovedAccountBackAsItWas) {
  struct Preferences final : StepCompanion {
    explicit Preferences(std::string& way_log) : log(way_log) {}
    void Follow(Way way) noexcept override { log += way == Way::Back ? '<' : '>'; }
    std::string& log;
  };
  for (const bool is_locked : {true, false}) {
    LedgerFixture f;
    std::string ways;
    f.second->setAuthenticated(!is_locked);
    const std::string before = f.Bytes();
    {
      Change change(f.ledger, "Remove Account", f.second);
      change.Attach(std::make_unique<Preferences>(ways));
      change.RemoveAccount(f.second);
      change.Close();
    }
    EXPECT_EQ(f.store.accounts(), AccountList{f.first});
    ASSERT_TRUE(f.history.Undo());
    EXPECT_EQ(f.store.accounts(), (AccountList{f.first, f.second}));
    EXPECT_EQ(f.Bytes(), before);
    EXPECT_EQ(f.history.Redo(), !is_locked);
    EXPECT_EQ(ways, is_locked ? "<" : "<>");
  }
}

TEST_F(HistoryTest, KeepsSettingsAndNumbersWhenAStepIsUndone) {
  {
    Change change(ledger, "Import", first);
    change.Add(first, MakeEntry({.number = change.NextNumber(first)}));
    change.EditSettings(first).SetQIFImportDateFormat(3);
    change.EditPassword();
    store.setPassword("p");
    change.Close();
  }
  ASSERT_TRUE(history.Undo());
  EXPECT_EQ(first->GetQIFImportDateFormat(), 3);
  EXPECT_EQ(store.password(), "p");
  EXPECT_EQ(first->GetEntries().size(), 1U);
  EXPECT_EQ(first->NextAvailableNumber(), 3);
}

TEST_F(HistoryTest, MakesNoStepOfSettingsAndJoinsWhatFollowsFromSteps) {
  const auto settings = [this] {
    Change change(ledger, "Filter", first);
    change.EditSettings(first).setEntryFilterType(change.NextNumber(first));
    change.Close();
  };
  settings();
  EXPECT_EQ(history.WhyNotUndo(), Refusal::NothingThere);
  const std::string before = Bytes();
  Step("A", first);
  history.Undo();
  settings();
  EXPECT_EQ(history.WhyNotRedo(), Refusal::None) << "a setting is no change of what was undone";
  history.Redo();
  {
    Change follows(ledger);
    follows.Edit(first, first->GetEntries().front()).SetToFrom("new name");
    follows.Remove(first, first->GetEntries().back().get());
    follows.Close();
  }
  const std::string after = Bytes();
  EXPECT_EQ(NamesOf(history.UndoLines()), TextList{"A"});
  ASSERT_TRUE(history.Undo());
  EXPECT_EQ(Bytes(), before);
  ASSERT_TRUE(history.Redo());
  EXPECT_EQ(Bytes(), after);
  history.Undo();
  Step("B", first);
  EXPECT_EQ(history.WhyNotRedo(), Refusal::NothingThere) << "a new step ends what was undone";
  history.Clear();
  EXPECT_EQ(history.WhyNotUndo(), Refusal::NothingThere);
}

TEST_F(HistoryTest, IsNotAskedWhileAChangeIsMadeOrTold) {
  struct Asking final : LedgerListener {
    explicit Asking(const History& asked) : steps(asked) {}
    void LedgerChanged(const ChangeSet& set) override {
      said.push_back(set.name + std::to_string(static_cast<int>(set.cause)));
      EXPECT_EQ(steps.WhyNotUndo(), Refusal::ChangeOpen);
    }
    const History& steps;
    TextList said;
  } asking(history);
  ledger.AddListener(asking);
  Step("A", first);
  {
    const Change change(ledger);
    EXPECT_EQ(history.WhyNotUndo(), Refusal::ChangeOpen);
    EXPECT_FALSE(history.Undo());
  }
  history.Undo();
  history.Redo();
  ledger.RemoveListener(asking);
  history.Undo();
  EXPECT_EQ(asking.said, (TextList{"A0", "A1", "A2"}));
}

TEST_F(HistoryTest, ForgetsTheOldestStepsWhereTheyTakeTooMuchMemory) {
  ledger.RemoveListener(mirror);
  const std::string notes(std::size_t{100} << 20, 'x');
  const auto entry = first->GetEntries().front();
  for (const char* name : {"A", "B", "C", "D"}) {
    Change change(ledger, name, first);
    change.Edit(first, entry).SetNotes(notes + name);
    change.Close();
  }
  EXPECT_EQ(NamesOf(history.UndoLines()), (TextList{"D", "C"}));
  {
    Change change(ledger, "E", first);
    change.Edit(first, entry).SetNotes(notes + notes + notes);
    change.Close();
  }
  {
    Change change(ledger, "F", first);
    change.Edit(first, entry).SetNotes("");
    change.Close();
  }
  EXPECT_EQ(NamesOf(history.UndoLines()), TextList{"F"}) << "the newest stays, whatever it takes";
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(entry->GetNotes().size(), 3 * notes.size());
}

TEST_F(HistoryTest, UndoesAnImportIntoALargeAccountInOnePass) {
  ledger.RemoveListener(mirror);
  constexpr int kMany = 100'000;
  EntryList many;
  for (int i = 0; i < kMany; ++i) many.push_back(MakeEntry({.number = i}));
  {
    Change change(ledger, "Import", first);
    for (const auto& entry : many) change.Add(first, entry);
    change.Close();
  }
  // A quadratic way would take minutes here.
  for (int i = 0; i < 10; ++i) {
    ASSERT_TRUE(history.Undo());
    ASSERT_EQ(first->GetEntries().size(), 1U);
    ASSERT_TRUE(history.Redo());
  }
  for (int i = 0; i < 2'000; ++i) {
    Change change(ledger, "Edit Entry", first);
    const auto& entry = many[static_cast<std::size_t>(i * 37 % kMany)];
    change.Edit(first, entry).SetCleared(true);
    EXPECT_TRUE(i % 20 != 0 || change.Remove(first, entry.get()));
    change.Close();
  }
  EXPECT_EQ(first->GetEntries().size(), kMany + 1U - 100U);
}

}  // namespace
}  // namespace tallyfold
