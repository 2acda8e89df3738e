#include "storage/account_preferences.h"

#include <unordered_map>
#include <utility>

#include "platform/ambient.h"

namespace tallyfold {

namespace {

constexpr std::string_view kAccountNumber = "accountNumber";
constexpr std::string_view kTables = "tables";
constexpr std::string_view kIdentifier = "identifier";
constexpr std::string_view kSortDescending = "sortDescending";
constexpr std::string_view kSelectedColumn = "selectedColumn";
constexpr std::string_view kSelectedRow = "selectedRow";
constexpr std::string_view kColumns = "columns";
constexpr std::string_view kHiddenColumns = "hiddenColumns";

std::optional<plist::Dictionary> FirstWithIdentifier(const plist::Array& dictionaries,
                                                     std::string_view identifier) {
  for (const plist::Value& element : dictionaries) {
    if (!element.IsDictionary()) continue;
    plist::Dictionary dictionary = element.DictionaryValue();
    const plist::Value& own = dictionary.Get(kIdentifier);
    if (own.IsString() && own.StringValue() == identifier) return dictionary;
  }
  return std::nullopt;
}

std::optional<plist::Array> ArrayOf(const plist::Value& value) {
  if (!value.IsArray()) return std::nullopt;
  return value.ArrayValue();
}

std::optional<std::string_view> TextOf(const plist::Value& value) {
  if (!value.IsString()) return std::nullopt;
  return value.StringValue();
}

}  // namespace

LDGRAccountPreferences::LDGRAccountPreferences() {
  dictionary_.Set(kTables, plist::Array());
  dictionary_.Set(kAccountNumber, -1);
}

LDGRAccountPreferences::LDGRAccountPreferences(const std::optional<plist::Dictionary>& dictionary)
    : LDGRAccountPreferences() {
  if (!dictionary) return;
  if (const plist::Value& number = dictionary->Get(kAccountNumber); number.IsNone()) {
    Log("No accountNumber defined for account preferences");
  } else {
    SetAccountNumber(number.IntegerValue());
  }
  // Spares a search for each table among all those before it.
  std::unordered_map<std::string, plist::Dictionary> tables;
  for (const plist::Value& element : dictionary->Get(kTables).ArrayValue()) {
    const plist::Dictionary stored = element.DictionaryValue();
    const auto identifier = TextOf(stored.Get(kIdentifier));
    if (!identifier) continue;
    // A table is made for the first value there is to keep.
    ReadTable(stored, [this, &tables, identifier] {
      const auto found = tables.find(std::string(*identifier));
      if (found != tables.end()) return found->second;
      return tables.emplace(*identifier, NewTableWithIdentifier(*identifier)).first->second;
    });
  }
}

void LDGRAccountPreferences::ReadTable(const plist::Dictionary& stored,
                                       const std::function<plist::Dictionary()>& table) {
  const plist::Value& columns = stored.Get(kColumns);
  if (columns.IsNone()) Log("No columns defined for account preferences");
  if (columns.IsArray()) table().Set(kColumns, columns.ArrayValue().ShallowCopy());

  const plist::Value& hidden = stored.Get(kHiddenColumns);
  if (hidden.IsArray()) table().Set(kHiddenColumns, hidden.ArrayValue().ShallowCopy());

  const plist::Value& row = stored.Get(kSelectedRow);
  if (row.IsNone()) {
    Log("No selectedRow defined for account preferences");
  } else if (row.IntegerValue() >= 0) {
    table().Set(kSelectedRow, row.IntegerValue());
  }

  const plist::Value& column = stored.Get(kSelectedColumn);
  if (column.IsNone()) Log("No selectedColumn defined for account preferences");
  if (column.IsString()) table().Set(kSelectedColumn, column.StringValue());

  const plist::Value& descending = stored.Get(kSortDescending);
  if (descending.IsNone()) {
    Log("No sortDescending defined for account preferences");
  } else {
    table().Set(kSortDescending, descending.BooleanValue());
  }
}

void LDGRAccountPreferences::setObject(plist::Value object, std::string_view key) {
  dictionary_.Set(key, std::move(object));
}

plist::Value LDGRAccountPreferences::objectForKey(std::string_view key) const {
  return dictionary_.Get(key);
}

std::int32_t LDGRAccountPreferences::GetAccountNumber() const {
  return dictionary_.Get(kAccountNumber).IntegerValue();
}

void LDGRAccountPreferences::SetAccountNumber(std::int32_t number) {
  dictionary_.Set(kAccountNumber, number);
}

std::optional<plist::Dictionary> LDGRAccountPreferences::TableWithIdentifier(
    std::optional<std::string_view> identifier) {
  if (!identifier) return std::nullopt;
  if (auto table = FirstWithIdentifier(dictionary_.Get(kTables).ArrayValue(), *identifier)) {
    return table;
  }
  return NewTableWithIdentifier(*identifier);
}

plist::Dictionary LDGRAccountPreferences::NewTableWithIdentifier(std::string_view identifier) {
  plist::Dictionary table;
  table.Set(kIdentifier, identifier);
  table.Set(kSortDescending, false);
  table.Set(kSelectedColumn, "");
  table.Set(kSelectedRow, -1);
  table.Set(kColumns, plist::Array());
  if (!dictionary_.Get(kTables).IsArray()) dictionary_.Set(kTables, plist::Array());
  dictionary_.Get(kTables).ArrayValue().Append(table);
  return table;
}

plist::Value LDGRAccountPreferences::ValueInTable(std::string_view key, TableIdentifier table) {
  const auto found = TableWithIdentifier(table);
  return found ? found->Get(key) : plist::Value();
}

LDGRAccountPreferences::Columns LDGRAccountPreferences::ArrayInTable(std::string_view key,
                                                                     TableIdentifier table) {
  return ArrayOf(ValueInTable(key, table));
}

void LDGRAccountPreferences::SetInTable(std::string_view key, plist::Value value,
                                        TableIdentifier table) {
  if (auto found = TableWithIdentifier(table)) found->Set(key, std::move(value));
}

std::string LDGRAccountPreferences::GetSelectedColumnIdentifierForTableIdentifier(
    TableIdentifier table) {
  return std::string(ValueInTable(kSelectedColumn, table).StringValue());
}

std::int32_t LDGRAccountPreferences::GetSelectedRowForTableIdentifier(TableIdentifier table) {
  return table ? ValueInTable(kSelectedRow, table).IntegerValue() : -1;
}

LDGRAccountPreferences::Columns LDGRAccountPreferences::GetColumnsForTableIdentifier(
    TableIdentifier table) {
  return ArrayInTable(kColumns, table);
}

LDGRAccountPreferences::Columns LDGRAccountPreferences::GetHiddenColumnsForTableIdentifier(
    TableIdentifier table) {
  return ArrayInTable(kHiddenColumns, table);
}

bool LDGRAccountPreferences::GetSortDescendingForTableIdentifier(TableIdentifier table) {
  return ValueInTable(kSortDescending, table).BooleanValue();
}

std::optional<plist::Dictionary> LDGRAccountPreferences::GetColumnWithIdentifier(
    std::optional<std::string_view> column, TableIdentifier table) {
  if (!column) return std::nullopt;
  const Columns columns = GetColumnsForTableIdentifier(table);
  return columns ? FirstWithIdentifier(*columns, *column) : std::nullopt;
}

void LDGRAccountPreferences::SetSortDescending(bool descending, TableIdentifier table) {
  SetInTable(kSortDescending, descending, table);
}

void LDGRAccountPreferences::SetSelectedColumnIdentifier(std::optional<std::string_view> column,
                                                         TableIdentifier table) {
  if (column) SetInTable(kSelectedColumn, *column, table);
}

void LDGRAccountPreferences::SetSelectedRow(std::int32_t row, TableIdentifier table) {
  if (row >= 0) SetInTable(kSelectedRow, row, table);
}

void LDGRAccountPreferences::SetColumns(const Columns& columns, TableIdentifier table) {
  if (columns) SetInTable(kColumns, columns->ShallowCopy(), table);
}

void LDGRAccountPreferences::SetHiddenColumns(const Columns& columns, TableIdentifier table) {
  if (columns) SetInTable(kHiddenColumns, columns->ShallowCopy(), table);
}

void LDGRAccountPreferences::SetSelectedColumn(std::string_view column, bool descending,
                                               std::int32_t row, TableIdentifier table) {
  SetInTable(kSelectedColumn, column, table);
  SetInTable(kSortDescending, descending, table);
  SetInTable(kSelectedRow, row, table);
}

void LDGRAccountPreferences::SetSelectedColumn(std::optional<std::string_view> column,
                                               bool descending, std::int32_t row,
                                               const Columns& columns, TableIdentifier table) {
  SetSortDescending(descending, table);
  SetSelectedColumnIdentifier(column, table);
  SetSelectedRow(row, table);
  SetColumns(columns, table);
}

}  // namespace tallyfold
