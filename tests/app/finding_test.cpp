#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_total.h"
#include "app/entries/entry_reveal.h"
#include "app/test_application.h"
#include "app/views/date_jump.h"
#include "app/views/entry_details.h"
#include "app/views/entry_find.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "filters/register_search.h"
#include "ledger/ledger.h"
#include "model/entry_split.h"
#include "model/entry_type.h"
#include "registers/copied_rows.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNoneIsResolved = 80;  // type of the filter; no entry is

// Account 1 "Here" is selected and has lunch, a check and a split; account 2 "There" has lunch too.
struct FindingTest : testing::Test, TestApplication {
  FindingTest() {
    there = AddAccount("There");
    AddDebit(5.0, "Lunch there");
    here = AddAccount("Here");
    lunch = AddDebit(5.0, "LUNCH");
    lunch->SetDate(20040301);
    check = AddDebit(31.5, "Rent");
    check->SetDate(20040305);
    check->SetIsCheck(true);
    check->SetCheckNumber(1042);
    check->SetNotes("with 5 keys");
    split = AddDebit(0.0);
    const auto lines = std::make_shared<LDGRAccountEntrySplit>();
    lines->SetDescription("Straße & <Weg>", 0);
    lines->SetAmount(5.0, 0);
    lines->SetToFrom("Shop", 3);
    split->SetSplit(lines);
    split->SetType(1);
    split->SetDate(20040310);
    app.registers().Reload();
  }
  EntryList Found(std::string_view text) {
    app.entryFind().Find(text);
    EntryList found;
    for (const auto& row : app.entryFind().State().rows) found.push_back(row.entry);
    return found;
  }
  std::shared_ptr<LDGRAccount> there, here;
  std::shared_ptr<LDGRAccountEntry> lunch, check, split;
};

TEST_F(FindingTest, FindsByTextsAmountsAndNumbersInEveryOpenAccount) {
  const auto far = there->GetEntries().front();
  const struct {
    std::string text;
    EntryList found;
  } kCases[] = {
      {" lunch ", {far, lunch}},
      {"straße", {split}},
      {"shop", {split}},
      {"keys", {check}},
      {"debit CARD", {split}},
      {"1042", {check}},
      {"-31.50", {check}},
      {"5", {far, lunch, check, split}},
      {"5.00", {far, lunch, split}},
      {"nowhere", {}},
      {"", {}},
      {"0", {}},
      {"1e5", {}},
      {"\xff", {}},
  };
  for (const auto& c : kCases) EXPECT_EQ(Found(c.text), c.found) << c.text;

  // It goes with the accounts.
  Found("lunch");
  there->SetPassword("x");
  there->setAuthenticated(false);
  EXPECT_EQ(app.entryFind().State().rows.size(), 1U);
  EXPECT_EQ(app.entryFind().State().locked, 1U);
}

TEST_F(FindingTest, ShowsWhatWasFoundWhereverItIs) {
  app.selection().Account_Select(there);
  app.search().Filter_Select(kNoneIsResolved);
  app.selection().Account_Select(here);
  Found("lunch");
  EXPECT_TRUE(app.entryFind().Show(0));
  EXPECT_EQ(app.desk().SelectedAccount(), there);
  EXPECT_EQ(app.entryReveal().State().text, "Hidden by the filter 'Resolved'");
  EXPECT_TRUE(app.entryFind().Show(1));
  EXPECT_EQ(app.desk().SelectedEntry(), lunch);
  EXPECT_FALSE(app.entryFind().Show(2));
}

TEST_F(FindingTest, GoesToADayInWhateverOrder) {
  const struct {
    DateNumber day;
    std::shared_ptr<LDGRAccountEntry> entry;
  } kCases[] = {{20040101, lunch}, {20040301, lunch}, {20040302, check},
                {20040306, split}, {20040310, split}, {20991231, split}};
  for (const char* column : {"date", "date", "amount", "description"}) {
    app.registers().currentTableDataSource().ClickedTableColumn(column);
    for (const auto& c : kCases) {
      EXPECT_TRUE(app.dateJump().Go(c.day));
      EXPECT_EQ(app.desk().SelectedEntry(), c.entry) << column << c.day;
    }
  }
  app.search().Filter_Select(kNoneIsResolved);
  EXPECT_FALSE(app.dateJump().Go(20040301));
}

TEST_F(FindingTest, TellsWhatTheFilterHidesAndTakesItAway) {
  auto& shown = app.shownEntries();
  EXPECT_EQ(shown.State().shown, 3U);
  EXPECT_EQ(shown.State().sum_text, "-$41.50");
  EXPECT_EQ(shown.State().hidden_text, "");
  app.search().Search_Field("lun");
  app.search().Search();
  EXPECT_EQ(shown.State().hidden_text, "The search for 'lun' hides 2 of 3 entries.");
  app.desk().SelectEntry(lunch);
  shown.ShowAll();
  EXPECT_EQ(shown.State().hidden, 0U);
  EXPECT_EQ(app.desk().SelectedEntry(), lunch);
  app.search().Filter_Select(kNoneIsResolved);
  EXPECT_EQ(shown.State().hidden_text, "The filter 'Resolved' hides all 3 entries.");
}

TEST_F(FindingTest, TellsWhatNoColumnShowsAndWhatSumsAre) {
  const auto& preferences = app.desk().preferences();
  EXPECT_EQ(DetailsOf(check.get(), preferences).notes, "with 5 keys");
  EXPECT_EQ(DetailsOf(split.get(), preferences).split,
            (std::vector<SplitDetail>{{"Straße & <Weg>", "", -5.0, "-$5.00"},
                                      {"", "Shop", 0.0, "$0.00"}}));
  EXPECT_TRUE(DetailsOf(lunch.get(), preferences).IsEmpty());
  EXPECT_TRUE(DetailsOf(nullptr, preferences).IsEmpty());
  EXPECT_EQ(SumOf({lunch, check}, preferences).amount_text, "-$36.50");
  EXPECT_EQ(TotalOfUnlocked(app.desk().accounts(), preferences).text, "-$46.50");
  there->SetPassword("x");
  there->setAuthenticated(false);
  const AccountsTotal total = TotalOfUnlocked(app.desk().accounts(), preferences);
  EXPECT_EQ(total.title + ' ' + total.text, "Total without 1 locked -$41.50");
}

TEST_F(FindingTest, CopiesRowsAsOtherProgramsTakeThem) {
  const auto& rows = app.registers().currentTableDataSource();
  lunch->SetDescription("a\tb\n<c>");
  const std::vector<TableColumn> columns = {rows.VisibleTableColumns()[3],
                                            rows.VisibleTableColumns()[6]};
  const std::vector<std::size_t> wanted = {0, 99, 1};
  EXPECT_EQ(RowsAsText(rows, columns, wanted),
            "Description\tAmount\na b <c>\t-$5.00\nRent\t-$31.50\n");
  EXPECT_EQ(RowsAsHtml(rows, columns, wanted),
            "<table>\n<tr><th>Description</th><th>Amount</th></tr>\n"
            "<tr><td>a\tb<br>&lt;c&gt;</td><td align=\"right\">-$5.00</td></tr>\n"
            "<tr><td>Rent</td><td align=\"right\">-$31.50</td></tr>\n</table>\n");
}

}  // namespace
}  // namespace tallyfold
