#include "app/accounts/accounts_drawer.h"

#include <algorithm>
#include <utility>

#include "platform/ambient.h"
#include "registers/register_look.h"
#include "registers/rows_change.h"

namespace tallyfold {
namespace {

// Under which the preferences remember the order.
constexpr std::string_view kName = "accounts";
constexpr std::string_view kBalance = "balance";

}  // namespace

std::vector<TableColumn> AccountColumns() {
  return {{std::string(kName), 130, "Accounts"},
          {std::string(kBalance), 90, "Balance", TableColumn::Content::Amount}};
}

TableCell CellOfAccount(const LDGRAccount& account, std::string_view column,
                        const LDGRPreferences& preferences) {
  if (column == kName) return {.text = account.GetName()};
  if (column != kBalance) return {};
  if (!account.IsLocked()) return AmountCell(account.GetBalance(), {"", preferences});
  return {.text = LocalizedText("Locked"), .alignment = TableCell::Alignment::Right};
}

AccountsDrawer::AccountsDrawer(Desk& desk, AccountSelection& selection,
                               const AccountPasswords& passwords, AccountEditing& editing,
                               Refresh& refresh, Announcer& announcer)
    : desk_(desk),
      selection_(selection),
      passwords_(passwords),
      editing_(editing),
      refresh_(refresh),
      announcer_(announcer),
      table_(AccountColumns()) {
  table_.SetDataSource(this);
}

AccountsDrawer::~AccountsDrawer() {
  table_.SetDataSource(nullptr);
}

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

void AccountsDrawer::Reload() {
  AccountList sorted = SortedAccounts();
  const RowsChange change = ChangeOfRows(rows_, sorted);
  rows_ = std::move(sorted);
  const auto& preferences = desk_.preferences();
  table_.SetIndicator(preferences.GetAccountListSortKey() == kBalance ? kBalance : kName,
                      preferences.GetAccountListSortDescending());
  const auto& shown =
      passwords_.State().is_open ? passwords_.authenticatingAccount() : desk_.SelectedAccount();
  table_.TakeRows(change, RowOfRecord(rows_, shown.get()).value_or(TableState::kNoRow));
}

AccountList AccountsDrawer::SortedAccounts() const {
  if (!desk_.IsUnlocked()) return {};
  AccountList accounts = desk_.accounts();
  const auto& preferences = desk_.preferences();
  const bool by_balance = preferences.GetAccountListSortKey() == kBalance;
  const bool is_descending = preferences.GetAccountListSortDescending();
  const auto comes_before = [by_balance](const auto& a, const auto& b) {
    return by_balance ? a->GetBalance() < b->GetBalance() : a->NameIsGreaterThan(*b) < 0;
  };
  std::stable_sort(accounts.begin(), accounts.end(), [&](const auto& a, const auto& b) {
    return is_descending ? comes_before(b, a) : comes_before(a, b);
  });
  return accounts;
}

void AccountsDrawer::ClickedTableColumn(std::string_view column) {
  if (column != kName && column != kBalance) return;
  auto& preferences = desk_.preferences();
  const bool was_sorted_by = preferences.GetAccountListSortKey() == column;
  preferences.SetAccountListSortDescending(was_sorted_by &&
                                           !preferences.GetAccountListSortDescending());
  preferences.SetAccountListSortKey(column);
  refresh_.AccountsList_Redraw();
}

void AccountsDrawer::accountsDrawer_Accounts_Table_Action(std::size_t row) {
  if (row < rows_.size()) selection_.Account_Select(rows_[row]);
}

void AccountsDrawer::accountsDrawer_Accounts_Table_DoubleClick(std::size_t row) {
  if (row >= rows_.size()) return;
  // Selecting reloads the rows.
  const auto account = rows_[row];
  if (desk_.SelectedAccount() != account) selection_.Account_Select(account);
  if (desk_.SelectedAccount() == account) editing_.Account_Edit();
}

TableCell AccountsDrawer::tableView(std::string_view column, std::size_t row) const {
  if (row >= rows_.size()) return {};
  return CellOfAccount(*rows_[row], column, desk_.preferences());
}

}  // namespace tallyfold
