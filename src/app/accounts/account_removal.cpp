#include "app/accounts/account_removal.h"

#include <algorithm>
#include <string>

#include "ledger/change.h"
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

template <typename Record>
void Unlink(Change& change, const std::shared_ptr<LDGRAccount>& account,
            const std::shared_ptr<Record>& record, std::int32_t removed) {
  if (record->GetTransferAccount() != removed) return;
  change.Edit(account, record).SetTransferAccount(kNotLinked);
  record->SetTransferEntry(kNotLinked);
}

// The view preferences of a removed account, which come back with it.
class ViewOfAccount final : public StepCompanion {
 public:
  ViewOfAccount(LDGRPreferences& preferences, std::int32_t account)
      : preferences_(preferences),
        account_(account),
        view_(preferences.GetPreferencesForAccountNumber(account)) {
    preferences_.RemovePreferencesForAccountNumber(account_);
  }
  void Follow(Way way) noexcept override {
    if (way == Way::Forward) {
      preferences_.RemovePreferencesForAccountNumber(account_);
    } else {
      preferences_.SetPreferencesForAccount(view_);
    }
  }

 private:
  LDGRPreferences& preferences_;
  const std::int32_t account_;
  const std::shared_ptr<LDGRAccountPreferences> view_;
};

}  // namespace

bool AccountRemoval::Account_Remove() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || !sheets_.IsFree() || !UserAgrees(*account)) return false;

  const AccountList before = desk_.accounts();
  const auto place = std::find(before.begin(), before.end(), account) - before.begin();
  // Before the account goes, so that its view is not stored again when the next one is shown.
  selection_.Account_Deselect();
  if (passwords_.authenticatingAccount() == account) passwords_.Forget();
  Change change(ledger_, "Remove Account", account);
  UnlinkOthers(change, *account);
  change.RemoveAccount(account);
  change.Attach(std::make_unique<ViewOfAccount>(desk_.preferences(), account->GetNumber()));
  change.Close();
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

void AccountRemoval::UnlinkOthers(Change& change, const LDGRAccount& account) const {
  const std::int32_t number = account.GetNumber();
  for (const auto& other : desk_.accounts()) {
    if (other.get() == &account) continue;
    for (const auto& entry : other->GetEntries()) Unlink(change, other, entry, number);
    for (const auto& schedule : other->GetSchedules()) Unlink(change, other, schedule, number);
    if (other->lastTransferAccount() == number) {
      change.EditOptions(other).setLastTransferAccount(kNotLinked);
    }
  }
}

}  // namespace tallyfold
