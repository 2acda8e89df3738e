#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "model/account.h"

namespace tallyfold {

// A row of the accounts list.
struct AccountRow {
  std::shared_ptr<LDGRAccount> account;
  // 0.0 for a locked account.
  double balance = 0.0;
  bool is_locked = false;
  bool is_selected = false;
};

struct AccountsDrawerState {
  bool is_open = false;
  // Of the menu item that opens and closes the drawer.
  std::string menu_item_title;
};

// The drawer with the list of accounts. The list is a sorted copy: the order of the file stays.
class AccountsDrawer {
 public:
  // Identifiers of the list's columns, under which the preferences remember the order.
  static constexpr std::string_view kNameColumn = "accounts";
  static constexpr std::string_view kBalanceColumn = "balance";

  AccountsDrawer(Desk& desk, AccountSelection& selection, AccountEditing& editing, Refresh& refresh,
                 Announcer& announcer);
  AccountsDrawer(const AccountsDrawer&) = delete;
  AccountsDrawer& operator=(const AccountsDrawer&) = delete;

  [[nodiscard]] const AccountsDrawerState& State() const noexcept { return state_; }
  // Starts with the drawer closed.
  void SetUp() { SetOpen(false); }
  // Opens or closes the drawer and remembers it in the preferences.
  void ToggleAccountsDrawer();
  // The drawer was closed, by whatever means; the preference stays.
  void drawerDidClose();

  // The accounts in the order the preferences want; none while the application is locked.
  [[nodiscard]] std::vector<AccountRow> Rows() const;
  // The column is sorted by from here on, in the other direction when it already was. Any other
  // identifier does nothing.
  void ClickedTableColumn(std::string_view column);
  // Selects the account of that row of Rows(); one beyond them does nothing.
  void Table_Action(std::size_t row);
  void Table_DoubleClick(std::size_t row);

 private:
  void SetOpen(bool is_open);

  Desk& desk_;
  AccountSelection& selection_;
  AccountEditing& editing_;
  Refresh& refresh_;
  Announcer& announcer_;
  AccountsDrawerState state_;
};

}  // namespace tallyfold
