#include "storage/account_preferences.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "model/stored_numbers.h"
#include "platform/ambient.h"
#include "plist/read_report.h"

namespace tallyfold {

namespace {

using plist::NotTaken;

constexpr std::string_view kAccountNumber = "accountNumber";
constexpr std::string_view kTables = "tables";
constexpr std::string_view kIdentifier = "identifier";
constexpr std::string_view kSortDescending = "sortDescending";
constexpr std::string_view kSelectedColumn = "selectedColumn";
constexpr std::string_view kSelectedRow = "selectedRow";
constexpr std::int32_t kNoRow = -1;
constexpr std::string_view kColumns = "columns";
constexpr std::string_view kHiddenColumns = "hiddenColumns";
// Of a column, beside its identifier.
constexpr std::string_view kWidth = "width";
constexpr std::string_view kShow = "show";
constexpr std::string_view kLastIndex = "lastIndex";

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

// A table is known by them all, and by what an upgrade removes.
bool IsTableKey(std::string_view key) {
  constexpr std::string_view kKeys[] = {
      kIdentifier, kSortDescending, kSelectedColumn,           kSelectedRow,
      kColumns,    kHiddenColumns,  "selectedFilterDictionary"};
  return std::find(std::begin(kKeys), std::end(kKeys), key) != std::end(kKeys);
}

// A column of the tables that this program shows.
struct KnownColumn {
  std::string_view name;
  bool is_in_registers = true;
  bool is_in_schedules = true;
  bool sorts = true;
};
constexpr KnownColumn kKnownColumns[] = {
    {.name = "date", .is_in_schedules = false},
    {.name = "check", .is_in_schedules = false},
    {.name = "type"},
    {.name = "description"},
    {.name = "toFrom"},
    {.name = "cleared", .is_in_schedules = false},
    {.name = "amount"},
    {.name = "balance", .is_in_schedules = false, .sorts = false},
    {.name = "next", .is_in_registers = false},
    {.name = "repeats", .is_in_registers = false, .sorts = false},
    {.name = "until", .is_in_registers = false, .sorts = false},
    {.name = "overdue", .is_in_registers = false, .sorts = false},
};

// Told where the table has no such column, or does not sort by it: another takes its place as soon
// as the table is shown. Of other tables nothing is known.
void ReportUnknownColumn(std::string_view table, std::string_view column, bool is_to_sort,
                         std::string_view key) {
  const bool is_register = table == "entry" || table == "reconcile";
  if (!is_register && table != "schedule") return;
  const bool is_known = std::any_of(
      std::begin(kKnownColumns), std::end(kKnownColumns), [&](const KnownColumn& known) {
        return known.name == column && (known.sorts || !is_to_sort) &&
               (is_register ? known.is_in_registers : known.is_in_schedules);
      });
  if (!is_known) plist::ReportNotTaken(NotTaken::OutOfRange, key);
}

// Of a choice, beside its identifier; see the header.
constexpr std::string_view kValue = "value";

bool HoldsChoices(std::string_view table) noexcept {
  return table.starts_with("import ");
}

void ReportChoice(const plist::Value& choice, std::string_view list) {
  if (!choice.IsDictionary()) return plist::ReportNotTaken(NotTaken::WrongKind, list);
  for (const plist::DictionaryItem& item : choice.DictionaryValue()) {
    const std::string_view key = item.key();
    if (key != kIdentifier && key != kValue) {
      plist::ReportNotTaken(NotTaken::UnknownKey, key);
    } else if (!item.value().IsString()) {
      plist::ReportNotTaken(NotTaken::WrongKind, key);
    }
  }
}

void ReportColumn(const plist::Value& column, std::string_view list, std::string_view table) {
  if (!column.IsDictionary()) return plist::ReportNotTaken(NotTaken::WrongKind, list);
  for (const plist::DictionaryItem& item : column.DictionaryValue()) {
    const std::string_view key = item.key();
    if (key == kIdentifier) {
      if (!item.value().IsString()) {
        plist::ReportNotTaken(NotTaken::WrongKind, key);
      } else {
        ReportUnknownColumn(table, item.value().StringValue(), false, key);
      }
    } else if (key == kWidth || key == kLastIndex) {
      static_cast<void>(LooseInteger(item.value(), key));
    } else if (key == kShow) {
      static_cast<void>(LooseBoolean(item.value(), key));
    } else {
      plist::ReportNotTaken(NotTaken::UnknownKey, key);
    }
  }
}

// A copy of the list under the key; none for anything else. Columns are kept as they stand, but
// only until the table is shown: what is in none of their keys is told.
std::optional<plist::Array> StoredColumns(const plist::Dictionary& table, std::string_view key) {
  const plist::Value& columns = table.Get(key);
  if (!columns.IsArray()) {
    if (!columns.IsNone()) plist::ReportNotTaken(NotTaken::WrongKind, key);
    return std::nullopt;
  }
  const std::string_view name = table.Get(kIdentifier).StringValue();
  for (const plist::Value& column : columns.ArrayValue()) {
    if (HoldsChoices(name)) {
      ReportChoice(column, key);
    } else {
      ReportColumn(column, key, name);
    }
  }
  return columns.ArrayValue().ShallowCopy();
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

plist::Array ColumnRecords(const std::vector<LiveColumn>& columns) {
  plist::Array records;
  std::int32_t index = 0;
  for (const LiveColumn& each : columns) {
    plist::Dictionary record;
    record.Set(kIdentifier, each.identifier);
    record.Set("width", plist::Value(each.width).IntegerValue());
    record.Set("show", true);
    record.Set(kLastIndex, index++);
    records.Append(record);
  }
  return records;
}

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
    SetAccountNumber(LooseInteger(number, kAccountNumber));
  }
  plist::ReportUnknownKeys(
      *dictionary, 0, [](std::string_view key) { return key == kAccountNumber || key == kTables; });
  const plist::Value& list = dictionary->Get(kTables);
  if (!list.IsNone() && !list.IsArray()) plist::ReportNotTaken(NotTaken::WrongKind, kTables);
  // Spares a search for each table among all those before it.
  std::unordered_map<std::string, plist::Dictionary> tables;
  for (const plist::Value& element : list.ArrayValue()) {
    const plist::Dictionary stored = element.DictionaryValue();
    const auto identifier = TextOf(stored.Get(kIdentifier));
    if (!identifier) {
      plist::ReportNotTaken(NotTaken::Skipped, kTables);
      continue;
    }
    // Of two tables of one name the later one's values stand.
    if (tables.contains(std::string(*identifier))) {
      plist::ReportNotTaken(NotTaken::RepeatedKey, *identifier);
    }
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
  plist::ReportUnknownKeys(stored, 0, IsTableKey);
  if (!stored.Has(kColumns)) Log("No columns defined for account preferences");
  if (const auto columns = StoredColumns(stored, kColumns)) table().Set(kColumns, *columns);
  if (const auto hidden = StoredColumns(stored, kHiddenColumns)) {
    table().Set(kHiddenColumns, *hidden);
  }

  if (const plist::Value& value = stored.Get(kSelectedRow); value.IsNone()) {
    Log("No selectedRow defined for account preferences");
  } else if (const std::int32_t row = LooseInteger(value, kSelectedRow); row >= 0) {
    table().Set(kSelectedRow, row);
  } else if (row != kNoRow) {
    plist::ReportNotTaken(NotTaken::OutOfRange, kSelectedRow);
  }

  const plist::Value& column = stored.Get(kSelectedColumn);
  if (column.IsString()) {
    const std::string_view name = column.StringValue();
    if (!name.empty()) {
      ReportUnknownColumn(stored.Get(kIdentifier).StringValue(), name, true, kSelectedColumn);
    }
    table().Set(kSelectedColumn, name);
  } else if (column.IsNone()) {
    Log("No selectedColumn defined for account preferences");
  } else {
    plist::ReportNotTaken(NotTaken::WrongKind, kSelectedColumn);
  }

  const plist::Value& descending = stored.Get(kSortDescending);
  if (descending.IsNone()) {
    Log("No sortDescending defined for account preferences");
  } else {
    table().Set(kSortDescending, LooseBoolean(descending, kSortDescending));
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
  if (auto table = ExistingTable(*identifier)) return table;
  return NewTableWithIdentifier(*identifier);
}

std::optional<plist::Dictionary> LDGRAccountPreferences::ExistingTable(
    std::string_view identifier) const {
  return FirstWithIdentifier(dictionary_.Get(kTables).ArrayValue(), identifier);
}

plist::Dictionary LDGRAccountPreferences::NewTableWithIdentifier(std::string_view identifier) {
  plist::Dictionary table;
  table.Set(kIdentifier, identifier);
  table.Set(kSortDescending, false);
  table.Set(kSelectedColumn, "");
  table.Set(kSelectedRow, kNoRow);
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
  return table ? ValueInTable(kSelectedRow, table).IntegerValue() : kNoRow;
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
