#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "registers/table_state.h"
#include "storage/account_preferences.h"

namespace tallyfold {

// How an account's view preferences lay out a table, and how the user's changes get into them. The
// table and the preferences may be missing; then what depends on them is not done.
class TableLayout {
 public:
  // The table must outlive its stay here.
  void SetTable(TableState* table) noexcept { table_ = table; }
  [[nodiscard]] TableState* Table() const noexcept { return table_; }
  // Where the table's layout stands in the preferences. A missing value is ignored.
  void SetIdentifier(std::optional<std::string_view> identifier);
  [[nodiscard]] const std::string& Identifier() const noexcept { return table_identifier_; }
  void SetPreferences(std::shared_ptr<LDGRAccountPreferences> preferences) noexcept;
  [[nodiscard]] const std::shared_ptr<LDGRAccountPreferences>& Preferences() const noexcept {
    return preferences_;
  }

  // Gives the table the stored widths, order and hidden columns. False when there is nothing to
  // lay out.
  bool Apply();
  // The stored selected row, 0 when none is stored.
  [[nodiscard]] std::int32_t StoredRow() const;
  void StoreRow(std::int32_t row);

  // The stored sort column; "" for none.
  [[nodiscard]] std::string SortColumn() const;
  [[nodiscard]] bool SortsDescending() const;
  // Turns the stored order over, by that column. False without preferences.
  bool TurnOrderOver(std::string_view column) { return StoreOrder(column, !SortsDescending()); }
  // False without preferences.
  bool StoreOrder(std::string_view column, bool descending);
  // Highlights the sort column, which is stored.
  void ShowSortColumn(const std::string& column);

  // A hidden column keeps its width and place in the preferences. False, and nothing changes, for
  // the last column and for one that is not there.
  bool HideColumn(std::string_view identifier);
  bool ShowColumn(std::string_view identifier);

  // Gives the table the stored widths and order alone.
  void PlaceStoredColumns() const;

 private:
  void HideStoredColumns() const;

  TableState* table_ = nullptr;
  std::string table_identifier_;
  std::shared_ptr<LDGRAccountPreferences> preferences_;
};

}  // namespace tallyfold
