#include <algorithm>
#include <chrono>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "model/account.h"
#include "model/amounts.h"
#include "model/date_number.h"
#include "model/stored_numbers.h"
#include "model/text.h"
#include "model/type_handover.h"
#include "platform/ambient.h"
#include "platform/clock.h"
#include "plist/read_report.h"

// Account records have had seven forms. A step brings a record from the form before it to its own;
// an old record goes through its step and all later ones. Up to version 2 entries had booleans for
// their kind, up to version 6 days were counts of seconds since 1970 in UTC.
//
// Values are taken as numbers whatever their kind: files of these ages were never checked. What is
// so replaced by something else is told to the read report. Numbers count on with wrap-around,
// because a file may hold the highest there is.

namespace tallyfold {
namespace {

constexpr std::string_view kInit = "LDGRAccount:initWithDictionary";
constexpr std::string_view kUpdate = "LDGRAccount:UpdateAccountDictionary:FromVersion";

std::int32_t Sum(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

// The dictionaries of an array, shared with it.
std::vector<plist::Dictionary> DictionariesOf(const plist::Array& array) {
  std::vector<plist::Dictionary> result;
  result.reserve(array.size());
  for (const plist::Value& value : array) {
    if (value.IsDictionary()) result.push_back(value.DictionaryValue());
  }
  return result;
}

bool HasEntries(const plist::Dictionary& account) {
  return account.Get("entries").IsArray();
}

// The entries; none, and a line in the log in the name of `operation`, without an array of them.
std::vector<plist::Dictionary> EntriesOf(const plist::Dictionary& account,
                                         std::string_view operation) {
  const plist::Value& entries = account.Get("entries");
  if (entries.IsNone()) {
    Log(MessageWithText("Account does not have entries in %@", operation));
  } else if (!entries.IsArray()) {
    Log(MessageWithText("Account entries are in the wrong format in %@", operation));
  }
  return entries.IsArray() ? DictionariesOf(entries.ArrayValue())
                           : std::vector<plist::Dictionary>();
}

std::int32_t Number(const plist::Dictionary& record, std::string_view key) {
  return LooseInteger(record.Get(key), key);
}

std::int32_t NumberOf(const plist::Dictionary& record) {
  return Number(record, "number");
}

std::int32_t HighestNumber(const std::vector<plist::Dictionary>& entries, std::int32_t start) {
  for (const auto& entry : entries) start = std::max(start, NumberOf(entry));
  return start;
}

// Version 2: entries had been given numbers twice.
void RenumberDuplicates(plist::Dictionary& account) {
  std::int32_t highest = 0;
  std::unordered_set<std::int32_t> seen;
  std::vector<plist::Dictionary> duplicates;
  for (auto& entry : EntriesOf(account, kInit)) {
    const std::int32_t number = NumberOf(entry);
    highest = std::max(highest, number);
    if (!seen.insert(number).second) duplicates.push_back(std::move(entry));
  }
  for (auto& entry : duplicates) {
    highest = Sum(highest, 1);
    entry.Set("number", highest);
  }
}

void TakeHandedOver(plist::Dictionary& account, std::string_view key) {
  const plist::Value& types = TypeHandOver().Get(key);
  if (!types.IsNone()) NoteTypesWereTaken();
  account.Set(key, types.DeepCopy());
}

// Version 3: types belong to accounts, kinds of entries are one word of flags.
void TakeTypesAndMakeFlags(plist::Dictionary& account) {
  if (!account.Has("types")) TakeHandedOver(account, "types");
  if (!account.Has("inactiveTypes")) {
    TakeHandedOver(account, "inactiveTypes");
    if (!account.Has("inactiveTypes")) {
      Log(MessageWithText(
          "No inactiveTypes found while upgrading account %@.  This could cause inconsistent "
          "behavior.",
          account.Get("name").StringValue()));
    }
  }
  auto entries = EntriesOf(account, kUpdate);
  const plist::Key flags("entryFlags");  // one text for all entries
  for (auto& entry : entries) {
    const bool is_debit = LooseBoolean(entry.Get("isDebit"), "isDebit");
    const bool is_check = LooseBoolean(entry.Get("isCheck"), "isCheck");
    entry.Set(flags,
              std::int32_t{is_debit ? LDGRAccountEntry::kDebit : LDGRAccountEntry::kDeposit} |
                  std::int32_t{is_check ? LDGRAccountEntry::kCheck : 0});
  }
  if (HasEntries(account)) account.Set("numberCount", HighestNumber(entries, 0));
}

// Version 4: an entry that is no transfer has its number to itself. Each is compared with what the
// others are called by then, and each other of its number uses a new number up, so that the last
// one of a number keeps it. Transfers are known by their numbers in other accounts and keep them.
void RenumberNonTransfers(plist::Dictionary& account) {
  auto entries = EntriesOf(account, kInit);
  if (!HasEntries(account)) return;
  std::unordered_map<std::int32_t, std::int32_t> counts;
  for (const auto& entry : entries) ++counts[NumberOf(entry)];

  std::int32_t next = Sum(HighestNumber(entries, Number(account, "numberCount")), 1);
  for (auto& entry : entries) {
    if ((entry.Get("entryFlags").IntegerValue() & LDGRAccountEntry::kTransfer) != 0) continue;
    std::int32_t& count = counts[NumberOf(entry)];
    const std::int32_t others = count - 1;
    if (others == 0) continue;
    --count;
    next = Sum(next, others);
    ++counts[next];
    entry.Set("number", next);
  }
  account.Set("numberCount", next);
}

double Rounded(const plist::Value& amount, std::string_view key) {
  if (!amount.IsNumber()) plist::ReportNotTaken(plist::NotTaken::NotUpgraded, key);
  return RoundedAmount(amount.DoubleValue());
}

// Version 5: amounts are whole cents.
void RoundAmounts(plist::Dictionary& account) {
  const plist::Value& starting_balance = account.Get("startingBalance");
  if (starting_balance.IsNumber()) {
    account.Set("startingBalance", RoundedAmount(starting_balance.DoubleValue()));
  }
  for (auto& entry : EntriesOf(account, kInit)) {
    if (entry.Has("amount")) entry.Set("amount", Rounded(entry.Get("amount"), "amount"));
    const plist::Value& split = entry.Get("split");
    if (!split.IsDictionary()) continue;
    const plist::Value amounts = split.DictionaryValue().Get("amounts");
    if (!amounts.IsArray()) continue;
    plist::Array array = amounts.ArrayValue();
    for (std::size_t i = 0; i < array.size(); ++i) array.Set(i, Rounded(array.At(i), "amounts"));
  }
}

// The user's day at that many seconds since 1970-01-01 00:00 UTC; the null date for what is none
// of the years 1 to 9999.
DateNumber DayOfSeconds(const plist::Value& stored, std::string_view key) {
  constexpr std::int64_t kDay = 86'400;
  constexpr std::int64_t kFirst = -719'161 * kDay;  // the second day of year 1
  constexpr std::int64_t kLast = 2'932'896 * kDay;  // the last day of year 9999
  const bool is_none = !stored.IsNumber() && !stored.IsString();
  const double rough = is_none ? 0.0 : stored.DoubleValue();
  const bool is_in_range =
      rough >= static_cast<double>(kFirst) && rough <= static_cast<double>(kLast);
  if (!stored.IsNumber() || !is_in_range) {
    plist::ReportNotTaken(plist::NotTaken::NotUpgraded, key);
  }
  if (!is_in_range) return kNullDate;
  // Every whole number of the range is exact in a double.
  const Instant instant{std::chrono::seconds(static_cast<std::int64_t>(rough))};
  return NSCalendarDateToDateNumber(CurrentClock().LocalTime(instant));
}

void ConvertDay(plist::Dictionary& record, std::string_view key) {
  if (record.Has(key)) record.Set(key, DayOfSeconds(record.Get(key), key));
}

void ConvertSchedule(plist::Dictionary& schedule) {
  ConvertDay(schedule, "date");
  // The type of repetition was meant where its number is looked at: kept, since files that other
  // copies upgraded must not differ.
  if (schedule.Get("repeatUntil").IntegerValue() == 3) ConvertDay(schedule, "repeatUntil");
  const plist::Value& committed = schedule.Get("committedDates");
  if (!committed.IsArray()) return;
  plist::Array days = committed.ArrayValue();
  for (std::size_t i = 0; i < days.size(); ++i) {
    days.Set(i, DayOfSeconds(days.At(i), "committedDates"));
  }
}

// Version 7: days are DateNumbers.
void ConvertDays(plist::Dictionary& account) {
  for (auto& entry : EntriesOf(account, kInit)) ConvertDay(entry, "date");

  const plist::Value& schedules = account.Get("schedules");
  if (schedules.IsArray()) {
    for (auto& schedule : DictionariesOf(schedules.ArrayValue())) ConvertSchedule(schedule);
  } else if (!schedules.IsNone()) {
    Log(MessageWithText("Account schedules are in the wrong format in %@", kInit));
  }

  const plist::Value& summaries = account.Get("accountSummaries");
  if (summaries.IsArray()) {
    for (auto& summary : DictionariesOf(summaries.ArrayValue())) {
      ConvertDay(summary, "startDate");
      ConvertDay(summary, "endDate");
    }
  } else if (!summaries.IsNone()) {
    Log(MessageWithText("Account Summaries are in the wrong format in %@", kInit));
  }
}

struct Step {
  std::int32_t last_version;  // of the records that need it
  void (*apply)(plist::Dictionary& account);
};

constexpr Step kSteps[] = {
    {1, RenumberDuplicates}, {2, TakeTypesAndMakeFlags}, {3, RenumberNonTransfers},
    {4, RoundAmounts},       {6, ConvertDays},
};

}  // namespace

plist::Dictionary LDGRAccount::UpdateAccountDictionary(plist::Dictionary dictionary) {
  const std::int32_t version = Number(dictionary, "version");
  return version != 0 ? UpdateAccountDictionaryFromVersion(std::move(dictionary), version)
                      : UpdateAccountDictionaryFromNil(std::move(dictionary));
}

plist::Dictionary LDGRAccount::UpdateAccountDictionaryFromNil(plist::Dictionary dictionary) {
  dictionary.Set("version", kCurrentVersion);
  dictionary.Set("number", -1);
  return dictionary;
}

plist::Dictionary LDGRAccount::UpdateAccountDictionaryFromVersion(plist::Dictionary dictionary,
                                                                  std::int32_t version) {
  for (const Step& step : kSteps) {
    if (version <= step.last_version) step.apply(dictionary);
  }
  dictionary.Set("version", kCurrentVersion);
  return dictionary;
}

}  // namespace tallyfold
