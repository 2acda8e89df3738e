#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/date_number.h"
#include "model/running_balances.h"
#include "registers/register_order.h"
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
  // None while the rows stand as they were given.
  [[nodiscard]] const std::optional<RegisterOrder>& Order() const noexcept { return order_; }

  [[nodiscard]] TableCell CellOf(std::size_t row, std::string_view column,
                                 const TableFormat& format) const;
  [[nodiscard]] RowLook LookOf(std::size_t row, const LDGRPreferences& preferences,
                               DateNumber today) const;
  // LDGRAccount::GetRunningBalanceAtEntry() of the row's entry, whatever the order.
  [[nodiscard]] double RunningBalanceOf(std::size_t row) const;
  // The sum of the amounts.
  [[nodiscard]] double Total() const { return UpToDateFigures().total; }
  // The figures are computed when they are asked for; in the order of the account that is fastest.
  void PrepareFigures() const { static_cast<void>(UpToDateFigures()); }

 private:
  // By row, as the account was at that revision.
  struct Figures {
    bool are_known = false;
    std::uint64_t revision = 0;
    std::vector<double> balances;
    double total = 0.0;
  };
  // Of the whole account; stays while other rows are shown of it.
  struct AccountBalances {
    std::uint64_t revision;
    RunningBalanceTable table;
  };

  [[nodiscard]] const Figures& UpToDateFigures() const;
  [[nodiscard]] std::vector<double> BalancesOfRows() const;

  std::shared_ptr<LDGRAccount> account_;
  EntryList entries_;
  std::optional<RegisterOrder> order_;
  mutable Figures figures_;
  mutable std::shared_ptr<const AccountBalances> account_balances_;
};

}  // namespace tallyfold
