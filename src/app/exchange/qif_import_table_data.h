#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/qif_import_entry.h"
#include "registers/rows_change.h"
#include "registers/table_data_source.h"
#include "registers/table_layout.h"
#include "registers/table_state.h"
#include "storage/account_preferences.h"

namespace tallyfold {

// What becomes of an entry under review beside those that the account has, in the order of the
// column that shows it.
enum class ReviewStanding : std::uint8_t {
  New,        // nothing like it is known
  LeftOut,    // its file gave a reason not to mark it
  MayRepeat,  // an entry of the account comes near it
  Repeats,    // the account seems to hold it already
  Matched,    // an entry of the account is taken for it
};

// The columns of the review table: "import", "date", "check", "type", "description", "toFrom",
// "cleared", "amount", and "match", which stays empty: what an entry repeats is told by
// LDGRQIFImportController::MatchOf() and StandingOf().
[[nodiscard]] std::vector<TableColumn> ReviewColumns();

// The day of an entry of a file: empty for one that has none or none that can be read, of which a
// calendar would make some day all the same.
[[nodiscard]] TableCell DayCellOfFile(DateNumber day, const TableFormat& format);

// What an entry under review shows in a column; nothing for an unknown one.
[[nodiscard]] TableCell CellOfReviewed(const LDGRQIFImportEntry& entry, std::string_view column,
                                       const TableFormat& format);

// The rows of the review table: the entries of an import in the order of the column that was
// clicked last, at first in that of the file. The entry stays selected, not the row.
class LDGRQIFImportTableViewDataSource final : public TableDataSource {
 public:
  using Standings = std::function<ReviewStanding(const LDGRQIFImportEntry& entry)>;

  // The host must outlive this. Entries are sorted by what `standings` says of them.
  LDGRQIFImportTableViewDataSource(const TableHost& host, Standings standings);
  LDGRQIFImportTableViewDataSource(const LDGRQIFImportTableViewDataSource&) = delete;
  LDGRQIFImportTableViewDataSource& operator=(const LDGRQIFImportTableViewDataSource&) = delete;
  ~LDGRQIFImportTableViewDataSource() override;

  [[nodiscard]] TableState& Table() noexcept { return table_; }
  [[nodiscard]] const TableState& Table() const noexcept { return table_; }
  // Of the account that entries are imported into; null for none. The table leaves out the columns
  // that the account's register hides; the first one always shows. Order and widths are those that
  // StoreColumns() kept.
  void SetAccountPreferences(const std::shared_ptr<LDGRAccountPreferences>& preferences);
  // Keeps the order and the widths of the columns for the account's next review.
  void StoreColumns() const;
  // In calendar-date conversion letters.
  void SetDateFormat(std::string_view format) { date_format_ = format; }

  // Takes the entries as they stand: the first is selected and nothing sorted.
  void SetEntries(QifImportEntryList entries);
  [[nodiscard]] const QifImportEntryList& GetEntries() const noexcept { return entries_; }
  void AddEntry(std::shared_ptr<LDGRQIFImportEntry> entry);
  // Then the entry that takes the place of the selected one is selected, if that was among them.
  void RemoveEntries(const QifImportEntryList& removed);
  void Redraw() { table_.ReloadData(); }

  // Null when nothing is selected.
  [[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> GetSelectedEntry() const {
    return RowToEntry(table_.SelectedRow());
  }
  // Null for a row that does not exist.
  [[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> RowToEntry(std::int32_t row) const {
    return RecordOfRow(entries_, row);
  }
  // None when the entry is not shown.
  [[nodiscard]] std::optional<std::int32_t> EntryToRow(const LDGRQIFImportEntry* entry) const {
    return RowOfRecord(entries_, entry);
  }
  // A row that does not exist selects none.
  void SelectRow(std::int32_t row);

  // The header of a column was clicked: sorts by it, and turns the order over at a second click.
  void ClickedTableColumn(std::string_view identifier);
  // An unknown column changes nothing.
  void SortByColumnIdentifier(std::string_view identifier, bool descending);
  // An entry was edited: it moves to where it belongs now.
  void SortAgain() { SortByColumnIdentifier(sort_column_, sorts_descending_); }

  [[nodiscard]] std::size_t numberOfRowsInTableView() const override { return entries_.size(); }
  // Nothing for a row that does not exist.
  [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;
  [[nodiscard]] RowLook LookOfRow(std::size_t row) const override;
  [[nodiscard]] std::string SpeakableRow(std::size_t row) const override;

 private:
  // Tells what became of the rows; the entry is selected, or none for null.
  void Take(QifImportEntryList entries, const LDGRQIFImportEntry* selected);
  void ShowSortColumn();
  // In the rising order of a column; false for an unknown one.
  bool Sort(QifImportEntryList& entries, std::string_view column, bool descending) const;

  const TableHost& host_;
  Standings standings_;
  TableState table_;
  TableLayout layout_;
  QifImportEntryList entries_;
  std::string date_format_;
  std::string sort_column_;
  bool sorts_descending_ = false;
};

}  // namespace tallyfold
