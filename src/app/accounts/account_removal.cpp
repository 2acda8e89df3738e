#include "app/accounts/account_removal.h"

#include <algorithm>
#include <string>

#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNotLinked = -1;
constexpr std::size_t kRemoveButton = 1;

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + ' ' + LocalizedText(count == 1 ? one : many);
}

bool Unlink(LDGRAccountEntry& entry, std::int32_t account) {
  if (entry.GetTransferAccount() != account) return false;
  entry.SetTransferAccount(kNotLinked);
  entry.SetTransferEntry(kNotLinked);
  return true;
}

}  // namespace

bool AccountRemoval::Account_Remove() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || !sheets_.IsFree() || !UserAgrees(*account)) return false;

  const AccountList before = desk_.accounts();
  const auto place = std::find(before.begin(), before.end(), account) - before.begin();
  // Before the account goes, so that its view is not stored again when the next one is shown.
  selection_.Account_Deselect();
  UnlinkOthers(*account);
  if (passwords_.authenticatingAccount() == account) passwords_.Forget();
  accounts_.RemoveAccount(account.get());
  desk_.preferences().RemovePreferencesForAccountNumber(account->GetNumber());
  refresh_.AccountsChanged();

  const AccountList& left = desk_.accounts();
  if (!left.empty()) {
    const auto next = std::min(static_cast<std::size_t>(place), left.size() - 1);
    selection_.Account_Select(left[next]);
  }
  return true;
}

bool AccountRemoval::UserAgrees(const LDGRAccount& account) const {
  std::string message =
      MessageWithText(LocalizedText("The account \"%@\" holds"), account.GetName()) + ' ' +
      StringsToEnglishList(
          {Counted(account.GetEntries().size(), "entry", "entries"),
           Counted(account.GetSchedules().size(), "scheduled entry", "scheduled entries")}) +
      ".  ";
  if (const std::size_t linked = LinkedEntries(account); linked > 0) {
    message += LocalizedText(
                   "In other accounts, the other halves of its transfers stay as "
                   "ordinary entries:") +
               ' ' + std::to_string(linked) + ".  ";
  }
  message += LocalizedText("Removing it cannot be undone.");
  const AlertRequest request = {LocalizedText("Remove Account?"),
                                std::move(message),
                                {LocalizedText("Cancel"), LocalizedText("Remove")}};
  return alerts_.Run(request) == kRemoveButton;
}

std::size_t AccountRemoval::LinkedEntries(const LDGRAccount& account) const {
  std::size_t linked = 0;
  for (const auto& other : desk_.accounts()) {
    if (other.get() == &account) continue;
    for (const auto& entry : other->GetEntries()) {
      if (entry->IsTransfer() && entry->GetTransferAccount() == account.GetNumber()) ++linked;
    }
  }
  return linked;
}

void AccountRemoval::UnlinkOthers(const LDGRAccount& account) const {
  const std::int32_t number = account.GetNumber();
  for (const auto& other : desk_.accounts()) {
    if (other.get() == &account) continue;
    bool changed = false;
    for (const auto& entry : other->GetEntries()) changed |= Unlink(*entry, number);
    for (const auto& schedule : other->GetSchedules()) changed |= Unlink(*schedule, number);
    if (changed) other->NoteChange();
    if (other->lastTransferAccount() == number) other->setLastTransferAccount(kNotLinked);
  }
}

}  // namespace tallyfold
