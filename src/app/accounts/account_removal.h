#pragma once

#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "platform/alerts.h"
#include "storage/accounts_store.h"

namespace tallyfold {

// Removes the selected account with everything in it, after one question.
class AccountRemoval {
 public:
  AccountRemoval(Desk& desk, Ledger& ledger, const TransferLinks& links,
                 AccountSelection& selection, AccountPasswords& passwords, Alerts& alerts,
                 const SheetSlot& sheets, Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        links_(links),
        selection_(selection),
        passwords_(passwords),
        alerts_(alerts),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer) {}
  AccountRemoval(const AccountRemoval&) = delete;
  AccountRemoval& operator=(const AccountRemoval&) = delete;

  // Asks, and then removes the account, its view preferences and every link to it: the other halves
  // of its transfers stay as ordinary entries. The next account in the list is selected, if any.
  // False when nothing was removed.
  bool Account_Remove();

 private:
  [[nodiscard]] bool UserAgrees(const LDGRAccount& account) const;

  Desk& desk_;
  Ledger& ledger_;
  const TransferLinks& links_;
  AccountSelection& selection_;
  AccountPasswords& passwords_;
  Alerts& alerts_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
};

}  // namespace tallyfold
