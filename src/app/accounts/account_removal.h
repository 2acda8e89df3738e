#pragma once

#include <cstddef>
#include <memory>

#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "model/account.h"
#include "platform/alerts.h"

namespace tallyfold {

class LDGRPreferences;

// Removes the selected account with everything in it, after one question.
class AccountRemoval {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    [[nodiscard]] virtual const AccountList& Accounts() const = 0;
    // Null when no account is selected.
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> SelectedAccount() const = 0;
    [[nodiscard]] virtual LDGRPreferences& Preferences() = 0;
    virtual void RemoveAccount(const LDGRAccount* account) = 0;
    virtual void Account_Select(const std::shared_ptr<LDGRAccount>& account) = 0;
    virtual void Account_Deselect() = 0;
  };

  AccountRemoval(Host& host, Alerts& alerts, const SheetSlot& sheets, Refresh& refresh) noexcept
      : host_(host), alerts_(alerts), sheets_(sheets), refresh_(refresh) {}
  AccountRemoval(const AccountRemoval&) = delete;
  AccountRemoval& operator=(const AccountRemoval&) = delete;

  // Asks, and then removes the account, its view preferences and every link to it: the other halves
  // of its transfers stay as ordinary entries. The next account in the list is selected, if any.
  // False when nothing was removed.
  bool Account_Remove();

 private:
  [[nodiscard]] bool UserAgrees(const LDGRAccount& account) const;
  // How many entries of other accounts are linked to the account.
  [[nodiscard]] std::size_t LinkedEntries(const LDGRAccount& account) const;
  void UnlinkOthers(const LDGRAccount& account) const;

  Host& host_;
  Alerts& alerts_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
};

}  // namespace tallyfold
