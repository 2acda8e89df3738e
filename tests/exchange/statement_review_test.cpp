#include "exchange/statement_review.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "exchange/commit_review.h"
#include "exchange/statement_reader.h"
#include "fakes/fake_ambient.h"
#include "fakes/file_text.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRAccountEntryType> TypeOf(std::int32_t number, bool is_deposit) {
  auto type = std::make_shared<LDGRAccountEntryType>();
  type->SetNumber(number);
  type->SetName("Type " + std::to_string(number));
  type->SetIsDeposit(is_deposit);
  return type;
}

void AddPaid(LDGRAccount& account, DateNumber day, double amount, std::string_view payee,
             std::int32_t type) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetDate(day);
  entry->SetAmount(amount);
  if (amount > 0) {
    entry->SetIsDeposit(true);
  } else {
    entry->SetIsDebit(true);
  }
  entry->SetToFrom(payee);
  entry->SetType(type);
  account.AddEntry(entry);
}

StatementRow RowOf(double amount, std::string_view payee) {
  StatementRow row;
  row.day = 20240307;
  row.amount = amount;
  row.to_from = payee;
  return row;
}

TEST(StatementReviews, SuggestTheTypeThatThePayeeHadLast) {
  const FakeAmbient ambient;
  LDGRAccount account;
  account.SetTypes({TypeOf(1, false), TypeOf(2, false), TypeOf(3, true)});
  AddPaid(account, 20240105, -5, "Corner Market", 2);
  AddPaid(account, 20240101, -5, "Corner Market", 1);
  AddPaid(account, 20240102, 9, "Corner Market", 3);
  AddPaid(account, 20240106, -5, "Stranger", 77);
  const std::vector<StatementRow> rows = {RowOf(-1, "CORNER MARKET"), RowOf(1, "Corner Market"),
                                          RowOf(-1, "Stranger"), RowOf(-1, "")};
  const auto entries = ReviewEntriesOf(rows, account, {});
  EXPECT_EQ(entries[0]->GetType(), 2);
  EXPECT_EQ(entries[0]->GetActualType()->GetName(), "Type 2");
  EXPECT_EQ(entries[1]->GetType(), 3);
  EXPECT_EQ(entries[2]->GetType(), -1);
  EXPECT_EQ(entries[3]->GetType(), -1);
  StatementReviewOptions plain;
  plain.suggests_types = false;
  EXPECT_EQ(ReviewEntriesOf(rows, account, plain)[0]->GetActualType(), nullptr);
}

TEST(StatementReviews, CarryWhatARowHoldsAndHowItStarts) {
  const FakeAmbient ambient;
  LDGRAccount account;
  std::vector<StatementRow> rows = {RowOf(-1, "A"), RowOf(0, "B"), RowOf(-3, "C"), StatementRow()};
  rows[0].notes = "R1";
  rows[0].check_number = 12;
  rows[2].unmarked = UnmarkedReason::Pending;
  rows[2].is_cleared = false;
  EXPECT_EQ(CountUnmarked(rows, UnmarkedReason::Pending), 1U);
  QifReview review(ReviewEntriesOf(rows, account, {}), account);
  EXPECT_EQ(review.MarkedCount(), 3U);
  const auto& entries = review.entries();
  EXPECT_EQ(entries[0]->GetNotes(), "R1");
  EXPECT_TRUE(entries[0]->IsCheck() && entries[0]->GetCleared());
  EXPECT_TRUE(entries[1]->IsDeposit());
  EXPECT_FALSE(entries[2]->GetImport() || entries[2]->GetCleared());
  EXPECT_EQ(entries[3]->GetDate(), 0);
  EXPECT_EQ(review.Total(), -1.0);
  review.MarkAll();
  EXPECT_EQ(review.Total(), -4.0);
}

TEST(StatementReviews, MarkNothingOfAFileThatWasImportedBefore) {
  const FakeAmbient ambient;
  std::size_t imported = 0;
  for (const auto& each : std::filesystem::directory_iterator(TALLYFOLD_TEST_DATA "/statements")) {
    if (each.path().extension() == ".read") continue;
    const std::string bytes = FileText(each.path());
    for (const auto& read : ReadStatementFile(bytes, IconvEncodings()).accounts) {
      LDGRAccount account;
      QifReview first(ReviewEntriesOf(read.rows, account, {}), account);
      imported += first.MarkedCount();
      CommitReview(std::move(first), account, false);
      const QifReview second(ReviewEntriesOf(read.rows, account, {}), account);
      EXPECT_EQ(second.MarkedCount(), 0U) << each.path();
    }
  }
  EXPECT_GT(imported, 80U);
}

}  // namespace
}  // namespace tallyfold
