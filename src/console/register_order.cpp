#include "console/register_order.h"

#include <algorithm>
#include <string>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/registers.h"
#include "console/command_error.h"
#include "console/words.h"
#include "model/account.h"
#include "registers/account_table_view_data.h"
#include "registers/register_rows.h"
#include "storage/account_preferences.h"
#include "storage/preferences.h"

namespace tallyfold::console {

std::optional<RegisterSortKey> ReadSortKey(std::string_view word) {
  if (word == "number") return std::nullopt;
  if (const auto key = SortKeyOfColumn(ColumnIdentifier(word))) return key;
  throw CommandError("sort: expected one of " + std::string(kRegisterColumns) + ", not " +
                     Quoted(word));
}

std::string_view ColumnIdentifier(std::string_view word) noexcept {
  return word == "to/from" ? "toFrom" : word;
}

RegisterOrder OrderInWindow(const Console& console, const LDGRAccount& account) {
  const auto& shown = console.controller.registers().currentTableDataSource();
  if (shown.GetAccount().get() == &account) return shown.Rows().Order().value_or(RegisterOrder());
  const auto& views = console.controller.desk().preferences().GetAccountPreferences();
  const auto view = std::ranges::find_if(views, [&account](const auto& each) {
    return each->GetAccountNumber() == account.GetNumber();
  });
  RegisterOrder order;
  if (view == views.end()) return order;
  const std::string& table = shown.GetTableIdentifier();
  const auto key = SortKeyOfColumn((*view)->GetSelectedColumnIdentifierForTableIdentifier(table));
  if (key) order.key = key;
  order.descending = (*view)->GetSortDescendingForTableIdentifier(table);
  return order;
}

EntryList RowsInWindow(const Console& console, const LDGRAccount& account) {
  RegisterRows rows;
  rows.SetEntries(account.GetEntries());
  rows.Sort(OrderInWindow(console, account));
  return rows.Entries();
}

}  // namespace tallyfold::console
