#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

TEST(AccountBalances, AddSignedAmountsToTheStartingBalance) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2004, 3, 7, 23, 59, 59});
  LDGRAccount account;
  account.SetStartingBalance(100);
  AddEntries(account,
             {{.number = 1, .date = 20040305, .amount = -10, .cleared = true},
              {.number = 2, .date = 20040306, .amount = 25.5, .kind = EntryFields::Deposit},
              {.number = 3, .date = 20040307, .amount = -4, .kind = EntryFields::Transfer},
              {.number = 4, .date = 20040308, .amount = -1, .cleared = true}});
  EXPECT_DOUBLE_EQ(account.GetBalance(), 110.5);
  EXPECT_DOUBLE_EQ(account.GetTodaysBalance(), 111.5);
  EXPECT_DOUBLE_EQ(account.GetResolvedBalance(), 89);
  EXPECT_DOUBLE_EQ(account.GetUnresolvedBalance(), 21.5);
  EXPECT_DOUBLE_EQ(account.GetRunningBalanceBeforeDate(20040307), 115.5);
  EXPECT_DOUBLE_EQ(account.GetRunningBalanceThroughDate(20040307), 111.5);
  EXPECT_DOUBLE_EQ(account.GetDebitsTotal(), -11);
  EXPECT_DOUBLE_EQ(account.GetDepositsTotal(), 25.5);
  EXPECT_DOUBLE_EQ(account.GetTransfersTotal(), -4);
  EXPECT_DOUBLE_EQ(account.GetRunningBalanceAtEntry(nullptr), 0);

  // A lock hides the whole balance alone.
  account.SetPassword("x");
  EXPECT_EQ(account.GetBalance(), 0.0);
  EXPECT_DOUBLE_EQ(account.GetTodaysBalance(), 111.5);
  EXPECT_DOUBLE_EQ(account.GetResolvedBalance(), 89);
  EXPECT_DOUBLE_EQ(account.GetUnresolvedBalance(), -89);
}

// The rule, said for two entries.
bool CountsBefore(const LDGRAccountEntry& other, const LDGRAccountEntry& entry) {
  if (other.GetDate() != entry.GetDate()) return other.GetDate() < entry.GetDate();
  if (entry.IsCheck()) {
    return other.IsCheck() && other.GetCheckNumber() <= entry.GetCheckNumber();
  }
  return other.IsCheck() || other.GetNumber() < entry.GetNumber();
}

// Few days and numbers, so that equal check numbers and equal entry numbers abound.
TEST(RunningBalances, AreTheSameOneByOneAndAllAtOnceForEveryTie) {
  std::mt19937 random(7);
  const auto pick = [&random](int count) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(count));
  };
  for (int round = 0; round < 20; ++round) {
    LDGRAccount account;
    account.SetStartingBalance(round * 0.37);
    for (int i = 0; i < 120; ++i) {
      auto entry = MakeEntry({.number = pick(40) - 1,
                              .date = 20040228 + pick(6),
                              .amount = (pick(200000) - 100000) / 100.0,
                              .check = pick(2) == 0 ? pick(8) : -1});
      // A number in an entry that is no check must not count.
      if (!entry->IsCheck()) entry->SetCheckNumber(pick(8));
      account.AddEntry(entry);
    }
    EntryList rows = account.GetEntries();
    std::shuffle(rows.begin(), rows.end(), random);
    rows.resize(100);
    const auto balances = account.RunningBalances(rows);
    ASSERT_EQ(balances.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const LDGRAccountEntry& row = *rows[i];
      double expected = account.GetStartingBalance() + row.GetAmount();
      for (const auto& other : account.GetEntries()) {
        if (other != rows[i] && CountsBefore(*other, row)) expected += other->GetAmount();
      }
      ASSERT_NEAR(account.GetRunningBalanceAtEntry(&row), expected, 0.001) << row.GetNumber();
      ASSERT_NEAR(balances[i], expected, 0.001) << row.GetNumber();
    }
  }
}

}  // namespace
}  // namespace tallyfold
