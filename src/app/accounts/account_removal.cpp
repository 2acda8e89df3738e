#include "app/accounts/account_removal.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

constexpr std::size_t kRemoveButton = 1;

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
  links_.CutLinksTo(change, *account);
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
  const std::size_t entries = account.GetEntries().size();
  const std::size_t schedules = account.GetSchedules().size();
  std::string message =
      Message("The account \"{1}\" holds {2} and {3}.",
              {account.GetName(), Counted(entries, "{1} entry", "{1} entries"),
               Counted(schedules, "{1} scheduled entry", "{1} scheduled entries")});
  if (const std::size_t linked = links_.EntriesLinkedTo(account); linked > 0) {
    message += "  " + Message(
                          "In other accounts, the other halves of its transfers stay as ordinary "
                          "entries: {1}.",
                          {std::to_string(linked)});
  }
  const AlertRequest request = {LocalizedText("Remove Account?"),
                                std::move(message),
                                {LocalizedText("Cancel"), LocalizedText("Remove")}};
  return alerts_.Run(request) == kRemoveButton;
}

}  // namespace tallyfold
