#include "app/shell/preferences_sample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>

#include "model/amount_input.h"
#include "model/amount_sum.h"
#include "model/amounts.h"
#include "model/date_number.h"
#include "model/typed_day.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

constexpr std::size_t kSampledRows = 5;

DateNumber Today() {
  return NSCalendarDateToDateNumber(CurrentClock().LocalTime(CurrentClock().Now()));
}

// Those of the texts that are read as the day and the amount; what they may be follows from the
// user's formats.
std::string MayType(const LDGRAccountEntry& entry, const std::string& date_format, DateNumber today,
                    const std::vector<std::string>& amounts) {
  const DateNumber day = entry.GetDate();
  const std::string month = std::to_string(day / 100 % 100);
  const std::string day_of_month = std::to_string(day % 100);
  std::vector<std::string> texts;
  for (std::string text : {month + "/" + day_of_month, day_of_month + "/" + month,
                           LocalizedText("today"), std::to_string(day)}) {
    if (ReadTypedDay(text, date_format, today) == day) texts.push_back(std::move(text));
  }
  for (const std::string& text : amounts) {
    const auto sum = SumOfTypedAmounts(text);
    const auto amount = sum ? sum : ParsePlainOrUsersAmount(text);
    if (amount == std::abs(entry.GetAmount())) texts.push_back(text);
  }
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

}  // namespace

std::vector<SampledEntry> SampleEntries(const LDGRAccount* account) {
  std::vector<SampledEntry> sampled;
  if (account == nullptr || account->IsLocked()) return sampled;
  std::array<std::shared_ptr<LDGRAccountEntry>, kSampledRows> last;
  const auto end =
      std::partial_sort_copy(account->GetEntries().begin(), account->GetEntries().end(),
                             last.begin(), last.end(), [](const auto& a, const auto& b) {
                               return std::make_tuple(b->GetDate(), b->GetNumber()) <
                                      std::make_tuple(a->GetDate(), a->GetNumber());
                             });
  for (auto each = last.begin(); each != end; ++each) {
    sampled.push_back({*each, account->RunningBalanceOf(**each)});
  }
  std::ranges::reverse(sampled);
  return sampled;
}

PreferencesSample SampleOf(const std::vector<SampledEntry>& entries,
                           const LDGRPreferences& settings) {
  const std::string date_format = RegisterDateFormat(settings);
  const TableFormat as{date_format, settings};
  const DateNumber today = Today();
  PreferencesSample sample;
  for (const SampledEntry& each : entries) {
    const LDGRAccountEntry& entry = *each.entry;
    sample.rows.push_back({each.entry, CellOfEntry(entry, "date", as),
                           CellOfEntry(entry, "description", as), CellOfEntry(entry, "toFrom", as),
                           CellOfEntry(entry, "amount", as), AmountCell(each.balance, as),
                           LookOfEntry(entry, settings, today)});
  }
  LDGRAccountEntry debit;
  debit.SetIsDebit(true);
  debit.SetAmount(-1890.0);
  debit.SetDate(today);
  LDGRAccountEntry deposit;
  deposit.SetIsDeposit(true);
  deposit.SetAmount(2450.0);
  // The last day of the year shows which part is the day.
  deposit.SetDate(today / 10000 * 10000 + 1231);
  LDGRAccountEntry transfer;
  transfer.SetIsTransfer(true);
  transfer.SetAmount(-300.0);
  transfer.SetDate(today);
  for (const LDGRAccountEntry* each : {&debit, &deposit, &transfer}) {
    sample.formats.push_back({CellOfEntry(*each, "date", as).text,
                              CellOfEntry(*each, "amount", as).text,
                              LookOfEntry(*each, settings, today), ""});
  }
  sample.formats[0].may_type =
      MayType(debit, date_format, today, {"1890", FloatToCommasAmountString(1890.0)});
  sample.formats[1].may_type = MayType(deposit, date_format, today, {"2450", "2000+450"});
  return sample;
}

}  // namespace tallyfold
