#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "app/accounts/account_selection.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/shell/printing.h"
#include "app/test_application.h"
#include "exchange/statement_reader.h"
#include "exchange/statement_review.h"
#include "fakes/fake_progress.h"
#include "printing/plain_text.h"
#include "storage/accounts_store.h"

namespace tallyfold {
namespace {

constexpr std::size_t kManyEntries = 300;

std::string Repeated(const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < kManyEntries; ++i) all += text;
  return all;
}

struct ProgressTest : testing::Test, TestApplication {
  ProgressTest() {
    files.AddFile("/home/user/bank.qif",
                  "!Type:Bank\n" + Repeated("D1/17/04\nT-5\nMTea\nLFood\n^\n"));
    account = AddAccount("Checking");
    panels.Answer("/home/user/bank.qif");
    app.importCommand().QIFImport();
    app.sharedQIFImportController().ImportOptions_OK();
    app.sharedQIFImportController().Import_OK();
    app.accountsStore().Accounts_Save();
  }

  std::shared_ptr<LDGRAccount> account;
};

TEST_F(ProgressTest, IsToldOfAllThatTakesLong) {
  const FixedPitchMetric metric;
  const auto import = [this] {
    panels.Answer("/home/user/bank.qif");
    EXPECT_TRUE(app.importCommand().QIFImport());
  };
  const auto read_statement = [this](std::string_view bytes) {
    const StatementFile file = ReadStatementFile(bytes, encodings);
    ASSERT_EQ(file.accounts.size(), 1U);
    EXPECT_EQ(file.accounts[0].rows.size(), kManyEntries);
    static_cast<void>(QifReview(ReviewEntriesOf(file.accounts[0].rows, *account, {}), *account));
  };
  const std::string ofx = "<OFX><STMTRS><BANKTRANLIST>" +
                          Repeated("<STMTTRN><DTPOSTED>20040117<TRNAMT>-5.00</STMTTRN>") +
                          "</BANKTRANLIST></STMTRS></OFX>";
  const std::string camt = "<Document><BkToCstmrStmt><Stmt>" +
                           Repeated(
                               "<Ntry><Amt Ccy=\"EUR\">5.00</Amt><CdtDbtInd>DBIT</CdtDbtInd>"
                               "<BookgDt><Dt>2004-01-17</Dt></BookgDt></Ntry>") +
                           "</Stmt></BkToCstmrStmt></Document>";
  const std::string csv = "Date,Payee,Amount\n" + Repeated("2004-01-17,Tea,-5.00\n");
  using Works = std::vector<LongWork>;
  using enum LongWork;
  struct Case {
    const char* what;
    std::function<void()> order;
    Works works;
  } const cases[] = {
      {"save", [this] { EXPECT_TRUE(app.accountsStore().Accounts_Save()); }, {Saving}},
      {"load", [this] { EXPECT_TRUE(app.accountsStore().Accounts_Load()); }, {Reading, Loading}},
      {"select",
       [this] {
         account = app.desk().accounts().front();
         app.selection().Account_Select(account);
       },
       {}},
      {"print",
       [&] {
         PrintOptions options;
         options.paper = PlainTextPaper();
         EXPECT_TRUE(app.printing().MakePages(PrintKind::Register, options, metric));
       },
       {LayingOut}},
      {"export",
       [this] {
         app.desk().preferences().setQIFExportAccount(LDGRQIFExportAccessoryView::kAllAccounts);
         panels.Answer("/home/user/out.qif");
         EXPECT_EQ(app.exports().ExportQIF(), WriteResult::Written);
       },
       {Exporting}},
      {"text",
       [this] {
         panels.Answer("/home/user/out.txt");
         EXPECT_EQ(app.exports().ExportText(), WriteResult::Written);
       },
       {Exporting}},
      {"options", import, {Parsing}},
      {"proof",
       [this] { static_cast<void>(app.sharedQIFImportController().ImportOptions_Proof()); },
       {Parsing}},
      {"review",
       [this] { EXPECT_TRUE(app.sharedQIFImportController().ImportOptions_OK()); },
       {Parsing, Reviewing}},
      {"commit",
       [this] {
         app.sharedQIFImportController().ImportEntry_ImportAll();
         EXPECT_TRUE(app.sharedQIFImportController().Import_OK());
       },
       {Importing}},
      {"OFX", [&] { read_statement(ofx); }, {Parsing, Reviewing}},
      {"CAMT", [&] { read_statement(camt); }, {Parsing, Reviewing}},
      {"table", [&] { read_statement(csv); }, {Parsing, Reviewing}},
  };
  for (const Case& each : cases) {
    FakeProgress progress;
    each.order();
    Works works;
    for (const FakeProgress::Operation& operation : progress.operations) {
      works.push_back(operation.work);
      EXPECT_TRUE(operation.IsWhole()) << each.what;
      EXPECT_GE(operation.total, kManyEntries) << each.what;
      // Not at the end alone.
      EXPECT_GT(operation.done.size(), 20U) << each.what;
    }
    EXPECT_EQ(works, each.works) << each.what;
  }
  EXPECT_EQ(app.desk().SelectedAccount()->GetEntries().size(), 2 * kManyEntries);
}

TEST_F(ProgressTest, OfWhatFailsStopsWhereItFailed) {
  const std::string path = "/home/user/Library/Tallyfold/Accounts.plist";
  const std::string whole = files.Content(path).value();
  files.AddFile(path, whole.substr(0, whole.size() / 2));
  FakeProgress progress;
  progress.when_told = [] { throw std::runtime_error("cannot be shown"); };
  EXPECT_TRUE(app.accountsStore().Accounts_Load());
  ASSERT_EQ(progress.operations.size(), 1U);
  EXPECT_TRUE(progress.operations[0].is_over);
  EXPECT_LT(progress.operations[0].done.back(), progress.operations[0].total);
  EXPECT_TRUE(app.desk().accounts().empty());
}

}  // namespace
}  // namespace tallyfold
