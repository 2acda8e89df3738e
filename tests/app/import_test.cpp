#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/exchange/qif_import_proof.h"
#include "app/face/sheet_slot.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/menus.h"
#include "app/test_application.h"
#include "app/views/registers.h"
#include "ledger/ledger.h"
#include "registers/table_data_source.h"
#include "registers/table_log.h"

namespace tallyfold {
namespace {

using std::chrono::seconds;
using SwapPopUp = LDGRQIFImportController::SwapPopUp;

struct ImportTest : testing::Test, TestApplication {
  ImportTest() {
    account = AddAccount("Cash");
    // A month before, so that nothing is near.
    AddDebit(5, "Tea")->SetDate(20040117);
    before = Lines(*account);
    files.AddFile("/home/user/bank.qif",
                  "!Type:Bank\nD1/17/04\nT-5\nMTea\nLFood\n^\nD1/18/04\nT-6\nMBread\nLFood\n^\n"
                  "D1/19/04\nT7\nMGift\nLPresent\n^\n");
  }
  void Begin() {
    panels.Answer("/home/user/bank.qif");
    ASSERT_TRUE(app.importCommand().QIFImport());
  }
  void BeginReview() {
    Begin();
    ASSERT_TRUE(import.ImportOptions_OK());
  }
  std::string Marks() const {
    std::string marks;
    for (const auto& entry : import.entries()) marks += entry->GetImport() ? 'x' : '.';
    return marks;
  }

  std::shared_ptr<LDGRAccount> account;
  std::vector<std::string> before;
  LDGRQIFImportController& import = app.sharedQIFImportController();
};

TEST_F(ImportTest, AsksForTheFileAndStopsTheTimerMeanwhile) {
  app.lifecycle().awakeFromNib();
  ASSERT_TRUE(app.lifecycle().applicationDidFinishLaunching());
  app.selection().Account_Select(app.desk().accounts().empty() ? AddAccount("Other")
                                                               : app.desk().accounts()[0]);
  loop.AdvanceBy(seconds(4));
  panels.while_up = [&] {
    EXPECT_FALSE(app.idleWatch().scheduleReminderTimer().IsValid());
    app.importCommand().Encodings().setEncoding(5);
  };
  EXPECT_FALSE(app.importCommand().QIFImport());  // given up
  EXPECT_EQ(app.desk().SelectedAccount()->GetQIFImportEncoding(), 4);
  EXPECT_EQ(*app.idleWatch().scheduleReminderTimer().NextFiring() - loop.Now(), seconds(15));

  Begin();
  EXPECT_EQ(app.desk().SelectedAccount()->GetQIFImportEncoding(), 5);
  EXPECT_EQ(panels.OpenRequests().back().title + panels.OpenRequests().back().button,
            "ImportImport");
  EXPECT_EQ(import.Options().title, "Importing From:  bank.qif");
  EXPECT_EQ(app.sheets().Current(), Sheet::ImportOptions);
  EXPECT_FALSE(app.importCommand().QIFImport());
  EXPECT_FALSE(app.menus().AreOn());
  EXPECT_TRUE(import.ImportOptions_OK());
  EXPECT_FALSE(app.menus().AreOn());
  loop.AdvanceBy(seconds(100));
  EXPECT_FALSE(app.idleWatch().scheduleReminderTimer().IsValid());
  import.import_Cancel_Button();
  EXPECT_EQ(*app.idleWatch().scheduleReminderTimer().NextFiring() - loop.Now(), seconds(15));
  EXPECT_TRUE(app.menus().AreOn());
}

TEST_F(ImportTest, LetsTheLedgerKnowOfTheNumberItTakes) {
  struct Counting final : LedgerListener {
    void LedgerChanged(const ChangeSet& set) override {
      for (const AccountChanges& changes : set.accounts) counted += changes.counted ? 1 : 0;
    }
    int counted = 0;
  } listener;
  app.ledger().AddListener(listener);
  BeginReview();
  import.import_Cancel_Button();
  app.ledger().RemoveListener(listener);
  EXPECT_EQ(listener.counted, 1);
}

TEST_F(ImportTest, ShowsTheFirstRowsAsTheyWouldComeIn) {
  Begin();
  std::string rows;
  for (const QifImportProof::Row& row : import.ImportOptions_Proof().rows) {
    rows += row.date.text + ' ' + row.description + ' ' + row.amount.text;
    if (row.look.color) rows += row.look.color->red > 0.5F ? " in red, " : " not, ";
  }
  EXPECT_EQ(rows,
            "01/17/04 Tea -$5.00 in red, 01/18/04 Bread -$6.00 in red, 01/19/04 Gift $7.00 not, ");
  const QifImportProof proof = import.ImportOptions_Proof();
  EXPECT_EQ(proof.first_day + " to " + proof.last_day, "01/17/04 to 01/19/04");
  std::string formats;
  for (const QifImportProof::Format& format : proof.formats) {
    if (format.fits) formats += format.title + ' ' + format.first + '-' + format.last + ", ";
  }
  EXPECT_EQ(formats,
            "MM/DD/YY 01/17/04-01/19/04, MM/YY/DD 01/04/17-01/04/19, DD/YY/MM 04/01/17-04/01/19, "
            "YY/DD/MM 04/17/01-04/19/01, ");
  EXPECT_EQ(proof.formats[4].title + ' ' + proof.formats[4].first, "MM/DD/YYYY 0004-01-17");
  EXPECT_TRUE(import.ImportOptions_OK());
  EXPECT_TRUE(import.ImportOptions_Proof().rows.empty()) << "the sheet is closed";
}

TEST_F(ImportTest, KeepsTheSwapPopUpsAPermutation) {
  struct Case {
    SwapPopUp pop_up;
    std::int32_t picked;
    std::string destinations;  // of categories, payees, memos
  };
  Begin();
  for (const Case& each : {Case{SwapPopUp::Payees, 2, "021"}, Case{SwapPopUp::Categories, 1, "120"},
                           Case{SwapPopUp::Memos, 0, "120"}, Case{SwapPopUp::Memos, 1, "021"},
                           Case{SwapPopUp::Memos, 3, "021"}, Case{SwapPopUp::Memos, -1, "021"}}) {
    import.ImportOptions_SwapOptions(each.pop_up, each.picked);
    const auto& state = import.Options();
    EXPECT_EQ(std::to_string(state.swap_type) + std::to_string(state.swap_to_from) +
                  std::to_string(state.swap_description),
              each.destinations);
  }
  // What a file holds may be no permutation; the pop-ups then show the usual one.
  import.ImportOptions_Cancel();
  account->SetQIFImport_SwapOptions_Type(1);
  account->SetQIFImportDateFormat(7);
  Begin();
  EXPECT_EQ(import.Options().swap_type, 0);
  EXPECT_EQ(import.Options().typed.date_format, 0);
}

TEST_F(ImportTest, StoresTheOptionsAtOnceAndReadsAnewWhenItGoesBack) {
  Begin();
  auto typed = import.Options().typed;
  typed.decimal_separator = ",";
  typed.thousands_separator = "";
  typed.zero_amounts_as_deposits = typed.split_line_items = false;
  typed.all_types = true;
  typed.date_format = 11;
  import.ImportOptions_Read(typed);
  front_end.refuses = true;
  EXPECT_FALSE(import.ImportOptions_OK());
  front_end.refuses = false;
  EXPECT_EQ(account->GetQIFImportDecimalSeparator(), ".");
  EXPECT_TRUE(import.ImportOptions_OK());
  EXPECT_EQ(account->GetQIFImportDecimalSeparator(), ",");
  EXPECT_EQ(account->GetQIFImportDateFormat(), 15);
  EXPECT_TRUE(account->GetQIFImportAllTypes() && !account->GetQIFImportSplitLineItems());
  EXPECT_EQ(import.Review().hints.CountOf(ImportDoubtKind::UnreadableDate), 3U);
  EXPECT_EQ(Marks(), "xxx");

  import.ImportEntry_Remove();
  EXPECT_TRUE(import.import_GoBack_Button());
  EXPECT_EQ(app.sheets().Current(), Sheet::ImportOptions);
  typed.date_format = 0;
  import.ImportOptions_Read(typed);
  EXPECT_TRUE(import.ImportOptions_OK());
  EXPECT_EQ(Marks(), ".xx");
  EXPECT_EQ(import.Review().total_text, "$1.00");
  import.import_Cancel_Button();
  EXPECT_EQ(Lines(*account), before);
  EXPECT_EQ(account->GetTypes().size(), LDGRAccount::DefaultTypes().size());
}

TEST_F(ImportTest, ReadsTheFileAgainInAnotherEncodingAndTellsOfDatesThatCannotBeRead) {
  files.AddFile("/home/user/bank.qif",
                "!Account\nNOne\n^\n!Type:Bank\nD1/1/04\nT1\n^\n"
                "!Account\nNTwo\n^\n!Type:Bank\nDnever\nT1\nMGrün\n^\n");
  EXPECT_FALSE(import.ImportOptions_SetEncoding(4));
  Begin();
  std::string samples;
  for (const QifImportProof::Sample& sample : import.ImportOptions_Proof().samples) {
    if (sample.text) samples += sample.name + ' ' + *sample.text + ", ";
  }
  EXPECT_TRUE(samples.starts_with("Unicode (UTF-8) Grün, Central European (ISO 8859-2) GrĂźn, "));
  EXPECT_NE(samples.find("Western (ISO 8859-1) GrÃ¼n, "), std::string::npos) << samples;
  auto typed = import.Options().typed;
  typed.account = 1;
  import.ImportOptions_Read(typed);
  EXPECT_TRUE(import.ImportOptions_SetEncoding(5));
  EXPECT_NE(account->GetQIFImportEncoding(), 5) << "the sheet may be cancelled";
  ASSERT_TRUE(import.ImportOptions_OK());
  EXPECT_EQ(account->GetQIFImportEncoding(), 5);
  ASSERT_EQ(import.entries().size(), 1U);
  EXPECT_EQ(import.entries()[0]->GetDescription(), "GrÃ¼n");
  alerts.Answer("Cancel");
  EXPECT_FALSE(import.import_OK_Button());
  EXPECT_EQ(alerts.Requests().back().message,
            "Entries to import: 1\nWithout a date that can be read: 1");
  import.ImportEntry_UnmarkUndated();
  EXPECT_EQ(Marks(), ".");

  ASSERT_TRUE(import.import_GoBack_Button());
  EXPECT_TRUE(import.ImportOptions_SetEncoding(1));  // it is no such text, and read as UTF-8
  EXPECT_NE(import.Options().refused_encoding, "");
  files.Remove("/home/user/bank.qif");
  EXPECT_FALSE(import.ImportOptions_SetEncoding(4));
  ASSERT_TRUE(import.ImportOptions_OK());
  EXPECT_EQ(import.entries()[0]->GetDescription(), "Grün");
}

TEST_F(ImportTest, EditsAnEntryThroughTheSheetsWithoutTouchingTheAccount) {
  BeginReview();
  import.SelectEntry(import.entries()[1]);
  ASSERT_TRUE(import.ImportEntry_Change());
  ASSERT_EQ(app.sheets().Current(), Sheet::Debit);
  // The new type of the file is offered before "None".
  const auto& items = app.entries().Debit().State().type_items;
  ASSERT_NE(IndexOf(items, "Food"), kNoItem);
  EXPECT_EQ(IndexOf(items, "Present"), kNoItem);
  EXPECT_FALSE(import.import_GoBack_Button());
  EXPECT_FALSE(import.Import_OK());
  auto typed = app.entries().Debit().State().typed;
  typed.date = 20040117;
  typed.amount = 5;
  typed.description = "Tea";
  typed.type = IndexOf(items, "Debit Card");
  app.entries().Debit().Read(typed);
  EXPECT_FALSE(
      app.entries().Debit().OKThenNew(EntryKind::Deposit));  // nothing new is begun in the account
  EXPECT_EQ(app.sheets().Current(), Sheet::None);
  EXPECT_EQ(Lines(*account), before);
  EXPECT_EQ(import.entries()[1]->GetActualType()->GetName(), "Debit Card");
  // It repeats an entry now. Nothing but the user marks it, though.
  EXPECT_EQ(Marks(), ".xx");
  const auto match = import.MatchOf(*import.entries()[1]);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->in_file, 2U);
  EXPECT_EQ(match->in_account, 1U);

  ASSERT_TRUE(import.ImportEntry_Change());
  app.entries().Debit().Cancel();
  EXPECT_EQ(import.Review().total, 2.0);
}

TEST_F(ImportTest, ShowsTheReviewAsATable) {
  app.registers().entryDataSource().HideTableColumnWithIdentifier("cleared");
  BeginReview();
  auto& rows = import.tableDataSource();
  TableLog log;
  rows.Table().SetShownBy(&log);
  EXPECT_EQ(rows.Table().Columns().size(), 8U);
  EXPECT_EQ(TitleOf(rows.Table().Columns().front()), "Import");
  EXPECT_EQ(rows.tableView("import", 0).mark, TableCell::Mark::Unset) << "it is there already";
  EXPECT_EQ(rows.tableView("import", 1).mark, TableCell::Mark::Set);
  EXPECT_EQ(rows.tableView("type", 2).text, "Present");
  EXPECT_EQ(rows.tableView("amount", 2).number, 7.0);
  EXPECT_EQ(rows.tableView("date", 3), TableCell{});
  EXPECT_TRUE(rows.LookOfRow(2).color);

  import.ClickedTableColumn("description");  // Bread, Gift, Tea
  EXPECT_EQ(log.Take(), "0>2; row 2; ");
  EXPECT_EQ(rows.Table().HighlightedColumn(), "description");
  import.SelectEntry(import.entries()[2]);
  EXPECT_EQ(log.Take(), "row 1; ");
  import.ImportEntry_Import();
  EXPECT_EQ(log.Take(), "=0-2; ");
  EXPECT_EQ(rows.tableView("import", 1).mark, TableCell::Mark::Unset);
  import.ImportEntry_Remove();
  EXPECT_EQ(log.Take(), "-1; =0-1; ");
  EXPECT_EQ(rows.GetSelectedEntry()->GetDescription(), "Tea");
  import.RemoveEntries({rows.GetSelectedEntry(), rows.GetSelectedEntry()});
  EXPECT_EQ(rows.GetSelectedEntry()->GetDescription(), "Bread");
  import.RemoveEntries(import.entries());
  EXPECT_EQ(rows.numberOfRowsInTableView(), 0U);
  EXPECT_EQ(import.Review().marked_count, 0U);
}

TEST_F(ImportTest, KeepsTheColumnsOfTheReviewForEachAccount) {
  TableState& table = import.tableDataSource().Table();
  const auto first = table.Columns().front().identifier;
  BeginReview();
  import.import_Cancel_Button();
  const auto view = app.desk().preferences().GetPreferencesForAccountNumber(account->GetNumber());
  EXPECT_FALSE(view->ExistingTable("import"));
  BeginReview();
  table.MoveColumn(0, 2);
  table.SetColumnWidth(2, 77);
  import.import_Cancel_Button();
  app.selection().Account_Select(AddAccount("Other"));
  BeginReview();
  EXPECT_EQ(table.Columns().front().identifier, first);
  EXPECT_NE(table.Columns().front().width, 77);
  import.import_Cancel_Button();
  app.selection().Account_Select(account);
  BeginReview();
  EXPECT_EQ(table.Columns()[2].identifier, first);
  EXPECT_EQ(table.Columns()[2].width, 77);
}

TEST_F(ImportTest, CommitsAfterAQuestionAndShowsWhatCame) {
  BeginReview();
  import.tableDataSource().ClickedTableColumn("amount");
  import.tableDataSource().ClickedTableColumn("amount");
  EXPECT_EQ(import.tableDataSource().tableView("description", 0).text, "Gift");
  EXPECT_TRUE(import.tableDataSource().Table().IndicatesDescending());
  alerts.Answer("Cancel");
  EXPECT_FALSE(import.import_OK_Button());
  app.selection().Account_Deselect();
  EXPECT_FALSE(import.Import_OK());
  EXPECT_TRUE(import.Review().account_is_gone);
  app.selection().Account_Select(account);
  EXPECT_TRUE(import.import_OK_Button());
  EXPECT_FALSE(import.IsRunning());
  EXPECT_EQ(account->GetEntries().size(), 3U);
  EXPECT_EQ(app.registers().entryDataSource().GetEntries().size(), 3U);
  EXPECT_NE(account->DepositEntryTypeForName("Present"), nullptr);
  EXPECT_TRUE(import.entries().empty());
}

TEST_F(ImportTest, TellsItsHostOnceThatTheLastStageIsOver) {
  struct Case {
    const char* steps;  // OK and Cancel of the options, commit, cancel and back of the review
    const char* log;
  } const cases[] = {
      {"c", "1 entries; "},
      {"o", ""},
      {"ox", "1 entries; "},
      {"ob", ""},
      {"obc", "1 entries; "},
      {"oc", ""},
      {"xkb", ""},
      {"obobc", "1 entries; "},
      {"oboxc", "1 entries; "},
      {"okkx", "3 entries; "},
  };
  for (const Case& each : cases) {
    struct Ends final : LDGRQIFImportController::Host {
      void ImportEnded() override { ended(); }
      std::function<void()> ended;
    } ends;
    Announcer announcer;
    ModalWatch modal(alerts, panels, announcer);
    LDGRQIFImportController alone(ends, app.desk(), app.ledger(), app.entries(), app.speaker(),
                                  modal, files, encodings, app.sheets(), announcer);
    std::string log;
    ends.ended = [&] {
      log += std::to_string(account->GetEntries().size()) + " entries";
      log += alone.IsRunning() || modal.IsUp() || !app.sheets().IsFree() ? ", not over; " : "; ";
    };
    EXPECT_FALSE(alone.Run());
    alone.ImportOptions_InitWithFile("/home/user/bank.qif", 4);
    ASSERT_TRUE(alone.Run()) << each.steps;
    for (const char step : std::string_view(each.steps)) {
      if (step == 'o') alone.ImportOptions_OK();
      if (step == 'c') alone.ImportOptions_Cancel();
      if (step == 'k') alone.Import_OK();
      if (step == 'x') alone.import_Cancel_Button();
      if (step == 'b') alone.import_GoBack_Button();
    }
    EXPECT_EQ(log, each.log) << each.steps;
    app.sheets().CancelOpen();
  }
}

TEST_F(ImportTest, TellsOfAFileThatCannotBeReadAndImportsNothing) {
  panels.Answer("/home/user/none.qif");
  ASSERT_TRUE(app.importCommand().QIFImport());
  ASSERT_TRUE(import.ImportOptions_OK());
  EXPECT_EQ(import.Review().hints.problem, ImportHints::Problem::Unreadable);
  import.ImportEntry_ImportAll();
  import.ImportEntry_Remove();
  EXPECT_TRUE(import.Import_OK());
  EXPECT_EQ(Lines(*account), before);
}

}  // namespace
}  // namespace tallyfold
