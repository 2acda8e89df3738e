#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plist/value.h"

namespace tallyfold {

// A column of a table as it is shown now.
struct LiveColumn {
  std::string identifier;
  double width = 0.0;  // in points
};

// What is kept of the columns of a table, which are in display order.
[[nodiscard]] plist::Array ColumnRecords(const std::vector<LiveColumn>& columns);

// How the three tables of one account ("entry", "reconcile", "schedule") and the review of an
// import ("import") were last shown, and what was chosen for the tables imported into it: each of
// those has a table of its own, whose identifier begins with "import " and whose columns are the
// choices, dictionaries with "identifier" and "value". One dictionary holds everything and is the
// stored form as well.
//
// Every look-up of a table by an identifier makes the table when there is none, but for
// ExistingTable(); only a none identifier finds nothing. Table and column dictionaries are handed
// out as shared handles: changing one changes the record.
class LDGRAccountPreferences {
 public:
  // No tables, account number -1.
  LDGRAccountPreferences();
  // Takes what it knows; missing keys are logged and keep their defaults. Table dictionaries
  // without an identifier are skipped.
  explicit LDGRAccountPreferences(const std::optional<plist::Dictionary>& dictionary);
  LDGRAccountPreferences(const LDGRAccountPreferences&) = delete;
  LDGRAccountPreferences& operator=(const LDGRAccountPreferences&) = delete;

  // A dictionary of its own; the tables inside stay shared.
  [[nodiscard]] plist::Dictionary asDictionary() const { return dictionary_.ShallowCopy(); }

  // A none object removes the key.
  void setObject(plist::Value object, std::string_view key);
  // None for an unknown key.
  [[nodiscard]] plist::Value objectForKey(std::string_view key) const;

  [[nodiscard]] std::int32_t GetAccountNumber() const;
  void SetAccountNumber(std::int32_t number);

  // None for no identifier; otherwise always a table.
  std::optional<plist::Dictionary> TableWithIdentifier(std::optional<std::string_view> identifier);
  // None where there is no such table.
  [[nodiscard]] std::optional<plist::Dictionary> ExistingTable(std::string_view identifier) const;
  // Appends a table with no columns, no sort column and no selected row, also beside one of the
  // same identifier.
  plist::Dictionary NewTableWithIdentifier(std::string_view identifier);

  using TableIdentifier = std::optional<std::string_view>;
  using Columns = std::optional<plist::Array>;

  // "", -1, none, none and false where there is no such table or value.
  [[nodiscard]] std::string GetSelectedColumnIdentifierForTableIdentifier(TableIdentifier table);
  [[nodiscard]] std::int32_t GetSelectedRowForTableIdentifier(TableIdentifier table);
  [[nodiscard]] Columns GetColumnsForTableIdentifier(TableIdentifier table);
  [[nodiscard]] Columns GetHiddenColumnsForTableIdentifier(TableIdentifier table);
  [[nodiscard]] bool GetSortDescendingForTableIdentifier(TableIdentifier table);
  // The first column of that identifier; none when either identifier is none or nothing matches.
  [[nodiscard]] std::optional<plist::Dictionary> GetColumnWithIdentifier(
      std::optional<std::string_view> column, TableIdentifier table);

  void SetSortDescending(bool descending, TableIdentifier table);
  // Ignored when either is none.
  void SetSelectedColumnIdentifier(std::optional<std::string_view> column, TableIdentifier table);
  // A negative row is ignored: a stored row is never taken back this way.
  void SetSelectedRow(std::int32_t row, TableIdentifier table);
  // Both keep a copy of the array; a none array is ignored.
  void SetColumns(const Columns& columns, TableIdentifier table);
  void SetHiddenColumns(const Columns& columns, TableIdentifier table);
  // Stores all three as they stand, a negative row included.
  void SetSelectedColumn(std::string_view column, bool descending, std::int32_t row,
                         TableIdentifier table);
  // Goes through the four single setters and their rules.
  void SetSelectedColumn(std::optional<std::string_view> column, bool descending, std::int32_t row,
                         const Columns& columns, TableIdentifier table);

 private:
  // `table` gives the table that takes the stored values.
  static void ReadTable(const plist::Dictionary& stored,
                        const std::function<plist::Dictionary()>& table);
  [[nodiscard]] plist::Value ValueInTable(std::string_view key, TableIdentifier table);
  [[nodiscard]] Columns ArrayInTable(std::string_view key, TableIdentifier table);
  void SetInTable(std::string_view key, plist::Value value, TableIdentifier table);

  plist::Dictionary dictionary_;
};

}  // namespace tallyfold
