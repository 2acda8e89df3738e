#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "filters/filter.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "registers/register_order.h"
#include "registers/register_rows.h"
#include "registers/rows_change.h"
#include "registers/table_data_source.h"
#include "registers/table_layout.h"
#include "registers/table_state.h"
#include "storage/account_preferences.h"

namespace tallyfold {

// The rows behind a register table: the entries of an account that pass the register's filter, in
// the order of the column the user clicked. Rows follow their entries: sorting and reloading keep
// the entry selected, not the row. Columns, order and selected row are kept with the account's view
// preferences.
//
// Everything it is given may be missing; then what depends on it is not done. Texts of cells are
// made when they are asked for.
class LDGRAccountTableViewData final : public TableDataSource {
 public:
  // The host must outlive this.
  explicit LDGRAccountTableViewData(const TableHost& host);
  LDGRAccountTableViewData(const LDGRAccountTableViewData&) = delete;
  LDGRAccountTableViewData& operator=(const LDGRAccountTableViewData&) = delete;
  ~LDGRAccountTableViewData() override;

  // Becomes the table's data source. The table must outlive its stay here; null for none.
  void SetTableView(TableState* table);
  [[nodiscard]] TableState* GetTableView() const noexcept { return layout_.Table(); }
  // "entry" or "reconcile": where the table's layout stands in the view preferences. A missing
  // value is ignored.
  void SetTableIdentifier(std::optional<std::string_view> identifier) {
    layout_.SetIdentifier(identifier);
  }
  [[nodiscard]] const std::string& GetTableIdentifier() const noexcept {
    return layout_.Identifier();
  }
  void SetAccountPreferences(std::shared_ptr<LDGRAccountPreferences> preferences) {
    layout_.SetPreferences(std::move(preferences));
  }
  [[nodiscard]] const std::shared_ptr<LDGRAccountPreferences>& GetAccountPreferences()
      const noexcept {
    return layout_.Preferences();
  }
  [[nodiscard]] const std::shared_ptr<LDGRAccountPreferences>& Preferences() const noexcept {
    return layout_.Preferences();
  }
  // Another account than before takes the rows away.
  void SetAccount(std::shared_ptr<LDGRAccount> account);
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& GetAccount() const noexcept {
    return rows_.Account();
  }
  // In calendar-date conversion letters; the user's short date format at first. A missing value is
  // ignored.
  void SetDateFormat(std::optional<std::string_view> format);

  // Entries of the account, which become the rows as they stand. The selected row stays as it is.
  void SetEntries(EntryList entries);
  [[nodiscard]] const EntryList& GetEntries() const noexcept { return rows_.Entries(); }
  // As they are, locked or not.
  [[nodiscard]] const RegisterRows& Rows() const noexcept { return rows_; }
  // Makes the entries the rows, in the order of the stored sort column, with the same entry
  // selected as before; none when it is not among them. The first rows after ReconfigureTable()
  // take its selected row. The table tells what became of its rows, and only then of the selection.
  void Reload(EntryList entries);

  // The same of those entries of the account that pass the filter. Where filter and order are those
  // of the last time, only entries that changed since are looked at.
  void ReloadFiltered(std::shared_ptr<const LDGRFilter> filter);
  // Saved entries are sorted in anew where they are shown, and added where the filter passes them;
  // no other row comes or goes.
  void TakeSaved(const EntryList& saved, const LDGRFilter& filter);

  // --- Selection --------------------------------------------------------------------------------
  // Null when no row is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetSelectedEntry() const;
  // Null for a row that does not exist.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> RowToEntry(std::int32_t row) const;
  // None when the entry is not shown.
  [[nodiscard]] std::optional<std::int32_t> EntryToRow(const LDGRAccountEntry* entry) const;
  // Selects, makes visible and stores the row; a row that does not exist selects none.
  void SelectRow(std::int32_t row);
  // Null, and an entry that is not shown, selects none.
  void SelectEntry(const LDGRAccountEntry* entry);
  void ScrollToEntry(const LDGRAccountEntry* entry);

  // --- Order ------------------------------------------------------------------------------------
  // The header of a column was clicked: turns the stored order over, by that column. A column that
  // does not sort does nothing.
  void ClickedTableColumn(std::string_view identifier);
  // Stores that order and sorts the rows by it as a reload does: level ones stand as the account
  // has them. False, and nothing changes, for a column that does not sort.
  bool OrderBy(std::string_view identifier, bool descending);
  // Sort the rows now, without storing. An unknown column or key leaves them as they are.
  void SortByColumnIdentifier(std::string_view identifier, bool descending);
  void SortBy(RegisterSortKey key, bool descending);
  // The column that a reload sorts the rows by: the stored one, else the first that sorts; "" for
  // none.
  [[nodiscard]] std::string SortColumn() const;
  [[nodiscard]] bool SortsDescending() const { return layout_.SortsDescending(); }

  // --- Layout -----------------------------------------------------------------------------------
  // Gives the table the stored widths, order, hidden columns and selected row.
  void ReconfigureTable();
  // Shows the sort column and reloads the table.
  void Redraw();
  // A hidden column keeps its width and place in the view preferences. The last column is not
  // hidden.
  void HideTableColumnWithIdentifier(std::string_view identifier);
  void ShowTableColumnWithIdentifier(std::string_view identifier);
  // The columns shown, in display order.
  [[nodiscard]] std::vector<TableColumn> VisibleTableColumns() const;

  // --- Rows -------------------------------------------------------------------------------------
  [[nodiscard]] std::size_t numberOfRowsInTableView() const override;
  // A row that does not exist is logged and shows nothing.
  [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;
  [[nodiscard]] RowLook LookOfRow(std::size_t row) const override;
  [[nodiscard]] std::string SpeakableRow(std::size_t row) const override;
  // LDGRAccount::GetRunningBalanceAtEntry() of the row's entry, whatever the order and the filter;
  // 0.0 for a row that does not exist.
  [[nodiscard]] double RunningBalanceOfRow(std::size_t row) const;
  // The sum of the amounts shown.
  [[nodiscard]] double TotalOfRows() const;

 private:
  // None for the order that the entries have.
  [[nodiscard]] std::optional<RegisterOrder> WantedOrder() const;
  // Tells what became of the rows, and selects one of them.
  void ShowRows(const RowsChange& change, const std::shared_ptr<LDGRAccountEntry>& selected);
  void ShowRows(const RowsChange& change, std::int32_t selected_row);
  [[nodiscard]] TableFormat Format() const { return {date_format_string_, host_.preferences()}; }

  const TableHost& host_;
  RegisterRows rows_;
  TableLayout layout_;
  std::string date_format_string_;
  // What the rows are filtered by, null where they were given; and where the changes of entries
  // stood when all rows were filtered, and when all were sorted.
  std::shared_ptr<const LDGRFilter> filter_;
  std::uint64_t filtered_mark_ = 0;
  std::uint64_t sorted_mark_ = 0;
  // To be selected as soon as there are rows.
  std::optional<std::int32_t> awaited_row_;
  // Whether the table has told of the rows as they are.
  bool are_rows_told_ = false;
};

}  // namespace tallyfold
