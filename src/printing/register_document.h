#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/account_entry.h"
#include "model/date_number.h"
#include "plist/value.h"
#include "printing/document.h"
#include "registers/account_table_view_data.h"
#include "registers/register_rows.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

struct RegisterPrintOptions {
  // What the register is filtered by, as FilterInWords() gives it.
  std::string filter = {};
  bool splits = false;
  bool notes = false;
  DateNumber today = kNullDate;
  // Of the rows these alone, in the order of the register; empty for all.
  EntryList only = {};
};

// The register as it is shown now: its rows in their order, its columns in theirs. In the order of
// days and where balances are shown, each page of all rows begins with the balance
// brought forward; the last line has the number of entries, their sum and the closing balance.
//
// The document keeps the rows and their balances: the register may be sorted or filtered anew
// before its pages are made, but its entries are not to be changed. `rows` has an account.
[[nodiscard]] PrintDocument RegisterDocument(const LDGRAccountTableViewData& rows,
                                             const LDGRPreferences& preferences,
                                             const RegisterPrintOptions& options);

// The table of such a document, without what stands above it.
[[nodiscard]] PrintTable RegisterTable(RegisterRows rows, std::vector<TableColumn> columns,
                                       const LDGRPreferences& preferences,
                                       const RegisterPrintOptions& options);

// "all entries", "Last Month", "Description “rent”".
[[nodiscard]] std::string FilterInWords(std::int32_t type, const plist::Value& data);

}  // namespace tallyfold
