#include "app/accounts/accounts_drawer.h"

#include <algorithm>

#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {

AccountsDrawer::AccountsDrawer(Desk& desk, AccountSelection& selection, AccountEditing& editing,
                               Refresh& refresh, Announcer& announcer)
    : desk_(desk),
      selection_(selection),
      editing_(editing),
      refresh_(refresh),
      announcer_(announcer) {}

void AccountsDrawer::ToggleAccountsDrawer() {
  SetOpen(!state_.is_open);
  desk_.preferences().SetShowAccountsDrawer(state_.is_open);
}

void AccountsDrawer::drawerDidClose() {
  SetOpen(false);
}

void AccountsDrawer::SetOpen(bool is_open) {
  state_.is_open = is_open;
  state_.menu_item_title = LocalizedText(is_open ? "Hide Accounts" : "Show Accounts");
  announcer_.Changed(Area::AccountsDrawer);
}

std::vector<AccountRow> AccountsDrawer::Rows() const {
  std::vector<AccountRow> rows;
  if (!desk_.IsUnlocked()) return rows;
  const auto selected = desk_.SelectedAccount();
  for (const auto& account : desk_.accounts()) {
    rows.push_back({account, account->GetBalance(), account->IsLocked(), account == selected});
  }

  const auto& preferences = desk_.preferences();
  const bool by_balance = preferences.GetAccountListSortKey() == kBalanceColumn;
  const bool is_descending = preferences.GetAccountListSortDescending();
  const auto comes_before = [by_balance](const AccountRow& a, const AccountRow& b) {
    return by_balance ? a.balance < b.balance : a.account->NameIsGreaterThan(*b.account) < 0;
  };
  std::stable_sort(rows.begin(), rows.end(), [&](const AccountRow& a, const AccountRow& b) {
    return is_descending ? comes_before(b, a) : comes_before(a, b);
  });
  return rows;
}

void AccountsDrawer::ClickedTableColumn(std::string_view column) {
  if (column != kNameColumn && column != kBalanceColumn) return;
  auto& preferences = desk_.preferences();
  const bool was_sorted_by = preferences.GetAccountListSortKey() == column;
  preferences.SetAccountListSortDescending(was_sorted_by &&
                                           !preferences.GetAccountListSortDescending());
  preferences.SetAccountListSortKey(column);
  refresh_.AccountsList_Redraw();
}

void AccountsDrawer::Table_Action(std::size_t row) {
  const auto rows = Rows();
  if (row < rows.size()) selection_.Account_Select(rows[row].account);
}

void AccountsDrawer::Table_DoubleClick(std::size_t row) {
  const auto rows = Rows();
  if (row >= rows.size()) return;
  if (!rows[row].is_selected) selection_.Account_Select(rows[row].account);
  if (desk_.SelectedAccount() == rows[row].account) editing_.Account_Edit();
}

}  // namespace tallyfold
