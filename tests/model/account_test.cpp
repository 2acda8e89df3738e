#include "model/account.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

using Numbers = std::vector<std::int32_t>;

TEST(Account, TakesImportOptionsOfANewAccountFromTheLocale) {
  FakeAmbient ambient;
  ambient.locale.default_encoding = 12;
  ambient.locale.decimal_separator = ",";
  ambient.locale.thousands_separator = ".";
  const LDGRAccount account;
  EXPECT_EQ(account.GetQIFImportEncoding(), 12);
  EXPECT_EQ(account.textExport_Encoding(), 12);
  EXPECT_EQ(account.GetQIFImportDecimalSeparator(), ",");
  EXPECT_EQ(account.GetQIFImportThousandsSeparator(), ".");
}

TEST(Account, FindsFirstAndLastByDateThenNumber) {
  LDGRAccount account;
  EXPECT_EQ(account.GetFirstEntry(), nullptr);
  EXPECT_EQ(account.GetLastEntry(), nullptr);
  EXPECT_EQ(account.GetLastEnteredEntry(), nullptr);
  EXPECT_EQ(account.GetLastEnteredCheck(), nullptr);
  AddEntries(account, {{.number = 4, .date = 20040302},
                       {.number = 9, .date = 20040301},
                       {.number = 3, .date = 20040301, .check = 100},
                       {.number = 7, .date = 20040302},
                       {.number = 2, .date = 20040301, .check = 200}});
  EXPECT_EQ(account.GetFirstEntry()->GetNumber(), 2);
  EXPECT_EQ(account.GetLastEntry()->GetNumber(), 7);
  EXPECT_EQ(account.GetLastEnteredEntry()->GetNumber(), 9);
  EXPECT_EQ(account.GetLastEnteredCheck()->GetNumber(), 3);
}

TEST(Account, LooksUpByNumberButRemovesByObject) {
  LDGRAccount account;
  AddEntries(account, {{.number = 5, .amount = 1}, {.number = 5, .amount = 2}});
  const auto second = account.GetEntries()[1];
  EXPECT_EQ(account.GetEntryWithNumber(5)->GetAmount(), 1);
  EXPECT_EQ(account.GetEntryWithNumber(6), nullptr);
  account.RemoveEntry(second.get());
  account.RemoveEntry(second.get());
  account.RemoveEntry(nullptr);
  ASSERT_EQ(account.GetEntries().size(), 1U);
  EXPECT_EQ(account.GetEntries()[0]->GetAmount(), 1);
}

TEST(Account, SortsByKeyWithTiesByNumber) {
  const auto fields = [](std::int32_t number, DateNumber date, double amount, std::int32_t check,
                         std::string_view description, bool cleared) {
    return EntryFields{.number = number,
                       .date = date,
                       .amount = amount,
                       .check = check,
                       .description = description,
                       .cleared = cleared};
  };
  const struct {
    std::int32_t key;
    bool descending;
    Numbers expected;
  } cases[] = {
      {-1, false, {1, 2, 3, 4}}, {7, true, {1, 2, 3, 4}},  {0, false, {4, 2, 1, 3}},
      {0, true, {3, 1, 2, 4}},   {1, false, {4, 2, 3, 1}}, {3, false, {2, 4, 1, 3}},
      {4, false, {3, 1, 2, 4}},  {4, true, {4, 2, 1, 3}},  {5, false, {1, 4, 2, 3}},
  };
  for (const auto& test : cases) {
    LDGRAccount account;
    AddEntries(
        account,
        {fields(3, 20040301, -9, -1, "rent", true), fields(1, 20040302, -5, -1, "Rent", false),
         fields(4, 20040301, 7, 100, "food", false), fields(2, 20040301, -5, 101, "Car", true)});
    account.SortBy(test.key, test.descending);
    EXPECT_EQ(NumbersOf(account.GetEntries()), test.expected)
        << "key " << test.key << (test.descending ? " descending" : "");
  }
}

TEST(Account, IsLockedOnlyByAPasswordThatWasNotGiven) {
  LDGRAccount account;
  EXPECT_FALSE(account.IsLocked());
  account.SetPassword("Secret");
  EXPECT_TRUE(account.IsLocked());
  EXPECT_FALSE(account.Authenticate("secret"));
  EXPECT_TRUE(account.Authenticate("Secret"));
  EXPECT_TRUE(account.Authenticate("wrong")) << "once authenticated it stays so";
  account.setAuthenticated(false);
  EXPECT_TRUE(account.IsLocked());
  account.SetPassword(std::nullopt);
  EXPECT_TRUE(account.HasPassword());
  account.SetPassword("");
  EXPECT_FALSE(account.IsLocked());
  account.setAuthenticated(false);
  EXPECT_TRUE(account.IsAuthenticated()) << "without a password there is nothing to lock";
}

TEST(Account, OrdersAccountsByNameNumberAndBalance) {
  LDGRAccount a;
  LDGRAccount b;
  a.SetName("checking");
  b.SetName("Savings");
  a.SetNumber(2);
  b.SetNumber(1);
  a.SetStartingBalance(10);
  b.SetStartingBalance(500);
  EXPECT_EQ(a.NameIsGreaterThan(b), -1);
  EXPECT_EQ(a.NameIsGreaterThan_Reversed(b), 1);
  EXPECT_EQ(a.NumberIsGreaterThan(b), 1);
  EXPECT_EQ(a.BalanceIsGreaterThan(b), -1);
  EXPECT_EQ(b.BalanceIsGreaterThan_Reversed(a), -1);
  b.SetPassword("x");
  EXPECT_EQ(a.BalanceIsGreaterThan(b), 1) << "a locked account has no balance to show";
  b.SetName("CHECKING");
  EXPECT_EQ(a.NameIsGreaterThan(b), 0);
}

TEST(Account, CountsChangesOfWhatIsStored) {
  LDGRAccount account;
  const auto counts = [&account](const auto& change) {
    const auto before = account.Revision();
    change();
    return account.Revision() != before;
  };
  EXPECT_TRUE(counts([&] { account.SetName("Checking"); }));
  EXPECT_FALSE(counts([&] { account.SetName("Checking"); })) << "nothing changed";
  EXPECT_FALSE(counts([&] { account.SetName(std::nullopt); }));
  EXPECT_TRUE(counts([&] { account.AddEntry(MakeEntry({.number = 1})); }));
  EXPECT_FALSE(counts([&] { account.AddEntry(nullptr); }));
  EXPECT_FALSE(counts([&] { account.RemoveEntry(nullptr); }));
  EXPECT_TRUE(counts([&] { account.RemoveEntry(account.GetEntries()[0].get()); }));
  EXPECT_TRUE(counts([&] { account.setEntryFilterData("rent"); }));
  EXPECT_FALSE(counts([&] { account.setEntryFilterData("rent"); }));
  EXPECT_TRUE(counts([&] { (void)account.NextAvailableNumber(); }));
  EXPECT_FALSE(counts([&] { account.setAuthenticated(true); }));
  EXPECT_FALSE(counts([&] { account.SortBy(1, true); }));
}

TEST(Account, HasPendingEntriesWhenAScheduleIsDueToday) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
  const struct {
    DateNumber start;
    DateNumber committed;
    bool pending;
  } cases[] = {
      {20040308, 0, false}, {20040307, 0, true}, {20040306, 0, true}, {20040307, 20040307, false}};
  for (const auto& test : cases) {
    LDGRAccount account;
    auto schedule = std::make_shared<LDGRAccountSchedule>();
    schedule->SetNumber(account.NextAvailableScheduleNumber());
    schedule->SetDate(test.start);
    if (test.committed != 0) schedule->AddCommittedDate(test.committed);
    account.AddSchedule(schedule);
    EXPECT_EQ(account.HasPendingScheduledEntries(), test.pending) << test.start;
    EXPECT_EQ(account.ScheduleForNumber(0), schedule);
    account.RemoveSchedule(schedule.get());
    EXPECT_FALSE(account.HasPendingScheduledEntries());
  }
}

}  // namespace
}  // namespace tallyfold
