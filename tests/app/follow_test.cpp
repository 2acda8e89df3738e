// What is worked out of all entries and follows their changes, beside the same worked out anew.

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

#include "app/face/refresh.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "app/views/registers.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account_records.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

class Follow : public testing::Test {
 protected:
  // The account itself stays.
  Follow() { test_.app.ledger().history().Clear(); }

  int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

  // Few days, numbers of checks, amounts and texts, so that many are level; some numbers twice.
  void Fill(LDGRAccountEntry& entry) {
    static constexpr std::string_view kTexts[] = {"", "tea", "Tea", "rent", "Straße", "STRASSE"};
    entry.SetDate(20040301 + Below(12));
    entry.SetAmount(Below(40) / 4.0 - 5);
    entry.SetIsCheck(Below(3) == 0);
    entry.SetCheckNumber(entry.IsCheck() ? 100 + Below(60) : -1);
    entry.SetDescription(kTexts[Below(6)]);
    entry.SetToFrom(kTexts[Below(6)]);
    entry.SetCleared(Below(2) == 0);
    entry.SetType(Below(4) - 1);
  }
  void ChangeEntries() {
    Change change(test_.app.ledger(), "Step", account_);
    for (int i = 1 + Below(6) / 4 * Below(90); i > 0; --i) {
      const auto& entries = account_->GetEntries();
      const auto entry =
          entries.empty()
              ? nullptr
              : entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))];
      switch (Below(4)) {
        case 0:
          change.Remove(account_, entry.get());
          break;
        case 1:
          if (entry != nullptr) Fill(change.Edit(account_, entry));
          break;
        default: {
          const auto added = std::make_shared<LDGRAccountEntry>();
          added->SetNumber(Below(40) == 0 ? 5 : change.NextNumber(account_));
          added->SetIsDebit(true);
          Fill(*added);
          change.Add(account_, added);
        }
      }
      if (Below(20) == 0) Compare(false);
    }
    if (Below(8) != 0) change.Close();
  }
  void Act() {
    auto& app = test_.app;
    switch (Below(9)) {
      case 0:
        app.undo().UndoStep();
        break;
      case 1:
        app.undo().RedoStep();
        break;
      case 2:
        app.search().Filter_Select(
            FilterTypes()[static_cast<std::size_t>(Below(static_cast<int>(FilterTypes().size())))]
                .number);
        break;
      case 3: {
        static constexpr std::string_view kColumns[] = {"check",  "date",    "type",  "description",
                                                        "amount", "cleared", "toFrom"};
        app.registers().entryDataSource().ClickedTableColumn(kColumns[Below(7)]);
        break;
      }
      default:
        ChangeEntries();
    }
    if (Below(30) == 0) test_.loop.AdvanceBy(std::chrono::hours(24));
    app.refresh().EntryRemoved();
  }
  void Compare(bool with_rows) {
    for (auto* shown :
         {&test_.app.registers().entryDataSource(), &test_.app.registers().reconcileDataSource()}) {
      if (!with_rows) break;
      const bool is_entry = shown == &test_.app.registers().entryDataSource();
      RegisterRows anew;
      anew.SetEntries(is_entry ? account_->entryFilteredEntries()
                               : account_->reconcileFilteredEntries());
      anew.Sort({SortKeyOfColumn(shown->SortColumn()), shown->SortsDescending()});
      ASSERT_EQ(NumbersOf(shown->GetEntries()), NumbersOf(anew.Entries()));
      ASSERT_TRUE(shown->GetEntries() == anew.Entries());
    }
    LDGRAccount copy;
    copy.SetEntries(account_->GetEntries());
    for (const auto& entry : account_->GetEntries()) {
      ASSERT_NEAR(account_->RunningBalanceOf(*entry), copy.GetRunningBalanceAtEntry(entry.get()),
                  1e-6);
      ASSERT_TRUE(account_->EntriesWithNumber(entry->GetNumber()) ==
                  copy.EntriesWithNumber(entry->GetNumber()));
      ASSERT_EQ(account_->NextAvailableCheckNumberAfterEntry(entry.get()),
                copy.NextAvailableCheckNumberAfterEntry(entry.get()));
    }
    ASSERT_EQ(account_->GetLastEnteredCheck(), copy.GetLastEnteredCheck());
  }

  TestApplication test_;
  std::shared_ptr<LDGRAccount> account_ = test_.AddAccount("A");
  std::mt19937 random_{7};
};

TEST_F(Follow, ChangesEndAsIfAllWereWorkedOutAnew) {
  for (int step = 0; step < 220; ++step) {
    Act();
    Compare(true);
    if (HasFatalFailure()) FAIL() << "step " << step;
  }
}

TEST_F(Follow, RowsTellWhatBecameOfThem) {
  class Told final : public TableState::Observer {
   public:
    void TableChanged(const TableState&, TableState::Change) override {}
    void RowsChanged(const TableState&, const RowsChange& change) override { changes = change; }
    RowsChange changes;
  } told;
  using Kind = RowsChange::Kind;
  auto& shown = test_.app.registers().entryDataSource();
  for (const std::int32_t day : {1, 3, 5, 7}) {
    Change change(test_.app.ledger(), "Step", account_);
    change.Add(account_,
               MakeEntry({.number = change.NextNumber(account_), .date = 20040300 + day}));
    change.Close();
  }
  test_.app.refresh().EntryRemoved();
  shown.GetTableView()->SetShownBy(&told);
  const auto entries = shown.GetEntries();
  const struct {
    std::size_t row;
    DateNumber day;  // 0 removes the entry
    Kind kind;
    std::size_t first;
    std::size_t last;
  } cases[] = {{1, 20040308, Kind::Moved, 1, 3},   {1, 20040303, Kind::Moved, 3, 1},
               {0, 20040304, Kind::Moved, 0, 1},   {0, 20040301, Kind::Moved, 0, 1},
               {2, 20040306, Kind::Changed, 0, 3}, {2, 0, Kind::Removed, 2, 2}};
  for (const auto& each : cases) {
    Change change(test_.app.ledger(), "Step", account_);
    if (each.day == 0) {
      change.Remove(account_, entries[each.row].get());
    } else {
      change.Edit(account_, entries[each.row]).SetDate(each.day);
    }
    change.Close();
    test_.app.refresh().EntryRemoved();
    EXPECT_EQ(told.changes.kind, each.kind) << each.row << " " << each.day;
    EXPECT_EQ(told.changes.first, each.first) << each.row << " " << each.day;
    EXPECT_EQ(told.changes.last, each.last) << each.row << " " << each.day;
  }
  test_.app.undo().UndoStep();
  EXPECT_EQ(shown.GetEntries().size(), 4U);
  shown.GetTableView()->SetShownBy(nullptr);
}

}  // namespace
}  // namespace tallyfold
