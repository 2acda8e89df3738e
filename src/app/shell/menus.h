#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/shell/modal_watch.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

struct MenuItem {
  std::string title;
  std::int32_t tag = 0;
  bool is_enabled = true;
  bool is_checked = false;
  // A line between groups; its title is "".
  bool is_separator = false;

  friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

// The menus whose items depend on the accounts.
class Menus {
 public:
  Menus(Desk& desk, Ledger& ledger, const ModalWatch& modal, AccountSelection& selection,
        const SheetSlot& sheets, Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        modal_(modal),
        selection_(selection),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer) {}
  Menus(const Menus&) = delete;
  Menus& operator=(const Menus&) = delete;

  // False while the application is locked, and while a sheet or something modal is up.
  [[nodiscard]] bool AreOn() const noexcept;

  // Every account in the order of the file, its number as tag, the selected one checked; none while
  // the application is locked.
  [[nodiscard]] std::vector<MenuItem> AccountMenu() const;
  // An item of the account menu was chosen.
  void Account_Menu_Show_MenuItem(std::int32_t tag);

  // The selected account's debit types, a separator, its deposit types. Those that the selected
  // entry can take are enabled, the one it has is checked.
  [[nodiscard]] std::vector<MenuItem> EntryTypeMenu() const;
  // An item of the type menu was chosen: the selected entry gets that type if it is of the type's
  // kind.
  void entryMenu_Types_MenuItem(std::int32_t tag);

 private:
  Desk& desk_;
  Ledger& ledger_;
  const ModalWatch& modal_;
  AccountSelection& selection_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
};

}  // namespace tallyfold
