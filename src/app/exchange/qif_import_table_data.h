#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/face/announcer.h"
#include "app/face/front_end.h"
#include "exchange/qif_import_entry.h"
#include "registers/table_state.h"
#include "storage/account_preferences.h"

namespace tallyfold {

// The rows of the review table: the entries of an import in the order of the column that was
// clicked last, at first in that of the file. The entry stays selected, not the row.
class LDGRQIFImportTableViewDataSource final : public TableDataSource {
 public:
  // The front end hears of Area::ImportReview when rows are to be drawn anew.
  explicit LDGRQIFImportTableViewDataSource(Announcer& announcer) noexcept
      : announcer_(announcer) {}
  LDGRQIFImportTableViewDataSource(const LDGRQIFImportTableViewDataSource&) = delete;
  LDGRQIFImportTableViewDataSource& operator=(const LDGRQIFImportTableViewDataSource&) = delete;

  // "import", "date", "check", "type", "description", "toFrom", "cleared", "amount". A column that
  // the account's register hides is left out here too; the first one always shows.
  [[nodiscard]] std::vector<std::string> VisibleTableColumns() const;
  // The English key of a column's title; "" for an unknown identifier.
  [[nodiscard]] static std::string_view TitleOfColumn(std::string_view identifier) noexcept;
  // Of the account that entries are imported into; null for none.
  void SetAccountPreferences(std::shared_ptr<LDGRAccountPreferences> preferences) {
    preferences_ = std::move(preferences);
  }
  // In calendar-date conversion letters.
  void SetDateFormat(std::string_view format) { date_format_ = format; }

  // Takes the entries as they stand: nothing is selected and nothing sorted.
  void SetEntries(QifImportEntryList entries);
  [[nodiscard]] const QifImportEntryList& GetEntries() const noexcept { return entries_; }
  void AddEntry(std::shared_ptr<LDGRQIFImportEntry> entry);
  // Then the entry that takes its place is selected, if it was.
  void RemoveEntry(const LDGRQIFImportEntry* entry);
  void Redraw() { announcer_.Changed(Area::ImportReview); }

  // Null when nothing is selected.
  [[nodiscard]] const std::shared_ptr<LDGRQIFImportEntry>& GetSelectedEntry() const noexcept {
    return selected_;
  }
  // Null for a row that does not exist.
  [[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> RowToEntry(std::int32_t row) const;
  // None when the entry is not shown.
  [[nodiscard]] std::optional<std::int32_t> EntryToRow(const LDGRQIFImportEntry* entry) const;
  // A row that does not exist selects none.
  void SelectRow(std::int32_t row) { selected_ = RowToEntry(row); }

  // The header of a column was clicked: sorts by it, and turns the order over at a second click.
  void ClickedTableColumn(std::string_view identifier);
  // An unknown column changes nothing.
  void SortByColumnIdentifier(std::string_view identifier, bool descending);
  // An entry was edited: it moves to where it belongs now.
  void SortAgain() { SortByColumnIdentifier(sort_column_, sorts_descending_); }
  // "" while nothing is sorted.
  [[nodiscard]] const std::string& SortColumn() const noexcept { return sort_column_; }
  [[nodiscard]] bool SortsDescending() const noexcept { return sorts_descending_; }

  [[nodiscard]] std::size_t numberOfRowsInTableView() const override { return entries_.size(); }
  // Nothing for a row that does not exist.
  [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;

 private:
  Announcer& announcer_;
  QifImportEntryList entries_;
  std::shared_ptr<LDGRQIFImportEntry> selected_;
  std::shared_ptr<LDGRAccountPreferences> preferences_;
  std::string date_format_;
  std::string sort_column_;
  bool sorts_descending_ = false;
};

}  // namespace tallyfold
