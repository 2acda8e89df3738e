#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/date_number.h"
#include "model/entry_log.h"
#include "registers/register_order.h"
#include "registers/rows_change.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

// The columns of a register as it is first shown: "date", "check", "type", "description", "toFrom",
// "cleared", "amount", "balance". The last one shows the running balance and does not sort.
[[nodiscard]] std::vector<TableColumn> DefaultRegisterColumns();

// What an entry shows in the columns of a register that need nothing but the entry: all but "type"
// and "balance". Nothing for any other column.
[[nodiscard]] TableCell CellOfEntry(const LDGRAccountEntry& entry, std::string_view column,
                                    const TableFormat& format);

// The rows of a register, wherever they are shown, printed or listed: entries of an account in an
// order, the running balance at each, and what their cells show. A copy keeps the rows as they are.
// Rows asked for exist.
class RegisterRows {
 public:
  // The rows stay; null for none.
  void SetAccount(std::shared_ptr<LDGRAccount> account);
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& Account() const noexcept { return account_; }
  // Entries of the account, which become the rows as they stand. The former rows come back.
  EntryList SetEntries(EntryList entries);
  [[nodiscard]] const EntryList& Entries() const noexcept { return entries_; }
  // Sorts the rows: for each the one that its entry had before.
  std::vector<std::uint32_t> Sort(const RegisterOrder& order);
  // Whether an entry that is or is not a row is to be one.
  using IsWanted = std::function<bool(const std::shared_ptr<LDGRAccountEntry>&, bool is_row)>;
  // Puts the touched entries where sorting all rows again would put them; of those the account has
  // no more, none stays. What became of the rows; none, and the rows are as they were, where that
  // takes more than a look at these entries.
  std::optional<RowsChange> TakeUp(std::span<const EntryTouch> touches, const IsWanted& is_wanted);
  // None while the rows stand as they were given.
  [[nodiscard]] const std::optional<RegisterOrder>& Order() const noexcept { return order_; }

  [[nodiscard]] TableCell CellOf(std::size_t row, std::string_view column,
                                 const TableFormat& format) const;
  [[nodiscard]] RowLook LookOf(std::size_t row, const LDGRPreferences& preferences,
                               DateNumber today) const;
  // LDGRAccount::GetRunningBalanceAtEntry() of the row's entry, whatever the order.
  [[nodiscard]] double RunningBalanceOf(std::size_t row) const;
  // The sum of the amounts.
  [[nodiscard]] double Total() const;

 private:
  // As the account was at that revision.
  struct KnownTotal {
    std::uint64_t revision;
    double total;
  };

  // All of them, as they may show something else.
  [[nodiscard]] RowsChange ChangedRows() const noexcept;
  std::optional<RowsChange> TakeUpOne(const EntryTouch& touch, const IsWanted& is_wanted);
  // The first row that does not come before the entry; none when it is level with it.
  [[nodiscard]] std::optional<std::size_t> PlaceFor(const LDGRAccountEntry& entry,
                                                    std::size_t first, std::size_t end) const;

  std::shared_ptr<LDGRAccount> account_;
  EntryList entries_;
  std::optional<RegisterOrder> order_;
  mutable std::optional<KnownTotal> total_;
};

}  // namespace tallyfold
