#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/transfer_links.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/shell/modal_watch.h"
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

// Which commands make sense now. All are off while a sheet or a modal window is open.
struct CommandsState {
  bool add_account = false;
  bool lock = false;
  // For the selected account.
  bool edit_account = false;
  bool remove_account = false;
  bool lock_account = false;
  bool add_entry = false;
  bool export_account = false;
  bool import_file = false;
  bool save_as = false;
  // For the selected entry.
  bool edit_entry = false;
  bool remove_entry = false;
  bool show_other_half = false;
  // For the selected account, and for its selected scheduled entry: edit, duplicate and remove it;
  // commit or skip the next occurrence.
  bool add_schedule = false;
  bool edit_schedule = false;
  bool commit_schedule = false;
  bool show_reminder = false;

  friend bool operator==(const CommandsState&, const CommandsState&) = default;
};

// The menus whose items depend on the accounts.
class Menus {
 public:
  Menus(Desk& desk, const AccountsStore& accounts, const ModalWatch& modal,
        AccountSelection& selection, const TransferLinks& links, const SheetSlot& sheets,
        Refresh& refresh) noexcept
      : desk_(desk),
        accounts_(accounts),
        modal_(modal),
        selection_(selection),
        links_(links),
        sheets_(sheets),
        refresh_(refresh) {}
  Menus(const Menus&) = delete;
  Menus& operator=(const Menus&) = delete;

  [[nodiscard]] CommandsState Commands() const;

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
  const AccountsStore& accounts_;
  const ModalWatch& modal_;
  AccountSelection& selection_;
  const TransferLinks& links_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
};

}  // namespace tallyfold
