#include "app/shell/preferences_sample.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "model/date_number.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

constexpr std::size_t kSampledRows = 5;

DateNumber Today() {
  return NSCalendarDateToDateNumber(CurrentClock().LocalTime(CurrentClock().Now()));
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
    sampled.push_back({*each, account->GetRunningBalanceAtEntry(each->get())});
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
                              LookOfEntry(*each, settings, today)});
  }
  return sample;
}

}  // namespace tallyfold
