#include "app/accounts/account_facts.h"

#include <algorithm>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {

AccountFacts FactsOf(const LDGRAccount& account) {
  AccountFacts facts;
  facts.entries = account.GetEntries().size();
  for (const auto& entry : account.GetEntries()) {
    const DateNumber day = entry->GetDate();
    facts.first = std::min(facts.first.value_or(day), day);
    facts.last = std::max(facts.last.value_or(day), day);
  }
  facts.schedules = account.GetSchedules().size();
  for (const auto& schedule : account.GetSchedules()) {
    const DateNumber day = schedule->NextEntryDate();
    if (day >= 0) facts.next_scheduled = std::min(facts.next_scheduled.value_or(day), day);
  }
  facts.next_check = account.NextAvailableCheckNumber();
  facts.balance = account.GetBalance();
  return facts;
}

std::vector<AccountFactLine> LinesOf(const AccountFacts& facts,
                                     const LDGRPreferences& preferences) {
  const std::string format = RegisterDateFormat(preferences);
  const auto day = [&format](DateNumber of) {
    return FormatDate(DateNumberToNSCalendarDate(of), format);
  };
  const std::string entries = std::to_string(facts.entries);
  const std::string schedules = std::to_string(facts.schedules);
  return {{LocalizedText("Entries"),
           facts.first && facts.last
               ? Message("{1}, from {2} to {3}", {entries, day(*facts.first), day(*facts.last)})
               : entries},
          {LocalizedText("Scheduled"),
           facts.next_scheduled
               ? Message("{1}, the next on {2}", {schedules, day(*facts.next_scheduled)})
               : schedules},
          {LocalizedText("Next check"), std::to_string(facts.next_check)},
          {LocalizedText("Balance"), RegisterAmountText(facts.balance, preferences)}};
}

}  // namespace tallyfold
