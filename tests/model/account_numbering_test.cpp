#include <gtest/gtest.h>

#include <limits>

#include "model/account.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(AccountNumbering, HandsOutEntryNumbersOnce) {
  const struct {
    std::int32_t count;
    std::int32_t next;
  } cases[] = {{0, 1}, {41, 42}, {kHighest, std::numeric_limits<std::int32_t>::min()}};
  for (const auto& test : cases) {
    plist::Dictionary dictionary;
    dictionary.Set("numberCount", test.count);
    LDGRAccount account(dictionary);
    EXPECT_EQ(account.NextAvailableNumber(), test.next);
    account.AddEntry(MakeEntry({.number = test.next}));
    account.RemoveEntry(account.GetEntries()[0].get());
    EXPECT_EQ(account.NextAvailableNumber(), test.next + 1) << "also after removals";
  }
}

TEST(AccountNumbering, NumbersSchedulesFromZero) {
  LDGRAccount account;
  EXPECT_EQ(account.NextAvailableScheduleNumber(), 0);
  auto schedule = std::make_shared<LDGRAccountSchedule>();
  schedule->SetNumber(4);
  account.AddSchedule(schedule);
  EXPECT_EQ(account.NextAvailableScheduleNumber(), 5);
}

TEST(AccountNumbering, SuggestsCheckNumbersFromTheHighestOrTheStartingOne) {
  const struct {
    std::int32_t starting;
    std::vector<EntryFields> entries;
    std::int32_t highest;
    std::int32_t next;
  } cases[] = {
      {1001, {}, 1000, 1001},
      {1001, {{.check = 1200}, {.check = 3}}, 1200, 1201},
      {1001, {{.check = 1000}}, 1000, 1001},
      {1, {{.check = kHighest - 1}}, kHighest - 1, kHighest},
      {-5, {{.number = 1}}, -1, 0},
  };
  for (const auto& test : cases) {
    LDGRAccount account;
    account.SetStartingCheckNumber(test.starting);
    AddEntries(account, test.entries);
    EXPECT_EQ(account.HighestCheckNumber(), test.highest);
    EXPECT_EQ(account.NextAvailableCheckNumber(), test.next);
    EXPECT_EQ(account.NextAvailableCheckNumberAfterEntry(nullptr), test.next);
  }
}

TEST(AccountNumbering, FillsGapsAfterACheck) {
  const struct {
    std::vector<std::int32_t> checks;
    std::size_t after;
    std::int32_t next;
  } cases[] = {
      {{100, 101, 102, 105}, 0, 103}, {{102, 103}, 0, 104}, {{105, 100, 102, 101}, 1, 103},
      {{100, 105}, 0, 101},           {{100, 105}, 1, 106}, {{100, 100, 100, 101, 103}, 0, 102},
  };
  for (const auto& test : cases) {
    LDGRAccount account;
    for (const std::int32_t check : test.checks) {
      const auto number = static_cast<std::int32_t>(account.GetEntries().size());
      account.AddEntry(MakeEntry({.number = number, .check = check}));
    }
    EXPECT_EQ(account.NextAvailableCheckNumberAfterEntry(account.GetEntries()[test.after].get()),
              test.next)
        << "after " << test.checks[test.after];
  }
}

TEST(AccountNumbering, LooksOnlyAtChecksForGapsButAtAllEntriesForTheHighest) {
  LDGRAccount account;
  AddEntries(account, {{.number = 1, .check = 100}, {.number = 2, .check = 101}});
  const auto other = MakeEntry({.number = 3});
  other->SetCheckNumber(200);
  account.AddEntry(other);
  const auto next = [&account](const std::shared_ptr<LDGRAccountEntry>& entry) {
    return account.NextAvailableCheckNumberAfterEntry(entry.get());
  };
  EXPECT_EQ(account.HighestCheckNumber(), 200);
  // No check follows 101 and it is not the highest: the walk ends where it started.
  EXPECT_EQ(next(account.GetEntries()[1]), 101);
  EXPECT_EQ(next(other), 201);
  EXPECT_EQ(next(MakeEntry({.number = 4, .check = 100})), 201) << "an entry that is not there";
  const auto card = MakeEntry({.number = 5});
  account.AddEntry(card);
  EXPECT_EQ(next(card), -1) << "no check comes after an entry that is none";
}

TEST(AccountNumbering, FindsTheNextCheckNumberInUse) {
  LDGRAccount account;
  AddEntries(account, {{.check = 110}, {.check = 100}, {.check = 105}});
  const std::pair<std::int32_t, std::int32_t> cases[] = {{-1, 100},  {100, 105}, {104, 105},
                                                         {105, 110}, {110, 110}, {200, 110}};
  for (const auto& [number, next] : cases) {
    EXPECT_EQ(account.NextCheckNumberAfterCheckNumber(number), next) << number;
  }
}

}  // namespace
}  // namespace tallyfold
