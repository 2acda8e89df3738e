#include "app/entries/transfer_linking.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/entries/entry_orders.h"
#include "app/entries/link_offers.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "ledger/ledger_fixture.h"
#include "ledger/transfer_links.h"

namespace tallyfold {
namespace {

// Account 1 "Here" is selected, account 2 is "There".
struct TransferLinkingTest : testing::Test, TestApplication {
  TransferLinkingTest() {
    here = AddAccount("Here");
    there = AddAccount("There");
    app.selection().Account_Select(here);
  }
  std::shared_ptr<LDGRAccountEntry> AddTo(const std::shared_ptr<LDGRAccount>& account,
                                          double amount, DateNumber date,
                                          const std::string& description = "") {
    app.selection().Account_Select(account);
    auto entry = AddDebit(amount < 0 ? -amount : amount, description);
    entry->SetDate(date);
    if (amount > 0) app.entryOrders().Entry_ChangeKind();
    app.selection().Account_Select(here);
    return entry;
  }
  void Import(const std::string& records) {
    files.AddFile("/home/user/bank.qif", "!Type:Bank\n" + records);
    panels.Answer("/home/user/bank.qif");
    app.importCommand().QIFImport();
    ASSERT_TRUE(app.sharedQIFImportController().ImportOptions_OK());
    ASSERT_TRUE(app.sharedQIFImportController().Import_OK());
  }

  std::shared_ptr<LDGRAccount> here, there;
  TransferLinking& linking = app.transferLinking();
};

TEST_F(TransferLinkingTest, LinksTwoEntriesAndLosesNothingTyped) {
  const auto half = AddTo(there, 5.0, 20040303);
  half->SetToFrom("Payer 7");
  half->SetType(3);
  half->SetCleared(true);
  const auto entry = AddTo(here, -5.0, 20040301, "Put aside");
  entry->SetToFrom("There");
  entry->SetNotes("n");
  app.desk().SelectEntry(entry);
  const std::string before = BytesOf(app.desk().accounts());
  EXPECT_TRUE(linking.Entry_Link());
  EXPECT_EQ(Line(*entry),
            "#1 20040301 transfer -5.00 'Put aside' to 'There' notes 'n' ->2#1 origin");
  EXPECT_EQ(Line(*half),
            "#1 20040303 transfer 5.00 'Put aside' to 'Here' cleared notes 'Payer 7' ->1#1");
  EXPECT_EQ(linking.State().note, "A transfer has no type: Deposit gave way.");
  EXPECT_EQ(app.transferLinks().OtherHalf(*here, *entry), half);
  EXPECT_EQ(app.transferLinks().OtherHalf(*there, *half), entry);
  EXPECT_TRUE(app.undo().UndoStep());
  EXPECT_EQ(BytesOf(app.desk().accounts()), before);
  EXPECT_FALSE(linking.Link(here, entry));
  EXPECT_EQ(linking.State().note, "");
}

TEST_F(TransferLinkingTest, RefusesWhatIsNoPair) {
  const auto entry = AddTo(here, -5.0, 20040301);
  const auto twin = AddTo(here, 5.0, 20040301);
  const auto half = AddTo(there, 5.0, 20040303);
  const auto more = AddTo(there, 6.0, 20040303);
  app.desk().SelectEntry(entry);
  const auto refused = [&](const std::shared_ptr<LDGRAccount>& account,
                           const std::shared_ptr<LDGRAccountEntry>& other) {
    const std::string before = BytesOf(app.desk().accounts());
    EXPECT_FALSE(linking.Link(account, other));
    EXPECT_EQ(BytesOf(app.desk().accounts()), before);
    return linking.State().problem;
  };
  EXPECT_EQ(refused(here, twin), "The halves of a transfer are in two accounts.");
  EXPECT_EQ(refused(there, more), "The amounts of the entries are not opposite.");
  half->SetIsDeposit(false);
  EXPECT_EQ(refused(there, half), "One of the entries is neither a debit nor a deposit.");
  half->SetIsDeposit(true);
  there->SetPassword("x");
  there->setAuthenticated(false);
  EXPECT_TRUE(linking.Candidates().empty());
  EXPECT_EQ(refused(there, half), "The account \"There\" is locked.");
  there->Authenticate("x");
  EXPECT_EQ(linking.Candidates().size(), 1U);
  EXPECT_TRUE(linking.Link(there, half));
  EXPECT_EQ(refused(there, half), "One of the entries is half of a transfer already.");
}

TEST_F(TransferLinkingTest, KnowsTheNearestAndNeverGuessesBetweenTwo) {
  AddTo(there, 5.0, 20040310);
  const auto near = AddTo(there, 5.0, 20040303);
  app.desk().SelectEntry(AddTo(here, -5.0, 20040301));
  EXPECT_EQ(linking.Candidates().front().other, near);
  EXPECT_TRUE(linking.CanLink());
  AddTo(there, 5.0, 20040228);
  app.desk().SelectEntry(here->GetEntries().front());
  EXPECT_EQ(linking.Candidates().size(), 3U);
  EXPECT_FALSE(linking.CanLink() || linking.Entry_Link());
}

TEST_F(TransferLinkingTest, OffersAfterAnImportWhatCanBeNothingElse) {
  AddTo(there, 5.0, 20040303);  // its only partner
  AddTo(there, 6.0, 20040303);  // two partners
  AddTo(there, 7.0, 20040309);  // too late
  AddTo(there, 8.0, 20040303);  // one partner that could be either
  AddTo(there, 8.0, 20040304);
  Import(
      "D3/1/04\nT-5.00\n^\nD3/1/04\nT-6.00\n^\nD3/2/04\nT-6.00\n^\nD3/1/04\nT-7.00\n^\n"
      "D3/1/04\nT-8.00\n^\nD3/1/04\nT0.00\n^\n");
  ASSERT_EQ(linking.State().offers.size(), 1U);
  EXPECT_EQ(linking.State().offers.front().entry->GetAmount(), -5.0);
  EXPECT_NE(linking.State().offer_text, "");
  EXPECT_TRUE(linking.LinkOffered());
  EXPECT_EQ(Lines(*there).front(), "#1 20040303 transfer 5.00 to 'Here' ->1#2");
  EXPECT_EQ(linking.State().offer_text, "");
  EXPECT_FALSE(linking.LinkOffered());
}

TEST_F(TransferLinkingTest, ForgetsAnOfferWhoseEntriesChange) {
  AddTo(there, 5.0, 20040303);
  Import("D3/1/04\nT-5.00\n^\n");
  EXPECT_EQ(linking.State().offers.size(), 1U);
  EXPECT_TRUE(app.undo().UndoStep());
  EXPECT_TRUE(linking.State().offers.empty());
}

}  // namespace
}  // namespace tallyfold
