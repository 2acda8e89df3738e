#include "registers/account_table_view_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/current_account.h"
#include "plist/read_report.h"
#include "registers/fake_table_host.h"
#include "registers/schedule_list.h"
#include "registers/table_log.h"

namespace tallyfold {
namespace {

// Another register with what was stored of one, as after the next launch.
struct LaterRegister {
  LaterRegister(const TableHost& host, const LDGRAccountPreferences& stored) : rows(host) {
    rows.SetTableView(&table);
    rows.SetTableIdentifier("entry");
    rows.SetAccountPreferences(
        std::make_shared<LDGRAccountPreferences>(stored.asDictionary().DeepCopy()));
    rows.ReconfigureTable();
  }

  TableState table{DefaultRegisterColumns()};
  LDGRAccountTableViewData rows;
};

class RegisterRowsTest : public testing::Test {
 protected:
  RegisterRowsTest() {
    rows_.SetTableView(&table_);
    rows_.SetTableIdentifier("entry");
    rows_.SetAccountPreferences(preferences_);
    rows_.SetAccount(account_);
    account_->SetStartingBalance(1000);
  }

  std::shared_ptr<LDGRAccountEntry> Add(std::int32_t number, DateNumber date, double amount,
                                        std::string_view description) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(number);
    entry->SetDate(date);
    entry->SetAmount(amount);
    entry->SetDescription(description);
    account_->AddEntry(entry);
    return entry;
  }
  void AddThree() {
    Add(1, 20040303, -30, "Tea");
    Add(2, 20040301, -10, "Rent");
    Add(3, 20040302, 20, "Coffee");
  }

  // The entry numbers by row, the selected one in brackets.
  [[nodiscard]] std::string Rows() const {
    std::string text;
    for (const auto& entry : rows_.GetEntries()) {
      const std::string number = std::to_string(entry->GetNumber());
      text += entry == rows_.GetSelectedEntry() ? "[" + number + "]" : number;
      text += " ";
    }
    return text;
  }
  // The columns shown with their widths.
  [[nodiscard]] std::string Columns() const {
    std::string text;
    for (const TableColumn& column : rows_.VisibleTableColumns()) {
      text += column.identifier + ":" + std::to_string(static_cast<int>(column.width)) + " ";
    }
    return text;
  }

  FakeAmbient ambient_;
  FakeTableHost host_;
  TableState table_{DefaultRegisterColumns()};
  std::shared_ptr<LDGRAccountPreferences> preferences_ = std::make_shared<LDGRAccountPreferences>();
  std::shared_ptr<LDGRAccount> account_ = std::make_shared<LDGRAccount>();
  ScopedCurrentAccount current_{account_.get()};
  LDGRAccountTableViewData rows_{host_};
};

TEST_F(RegisterRowsTest, ShowCellsByColumn) {
  auto inactive = std::make_shared<LDGRAccountEntryType>();
  inactive->SetNumber(40);
  inactive->SetName("Old Card");
  account_->SetInactiveTypes({inactive});
  const auto check = Add(1, 20040307, -12.5, "Books");
  check->SetIsCheck(true);
  check->SetCheckNumber(1042);
  check->SetType(40);
  check->SetToFrom("Cellar");
  check->SetCleared(true);
  const auto out = Add(2, 20040308, -20, "");
  out->SetIsTransfer(true);
  out->SetIsTransferOrigin(true);
  out->SetCheckNumber(7);
  const auto in = Add(3, 20040309, 20, "");
  in->SetIsTransfer(true);
  Add(4, 20040310, 1, "")->SetType(99);
  rows_.SetEntries(account_->GetEntries());

  using Alignment = TableCell::Alignment;
  struct Case {
    std::string_view column;
    std::size_t row;
    TableCell cell;
  };
  const std::vector<Case> cases = {
      {"date", 0, {"03/07/04", 20040307.0}},
      {"check", 0, {"1042", 1042.0, Alignment::Right}},
      {"check", 1, {""}},
      {"type", 0, {"Old Card"}},
      {"type", 1, {"Transfer To"}},
      {"type", 2, {"Transfer From"}},
      {"type", 3, {""}},
      {"description", 0, {"Books"}},
      {"toFrom", 0, {"Cellar"}},
      {"cleared", 0, {"\u2713", {}, Alignment::Natural, TableCell::Mark::Set}},
      {"cleared", 1, {"", {}, Alignment::Natural, TableCell::Mark::Unset}},
      {"amount", 1, {"-$20.00", -20.0, Alignment::Right}},
      {"balance", 0, {"$987.50", 987.5, Alignment::Right}},
      {"balance", 3, {"$988.50", 988.5, Alignment::Right}},
      {"unknown", 0, {""}},
  };
  for (const Case& c : cases) EXPECT_EQ(rows_.tableView(c.column, c.row), c.cell) << c.column;
  rows_.SetDateFormat("%Y-%m-%d");
  rows_.SetDateFormat(std::nullopt);
  EXPECT_EQ(rows_.tableView("date", 0).text, "2004-03-07");
  host_.wanted.SetShowCurrencySymbol(false);
  EXPECT_EQ(rows_.tableView("amount", 1).text, "-20.00");
  EXPECT_TRUE(rows_.LookOfRow(1).color);
  EXPECT_TRUE(rows_.LookOfRow(99) == RowLook());
}

TEST_F(RegisterRowsTest, AreHiddenByTheLockAndLoggedWhereThereAreNone) {
  AddThree();
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(rows_.numberOfRowsInTableView(), 3U);
  EXPECT_EQ(rows_.TotalOfRows(), -20.0);
  EXPECT_EQ(rows_.tableView("description", 3), TableCell{});
  host_.is_unlocked = false;
  EXPECT_EQ(rows_.numberOfRowsInTableView(), 0U);
  EXPECT_EQ(rows_.TotalOfRows(), 0.0);
  EXPECT_EQ(rows_.tableView("description", 0), TableCell{});
  EXPECT_EQ(ambient_.log.Take(),
            std::vector<std::string>(
                2, "Invalid parameter not satisfying: theRow >= 0 && theRow < [entries count]"));
  EXPECT_EQ(rows_.RowToEntry(-1), nullptr);
  EXPECT_EQ(rows_.RowToEntry(3), nullptr);
}

TEST_F(RegisterRowsTest, TurnTheOrderOverAtEachClickAndKeepTheEntrySelected) {
  AddThree();
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(Rows(), "2 3 1 ");  // by date, the first column
  EXPECT_EQ(table_.HighlightedColumn(), "date");
  EXPECT_EQ(table_.IndicatorImage(), "tableView_UpArrow.tif");
  rows_.SelectRow(2);

  struct Case {
    std::string_view column;
    std::string_view rows;
    std::string_view highlighted;
    std::string_view image;
    std::int32_t stored_row;
  };
  for (const Case& c : {
           Case{"date", "[1] 3 2 ", "date", "tableView_DownArrow.tif", 0},
           Case{"date", "2 3 [1] ", "date", "tableView_UpArrow.tif", 2},
           // The direction turns over also by another column.
           Case{"description", "[1] 2 3 ", "description", "tableView_DownArrow.tif", 0},
           Case{"amount", "[1] 2 3 ", "amount", "tableView_UpArrow.tif", 0},
           Case{"balance", "[1] 2 3 ", "amount", "tableView_UpArrow.tif", 0},
           Case{"cleared", "3 2 [1] ", "cleared", "tableView_DownArrow.tif", 2},
       }) {
    rows_.ClickedTableColumn(c.column);
    EXPECT_EQ(Rows(), c.rows) << c.column;
    EXPECT_EQ(table_.HighlightedColumn(), c.highlighted);
    EXPECT_EQ(table_.IndicatorImage(), c.image);
    EXPECT_EQ(preferences_->GetSelectedRowForTableIdentifier("entry"), c.stored_row);
  }
  EXPECT_EQ(preferences_->GetSelectedColumnIdentifierForTableIdentifier("entry"), "cleared");
  EXPECT_TRUE(preferences_->GetSortDescendingForTableIdentifier("entry"));
}

TEST_F(RegisterRowsTest, KeepTheEntrySelectedWhenReloaded) {
  AddThree();
  const EntryList all = account_->GetEntries();
  rows_.Reload(all);
  rows_.SelectEntry(all[0].get());
  EXPECT_EQ(Rows(), "2 3 [1] ");
  rows_.Reload({all[0], all[2]});
  EXPECT_EQ(Rows(), "3 [1] ");
  EXPECT_EQ(table_.ScrolledRow(), 1);
  rows_.Reload({all[1], all[2]});
  EXPECT_EQ(Rows(), "2 3 ");
  rows_.Reload(all);
  EXPECT_EQ(Rows(), "2 3 1 ");
  rows_.SelectEntry(all[2].get());
  EXPECT_EQ(Rows(), "2 [3] 1 ");
  rows_.ScrollToEntry(all[0].get());
  EXPECT_EQ(table_.ScrolledRow(), 2);
  rows_.SelectRow(3);
  EXPECT_EQ(Rows(), "2 3 1 ");
}

TEST_F(RegisterRowsTest, TellWhatBecameOfThemAndThenOfTheSelection) {
  AddThree();
  const EntryList all = account_->GetEntries();  // in the order of days: 1, 2, 0
  const auto later = Add(4, 20040305, 1, "Zoo");
  const auto latest = Add(5, 20040306, 1, "Zoo");
  rows_.Redraw();
  TableLog log;
  table_.SetShownBy(&log);
  struct Case {
    EntryList entries;
    std::string_view told;
  };
  const auto& a = all[1];
  const auto& b = all[2];
  const auto& c = all[0];
  for (const Case& each : {
           Case{{}, "reset; "},
           Case{{c, a, b}, "+0-2; "},
           Case{{a, b, c}, "=0-2; "},
           Case{{a, c}, "-1; row 1; "},
           Case{{a, b, c}, "+1; row 2; "},
           Case{{a, b, c, later, latest}, "+3-4; "},
           Case{{b, later}, "reset; row -1; "},
           Case{{b, c, later}, "+1; "},
           Case{{c}, "reset; "},
           Case{{}, "-0; "},
           Case{{a, b, c, later}, "+0-3; "},
       }) {
    rows_.Reload(each.entries);
    EXPECT_EQ(log.Take(), each.told) << each.entries.size();
    if (each.told == "=0-2; ") rows_.SelectEntry(c.get());
    log.Take();
  }
  rows_.SelectEntry(c.get());
  log.Take();
  a->SetDate(20040310);
  rows_.Reload(account_->entryFilteredEntries());
  EXPECT_EQ(log.Take(), "reset; row 1; ") << "one moved and one came";
  latest->SetDate(20040301);
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(log.Take(), "3>0; row 2; ");
  latest->SetDate(20040306);
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(log.Take(), "0>3; row 1; ");
  rows_.ClickedTableColumn("date");
  EXPECT_EQ(log.Take(), "sort 4 3 2 1 0; row 3; ");
  rows_.Redraw();
  EXPECT_EQ(log.Take(), "=0-4; ");
  rows_.SortBy(RegisterSortKey::Date, false);
  rows_.Redraw();
  EXPECT_EQ(log.Take(), "reset; ") << "sorted without telling";

  rows_.SelectRow(-1);
  log.Take();
  host_.is_unlocked = false;
  rows_.Redraw();
  EXPECT_EQ(log.Take(), "reset; ");
  rows_.Reload(all);
  EXPECT_EQ(log.Take(), "reset; ");
  host_.is_unlocked = true;
  rows_.Redraw();
  EXPECT_EQ(log.Take(), "reset; ");
}

TEST_F(RegisterRowsTest, StartWithTheStoredRow) {
  AddThree();
  struct Case {
    std::int32_t stored;
    std::string_view rows;
  };
  for (const Case& c : {Case{-1, "[2] 3 1 "}, Case{1, "2 [3] 1 "}, Case{9, "2 3 1 "}}) {
    rows_.SetEntries({});
    preferences_->SetSelectedColumn("date", false, c.stored, "entry");
    rows_.ReconfigureTable();
    rows_.Reload(account_->GetEntries());
    EXPECT_EQ(Rows(), c.rows) << c.stored;
  }
  // Without rows to choose from it is not kept for later ones; what is stored stays.
  rows_.SetEntries({});
  preferences_->SetSelectedColumn("date", false, 1, "entry");
  rows_.ReconfigureTable();
  rows_.Reload({});
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(Rows(), "2 3 1 ");
  EXPECT_EQ(preferences_->GetSelectedRowForTableIdentifier("entry"), 1);
  // With rows already there, at once.
  preferences_->SetSelectedColumn("date", false, 2, "entry");
  rows_.ReconfigureTable();
  EXPECT_EQ(Rows(), "2 3 [1] ");
  rows_.SetAccount(nullptr);
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(table_.SelectedRow(), TableState::kNoRow);
}

plist::Value Column(std::string_view identifier, const plist::Value& width) {
  plist::Dictionary column;
  column.Set("identifier", identifier);
  column.Set("width", width);
  return column;
}

TEST_F(RegisterRowsTest, TakeTheStoredLayout) {
  constexpr auto kDefault =
      "date:80 check:60 type:110 description:200 toFrom:150 cleared:60 amount:90 balance:90 ";
  rows_.ReconfigureTable();
  EXPECT_EQ(Columns(), kDefault);

  plist::Array columns;
  for (const plist::Value& column :
       {Column("amount", 120), Column("cleared", -1), Column("gone", 50), Column("date", 0),
        Column("type", "wide"), Column("check", "66.5 points"), Column("balance", "-9"),
        plist::Value("no dictionary")}) {
    columns.Append(column);
  }
  preferences_->SetColumns(columns, "entry");
  rows_.ReconfigureTable();
  EXPECT_EQ(Columns(),
            "amount:120 cleared:60 date:0 type:110 check:66 balance:90 description:200 "
            "toFrom:150 ");
}

TEST_F(RegisterRowsTest, ShowHiddenColumnsAtTheirPlacesInAnyOrder) {
  const auto names = [](const LDGRAccountTableViewData& rows) {
    std::string text;
    for (const TableColumn& column : rows.VisibleTableColumns()) text += column.identifier + " ";
    return text;
  };
  rows_.ReconfigureTable();
  const std::string all = names(rows_);
  std::vector<std::string> hidden = {"check", "date", "toFrom", "type"};
  do {
    std::vector<std::string> shown = hidden;
    std::ranges::sort(shown);
    do {
      for (const auto& column : hidden) rows_.HideTableColumnWithIdentifier(column);
      // Half of them come back after the next launch.
      for (const auto& column : {shown[0], shown[1]}) rows_.ShowTableColumnWithIdentifier(column);
      plist::Array columns;
      for (const TableColumn& column : rows_.VisibleTableColumns()) {
        columns.Append(Column(column.identifier, column.width));
      }
      preferences_->SetColumns(columns, "entry");
      LaterRegister later(host_, *preferences_);
      for (const auto& column : {shown[2], shown[3]}) {
        rows_.ShowTableColumnWithIdentifier(column);
        later.rows.ShowTableColumnWithIdentifier(column);
      }
      ASSERT_EQ(names(rows_), all);
      ASSERT_EQ(names(later.rows), all);
    } while (std::ranges::next_permutation(shown).found);
  } while (std::ranges::next_permutation(hidden).found);
}

TEST_F(RegisterRowsTest, HideColumnsAndBringThemBackToTheirPlace) {
  AddThree();
  rows_.Reload(account_->GetEntries());
  rows_.ClickedTableColumn("description");
  table_.SetColumnWidth(3, 222.9);
  rows_.HideTableColumnWithIdentifier("description");
  rows_.HideTableColumnWithIdentifier("unknown");
  EXPECT_EQ(Columns(), "date:80 check:60 type:110 toFrom:150 cleared:60 amount:90 balance:90 ");
  // A hidden sort column stays in force.
  EXPECT_EQ(table_.HighlightedColumn(), "");
  rows_.Reload(account_->GetEntries());
  EXPECT_EQ(Rows(), "1 2 3 ");

  LaterRegister later(host_, *preferences_);
  EXPECT_EQ(later.table.Columns(), table_.Columns());
  later.rows.ShowTableColumnWithIdentifier("description");
  EXPECT_EQ(later.table.Columns()[3].identifier, "description");
  EXPECT_EQ(later.table.Columns()[3].width, 222.0);
  const auto kept = later.rows.GetAccountPreferences();
  EXPECT_TRUE(kept->GetHiddenColumnsForTableIdentifier("entry")->empty());

  for (const TableColumn& column : DefaultRegisterColumns()) {
    rows_.HideTableColumnWithIdentifier(column.identifier);
  }
  EXPECT_EQ(Columns(), "balance:90 ");
  // An account without hidden columns shows them all.
  rows_.SetAccountPreferences(std::make_shared<LDGRAccountPreferences>());
  rows_.ReconfigureTable();
  EXPECT_EQ(rows_.VisibleTableColumns().size(), 8U);
}

TEST_F(RegisterRowsTest, HaveTheBalanceOfTheirEntryInEveryOrderAndUnderEveryFilter) {
  for (std::int32_t i = 0; i < 60; ++i) {
    const auto entry = Add(i % 50, 20040301 + i % 7, (i % 11 - 5) * 2.5, i % 3 == 0 ? "a" : "b");
    entry->SetIsCheck(i % 4 == 0);
    entry->SetCheckNumber(i % 5);
  }
  EntryList some;
  for (const auto& entry : account_->GetEntries()) {
    if (entry->GetDescription() == "a") some.push_back(entry);
  }
  const auto expect_figures = [this] {
    double total = 0.0;
    for (std::size_t row = 0; row < rows_.GetEntries().size(); ++row) {
      const LDGRAccountEntry& entry = *rows_.GetEntries()[row];
      total += entry.GetAmount();
      EXPECT_DOUBLE_EQ(rows_.RunningBalanceOfRow(row), account_->GetRunningBalanceAtEntry(&entry));
    }
    EXPECT_DOUBLE_EQ(rows_.TotalOfRows(), total);
  };
  for (const EntryList& shown : {account_->GetEntries(), some}) {
    rows_.Reload(shown);
    expect_figures();
    for (const char* column : {"amount", "description", "check", "date", "type"}) {
      rows_.ClickedTableColumn(column);
      expect_figures();
    }
  }
  some[2]->SetAmount(99.5);
  account_->NoteChange();
  expect_figures();
  EXPECT_EQ(rows_.RunningBalanceOfRow(1000), 0.0);
}

TEST(StoredColumns, AreTakenOfEveryColumnAndToSortOfEveryOneThatSorts) {
  const std::pair<std::string_view, std::vector<TableColumn>> tables[] = {
      {"entry", DefaultRegisterColumns()},
      {"reconcile", DefaultRegisterColumns()},
      {"schedule", DefaultScheduleColumns()}};
  for (const auto& [table, columns] : tables) {
    for (const TableColumn& column : columns) {
      LDGRAccountPreferences stored;
      plist::Dictionary shown;
      shown.Set("identifier", column.identifier);
      plist::Array all;
      all.Append(shown);
      stored.SetSelectedColumn(column.identifier, false, 0, all, table);
      const plist::ReadReport report;
      const LDGRAccountPreferences read(stored.asDictionary());
      EXPECT_EQ(report.Total(), column.sorts ? 0U : 1U) << table << ' ' << column.identifier;
    }
  }
}

}  // namespace
}  // namespace tallyfold
