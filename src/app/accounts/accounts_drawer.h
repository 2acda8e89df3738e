#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "model/account.h"
#include "registers/table_data_source.h"
#include "registers/table_state.h"
#include "storage/preferences.h"

namespace tallyfold {

// The columns of the accounts list: "accounts" (the name) and "balance".
[[nodiscard]] std::vector<TableColumn> AccountColumns();

// What an account shows in a column: a locked one "Locked", without a number, for its balance.
// Nothing for an unknown column.
[[nodiscard]] TableCell CellOfAccount(const LDGRAccount& account, std::string_view column,
                                      const LDGRPreferences& preferences);

struct AccountsDrawerState {
  bool is_open = false;
  // Of the menu item that opens and closes the drawer.
  std::string menu_item_title;
};

// The drawer with the list of accounts. The list is a sorted copy: the order of the file stays. Its
// selected row is that of the selected account, or of the one whose password is being asked.
class AccountsDrawer final : public TableDataSource {
 public:
  AccountsDrawer(Desk& desk, AccountSelection& selection, const AccountPasswords& passwords,
                 AccountEditing& editing, Refresh& refresh, Announcer& announcer);
  AccountsDrawer(const AccountsDrawer&) = delete;
  AccountsDrawer& operator=(const AccountsDrawer&) = delete;
  ~AccountsDrawer() override;

  [[nodiscard]] const AccountsDrawerState& State() const noexcept { return state_; }
  // Starts with the drawer closed.
  void SetUp() { SetOpen(false); }
  // Opens or closes the drawer and remembers it in the preferences.
  void ToggleAccountsDrawer();
  // The drawer was closed, by whatever means; the preference stays.
  void drawerDidClose();

  // Takes the accounts again, in the order the preferences want.
  void Reload();
  [[nodiscard]] TableState& Table() noexcept { return table_; }
  // By row; none while the application is locked.
  [[nodiscard]] const AccountList& Rows() const noexcept { return rows_; }
  // The column is sorted by from here on, in the other direction when it already was. Any other
  // identifier does nothing.
  void ClickedTableColumn(std::string_view column);
  // Selects the account of that row; one beyond them does nothing.
  void accountsDrawer_Accounts_Table_Action(std::size_t row);
  void accountsDrawer_Accounts_Table_DoubleClick(std::size_t row);

  [[nodiscard]] std::size_t numberOfRowsInTableView() const override { return rows_.size(); }
  [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;
  [[nodiscard]] RowLook LookOfRow(std::size_t /*row*/) const override { return {}; }

 private:
  void SetOpen(bool is_open);
  [[nodiscard]] AccountList SortedAccounts() const;

  Desk& desk_;
  AccountSelection& selection_;
  const AccountPasswords& passwords_;
  AccountEditing& editing_;
  Refresh& refresh_;
  Announcer& announcer_;
  AccountsDrawerState state_;
  TableState table_;
  AccountList rows_;
};

}  // namespace tallyfold
