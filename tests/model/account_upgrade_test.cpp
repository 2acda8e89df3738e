#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/plist_literals.h"
#include "model/type_handover.h"

namespace tallyfold {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;
using Lines = std::vector<std::string>;
using Numbers = std::vector<std::int32_t>;

constexpr const char* kNoEntries =
    "Account does not have entries in LDGRAccount:initWithDictionary";
constexpr const char* kWrongEntries =
    "Account entries are in the wrong format in LDGRAccount:initWithDictionary";

struct OldEntry {
  std::int32_t number;
  std::int32_t flags = LDGRAccountEntry::kDebit;
};

Array EntriesWith(const std::vector<OldEntry>& entries) {
  Array result;
  for (const OldEntry& entry : entries) {
    result.Append(Dict({{"number", entry.number}, {"entryFlags", entry.flags}}));
  }
  return result;
}

Dictionary AccountOf(std::int32_t version, const Value& entries) {
  return Dict({{"version", version}, {"entries", entries}});
}

// The record with this one entry, brought up to date.
Dictionary UpgradedEntry(std::int32_t version, const Dictionary& entry) {
  LDGRAccount::UpdateAccountDictionary(AccountOf(version, List({entry})));
  return entry;
}

Numbers NumbersIn(const Dictionary& account) {
  Numbers numbers;
  for (const Value& entry : account.Get("entries").ArrayValue()) {
    numbers.push_back(entry.DictionaryValue().Get("number").IntegerValue());
  }
  return numbers;
}

TEST(AccountUpgrade, GivesEachEntryANumberOfItsOwn) {
  constexpr std::int32_t kTransfer = LDGRAccountEntry::kTransfer;
  const struct {
    std::int32_t version;
    std::int32_t count;
    std::vector<OldEntry> entries;
    Numbers numbers;
    std::int32_t final_count;
  } cases[] = {
      // Two steps renumber up to version 1, only the second of them in versions 2 and 3. Up to
      // version 2 the count is taken anew.
      {1, 99, {{1}, {2}, {2}, {5}}, {1, 2, 6, 5}, 7},
      {1, 0, {{0}, {0}, {-4}, {-4}}, {0, 1, -4, 2}, 3},
      {-1, 0, {{3}, {3}}, {3, 4}, 5},
      {2, 99, {{1}, {2}, {2}, {5}}, {1, 7, 2, 5}, 7},
      {3, 10, {{4}, {4}}, {12, 4}, 12},
      {3, 10, {{4}, {4}, {4}}, {13, 14, 4}, 14},
      {3, 2, {{4}}, {4}, 5},
      {3, 0, {{4, kTransfer}, {4}, {4, kTransfer}, {5}}, {4, 8, 4, 5}, 8},
      {3, 2147483647, {{4}, {4}}, {-2147483647, 4}, -2147483647},
      {4, 10, {{4}, {4}}, {4, 4}, 10},
  };
  for (const auto& test : cases) {
    Dictionary account = AccountOf(test.version, EntriesWith(test.entries));
    account.Set("numberCount", test.count);
    LDGRAccount::UpdateAccountDictionary(account);
    EXPECT_EQ(NumbersIn(account), test.numbers) << "version " << test.version;
    EXPECT_EQ(account.Get("numberCount").IntegerValue(), test.final_count);
    EXPECT_EQ(account.Get("version").IntegerValue(), 7);
  }
}

// The rule as it is told, comparing each entry with all others.
std::int32_t RenumberByComparing(std::vector<OldEntry>& entries, std::int32_t count) {
  for (const OldEntry& entry : entries) count = std::max(count, entry.number);
  std::int32_t next = count + 1;
  for (OldEntry& entry : entries) {
    if ((entry.flags & LDGRAccountEntry::kTransfer) != 0) continue;
    const std::int32_t number = entry.number;
    for (const OldEntry& other : entries) {
      if (&other != &entry && other.number == number) entry.number = ++next;
    }
  }
  return next;
}

TEST(AccountUpgrade, RenumbersAsComparingEachEntryWithAllOthersWould) {
  std::mt19937 random(3);
  for (int round = 0; round < 50; ++round) {
    std::vector<OldEntry> entries;
    for (int i = 0; i < 60; ++i) {
      entries.push_back({static_cast<std::int32_t>(random() % 30),
                         random() % 4 == 0 ? LDGRAccountEntry::kTransfer : 0});
    }
    Dictionary account = AccountOf(3, EntriesWith(entries));
    LDGRAccount::UpdateAccountDictionary(account);
    const std::int32_t count = RenumberByComparing(entries, 0);
    Numbers expected;
    for (const OldEntry& entry : entries) expected.push_back(entry.number);
    ASSERT_EQ(NumbersIn(account), expected);
    ASSERT_EQ(account.Get("numberCount").IntegerValue(), count);
  }
}

TEST(AccountUpgrade, MakesFlagsOfTheOldBooleans) {
  const struct {
    Value is_debit;
    Value is_check;
    std::int32_t flags;
  } cases[] = {{true, false, 1},      {true, true, 17}, {false, true, 18},
               {Value(), Value(), 2}, {1, "0", 1},      {"", Array(), 2}};
  for (const auto& test : cases) {
    const Dictionary entry =
        UpgradedEntry(2, Dict({{"isDebit", test.is_debit}, {"isCheck", test.is_check}}));
    EXPECT_EQ(entry.Get("entryFlags").IntegerValue(), test.flags);
    EXPECT_EQ(entry.Get("isDebit"), test.is_debit) << "the old booleans stay";
  }
  EXPECT_FALSE(UpgradedEntry(3, Dict({{"isDebit", true}})).Has("entryFlags"));
}

TEST(AccountUpgrade, TakesTypesOfThePreferencesForAccountsWithoutTheirOwn) {
  FakeAmbient ambient;
  const auto upgrade = [](const char* own) {
    Dictionary account = AccountOf(2, Array());
    account.Set("name", "Checking");
    if (own != nullptr) account.Set(own, Array());
    LDGRAccount::UpdateAccountDictionary(account);
    return account;
  };
  const char* const message =
      "No inactiveTypes found while upgrading account Checking.  This could cause inconsistent "
      "behavior.";
  const Dictionary bare = upgrade(nullptr);
  EXPECT_FALSE(bare.Has("types"));
  EXPECT_FALSE(bare.Has("inactiveTypes"));
  EXPECT_EQ(ambient.log.Take(), Lines{message});

  const Array types = List({Dictionary()});
  TypeHandOver().Set("types", types);
  TypeHandOver().Set("inactiveTypes", types);
  const Dictionary first = upgrade(nullptr);
  EXPECT_EQ(first.Get("types").ArrayValue().size(), 1U);
  EXPECT_EQ(first.Get("inactiveTypes").ArrayValue().size(), 1U);
  EXPECT_FALSE(first.Get("types").ArrayValue().IsSameAs(types)) << "each account has its own";
  EXPECT_TRUE(upgrade("types").Get("types").ArrayValue().empty());
  EXPECT_TRUE(upgrade("inactiveTypes").Get("inactiveTypes").ArrayValue().empty());
  TypeHandOver().Clear();
  EXPECT_EQ(ambient.log.Take(), Lines{});
}

TEST(AccountUpgrade, RoundsAmountsToCents) {
  const Array amounts = List({10.004, 10.006, -2.675});
  const Dictionary entry = Dict({{"amount", 1.005}, {"split", Dict({{"amounts", amounts}})}});
  const Dictionary bare = Dict({{"split", "no dictionary"}});
  const Dictionary text = Dict({{"amount", "12.349"}});
  Dictionary account = AccountOf(4, List({entry, bare, text}));
  account.Set("startingBalance", 0.125);
  LDGRAccount::UpdateAccountDictionary(account);
  EXPECT_EQ(account.Get("startingBalance"), Value(0.13));
  EXPECT_EQ(entry.Get("amount"), Value(1.01));
  EXPECT_EQ(amounts, List({10.0, 10.01, -2.68}));
  EXPECT_FALSE(bare.Has("amount"));
  EXPECT_EQ(text.Get("amount"), Value(12.35));

  Dictionary wrong = AccountOf(4, Array());
  wrong.Set("startingBalance", "0.125");
  LDGRAccount::UpdateAccountDictionary(wrong);
  EXPECT_EQ(wrong.Get("startingBalance"), Value("0.125"));
}

TEST(AccountUpgrade, ConvertsSecondsToTheUsersDays) {
  using std::chrono::minutes;
  const struct {
    std::int32_t version;
    int zone_hours;
    Value seconds;
    Value day;
  } cases[] = {
      {6, 0, 0, 19700101},
      {6, 9, 0, 19700101},
      {6, -5, 0, 19691231},
      {5, 0, 1078617600, 20040307},
      {6, -8, 1078617600, 20040306},
      {3, 0, -86400, 19691231},
      {6, 0, "86400", 19700102},
      {6, 0, Dictionary(), 19700101},
      {7, 0, 20040307, 20040307},
      {6, 0, Value(), Value()},
      {6, 0, std::int64_t{4102444800}, 21000101},
      {6, 0, -62135510400.0, 10102},
      {6, 0, std::int64_t{1} << 62, 19700101},
      {6, 0, std::nan(""), 19700101},
  };
  for (const auto& test : cases) {
    FakeAmbient ambient;
    ambient.clock.SetZone(FixedZone(minutes(60 * test.zone_hours)));
    const Dictionary entry = Dict({{"date", test.seconds}});
    const Array committed = test.seconds.IsNone() ? Array() : List({test.seconds});
    const Dictionary schedule = Dict({{"date", test.seconds}, {"committedDates", committed}});
    const Dictionary summary = Dict({{"startDate", test.seconds}, {"endDate", test.seconds}});
    Dictionary account = AccountOf(test.version, List({entry, 1}));
    account.Set("schedules", List({schedule, "no dictionary"}));
    account.Set("accountSummaries", List({summary}));
    LDGRAccount::UpdateAccountDictionary(account);
    for (const Value& day : {entry.Get("date"), schedule.Get("date"), committed.At(0),
                             summary.Get("startDate"), summary.Get("endDate")}) {
      EXPECT_EQ(day, test.day) << "version " << test.version << ", zone " << test.zone_hours;
    }
  }
}

TEST(AccountUpgrade, ConvertsTheEndOfASchedulesRepetitionOnlyWhenItIsThree) {
  const struct {
    int zone_hours;
    Value until;
    Value expected;
  } cases[] = {{0, 3, 19700101}, {-1, 3, 19691231}, {0, 2, 2}, {0, 1078617600, 1078617600}};
  for (const auto& test : cases) {
    FakeAmbient ambient;
    ambient.clock.SetZone(FixedZone(std::chrono::minutes(60 * test.zone_hours)));
    const Dictionary schedule = Dict({{"repeatUntil", test.until}});
    Dictionary account = AccountOf(6, Array());
    account.Set("schedules", List({schedule}));
    LDGRAccount::UpdateAccountDictionary(account);
    EXPECT_EQ(schedule.Get("repeatUntil"), test.expected);
  }
}

TEST(AccountUpgrade, LogsWhatItCannotUseAndGoesOn) {
  const char* const update_missing =
      "Account does not have entries in LDGRAccount:UpdateAccountDictionary:FromVersion";
  const char* const update_wrong =
      "Account entries are in the wrong format in LDGRAccount:UpdateAccountDictionary:FromVersion";
  const char* const no_types =
      "No inactiveTypes found while upgrading account .  This could cause inconsistent behavior.";
  const struct {
    std::int32_t version;
    Value entries;
    Lines lines;
  } cases[] = {
      {1, {}, {kNoEntries, no_types, update_missing, kNoEntries, kNoEntries, kNoEntries}},
      {2, "", {no_types, update_wrong, kWrongEntries, kWrongEntries, kWrongEntries}},
      {3, {}, {kNoEntries, kNoEntries, kNoEntries}},
      {4, 1, {kWrongEntries, kWrongEntries}},
      {5, {}, {kNoEntries}},
      {6, Dictionary(), {kWrongEntries}},
      {7, {}, {}},
  };
  FakeAmbient ambient;
  for (const auto& test : cases) {
    const Dictionary account = AccountOf(test.version, test.entries);
    LDGRAccount::UpdateAccountDictionary(account);
    EXPECT_EQ(ambient.log.Take(), test.lines) << "version " << test.version;
    EXPECT_EQ(account.Get("version"), Value(7));
  }
  Dictionary without_entries = AccountOf(1, {});
  without_entries.Set("numberCount", 41);
  LDGRAccount::UpdateAccountDictionary(without_entries);
  EXPECT_EQ(without_entries.Get("numberCount"), Value(41));
  EXPECT_EQ(ambient.log.Take().size(), 6U);
  Dictionary account = AccountOf(6, Array());
  account.Set("schedules", 1);
  account.Set("accountSummaries", "");
  LDGRAccount::UpdateAccountDictionary(account);
  EXPECT_EQ(ambient.log.Take(),
            (Lines{"Account schedules are in the wrong format in LDGRAccount:initWithDictionary",
                   "Account Summaries are in the wrong format in LDGRAccount:initWithDictionary"}));
}

TEST(AccountUpgrade, OnlyRelabelsRecordsOfNoVersionAndOfNewerOnes) {
  const struct {
    Value version;
    Value number;
  } cases[] = {{Value(), -1}, {0, -1}, {"none", -1}, {7, 5}, {9, 5}};
  FakeAmbient ambient;
  for (const auto& test : cases) {
    Dictionary account = AccountOf(7, EntriesWith({{2}, {2}}));
    account.Set("version", test.version);
    account.Set("number", 5);
    const Value entries = account.Get("entries").DeepCopy();
    EXPECT_TRUE(LDGRAccount::UpdateAccountDictionary(account).IsSameAs(account));
    EXPECT_EQ(account.Get("version"), Value(7));
    EXPECT_EQ(account.Get("number"), test.number);
    EXPECT_EQ(account.Get("entries"), entries);
  }
  EXPECT_EQ(ambient.log.Take(), Lines{});
}

}  // namespace
}  // namespace tallyfold
