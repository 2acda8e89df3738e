#include "console/register_listing.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/registers.h"
#include "console/command_error.h"
#include "console/lookup.h"
#include "console/register_order.h"
#include "console/values.h"
#include "model/account.h"
#include "registers/account_table_view_data.h"

namespace tallyfold::console {
namespace {

constexpr std::array kListingOptions = {
    Option{.name = "from", .value = "DATE", .help = "the first day that counts"},
    Option{.name = "to", .value = "DATE", .help = "the last day that counts"},
    Option{.name = "last", .value = "NUMBER", .help = "so many rows at the end, and no others"},
    Option{.name = "all-accounts",
           .value = "yes|no",
           .help = "whatever is in the accounts that are not locked (no)"},
    Option{.name = "sort", .value = "COLUMN", .help = kRegisterColumns},
    Option{.name = "descending", .value = "yes|no", .help = "the other way round"},
};

// The days that count.
struct Days {
  std::optional<DateNumber> first;
  std::optional<DateNumber> last;

  [[nodiscard]] bool Contain(DateNumber day) const {
    return (!first || day >= *first) && (!last || day <= *last);
  }
};

Days ReadDays(const Arguments& arguments) {
  const Days days{arguments.Date("from"), arguments.Date("to")};
  if (days.first && days.last && *days.first > *days.last) {
    throw CommandError("from: " + WriteDate(*days.first) + " is after " + WriteDate(*days.last));
  }
  return days;
}

// What was asked for, else the order there is.
RegisterOrder ReadOrder(const Arguments& arguments, RegisterOrder order) {
  if (const auto column = arguments.Text("sort")) order = {ReadSortKey(*column), false};
  if (const auto descending = arguments.YesNo("descending")) order.descending = *descending;
  return order;
}

std::string ColumnOf(RegisterSortKey key) {
  for (const TableColumn& column : DefaultRegisterColumns()) {
    if (SortKeyOfColumn(column.identifier) == key) return column.identifier;
  }
  return "";
}

void SortRows(std::vector<ListedEntry>& rows, const RegisterOrder& order) {
  EntryList entries;
  entries.reserve(rows.size());
  for (const ListedEntry& row : rows) entries.push_back(row.entry);
  std::vector<ListedEntry> sorted;
  sorted.reserve(rows.size());
  for (const auto index : OrderOfEntries(entries, order)) sorted.push_back(std::move(rows[index]));
  rows = std::move(sorted);
}

void ListSelected(Console& console, const Arguments& arguments, const Days& days,
                  RegisterListing& listing) {
  const auto account = SelectedAccount(console);
  auto& shown = console.controller.registers().currentTableDataSource();
  const RegisterOrder former = OrderInWindow(console, *account);
  const RegisterOrder order = ReadOrder(arguments, former);
  if (order.key && order != former) shown.OrderBy(ColumnOf(*order.key), order.descending);
  for (const auto& entry : shown.GetEntries()) {
    if (days.Contain(entry->GetDate())) listing.rows.push_back({account, entry});
  }
  // The window has no column of numbers.
  if (!order.key) SortRows(listing.rows, order);
  listing.is_part = listing.rows.size() != account->GetEntries().size();
}

void ListAll(const Console& console, const Arguments& arguments, const Days& days,
             RegisterListing& listing) {
  const auto selected = console.controller.desk().SelectedAccount();
  RegisterOrder window = selected != nullptr ? OrderInWindow(console, *selected) : RegisterOrder();
  // Types are an account's own.
  if (window.key == RegisterSortKey::Type) window = RegisterOrder();
  const RegisterOrder order = ReadOrder(arguments, window);
  if (order.key == RegisterSortKey::Type) {
    throw CommandError("sort: each account has types of its own; sort by another column");
  }
  listing.is_of_all_accounts = true;
  for (const auto& account : console.controller.desk().accounts()) {
    if (account->IsLocked()) {
      ++listing.locked;
      continue;
    }
    for (const auto& entry : account->GetEntries()) {
      if (days.Contain(entry->GetDate())) {
        listing.rows.push_back({account, entry});
      } else {
        listing.is_part = true;
      }
    }
  }
  SortRows(listing.rows, order);
}

}  // namespace

std::span<const Option> ListingOptions() {
  return kListingOptions;
}

RegisterListing ListRegister(Console& console, const Arguments& arguments) {
  const Days days = ReadDays(arguments);
  const auto last = arguments.Number("last", 1, std::numeric_limits<std::int32_t>::max());
  RegisterListing listing;
  if (arguments.YesNo("all-accounts").value_or(false)) {
    ListAll(console, arguments, days, listing);
  } else {
    ListSelected(console, arguments, days, listing);
  }
  if (last && listing.rows.size() > static_cast<std::size_t>(*last)) {
    listing.rows.erase(listing.rows.begin(), listing.rows.end() - *last);
    listing.is_part = true;
  }
  return listing;
}

}  // namespace tallyfold::console
