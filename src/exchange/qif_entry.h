#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/import_hints.h"
#include "model/date_number.h"

namespace tallyfold {

// What the parser reads out of a QIF file. A field is there only when its line was found with a
// value.

struct QifSplitLine {
  std::string amount;  // cleaned, without its minus sign
  std::string to_from;
  std::string description;
};

// A file's split of more lines than this is left out whole, although an entry could hold one more.
inline constexpr std::size_t kMostQifSplitLines = 9;

struct QifEntry {
  std::optional<DateNumber> date;  // 0 when the text could not be read
  std::optional<double> amount;
  bool is_deposit = false;  // false as well when there is no amount
  std::optional<std::string> to_from;
  std::optional<std::string> description;
  std::optional<std::string> type;
  bool is_cleared = false;
  std::optional<std::int32_t> number;
  std::vector<QifSplitLine> splits;
  // What of the record may not be what its writer meant, as far as the record alone tells.
  ImportDoubtSet doubts;
};

// Entries are shared between the list of all and the lists of accounts.
using QifEntryList = std::vector<std::shared_ptr<const QifEntry>>;

struct QifAccount {
  std::string name;
  // The account whose entries these are: the first whose name begins with this one's.
  std::string source;
  // Never null. Accounts of one name share one list.
  std::shared_ptr<const QifEntryList> entries;
};

struct QifType {
  std::string name;
  bool is_deposit = false;
};

// A whole file.
struct QifResult {
  QifEntryList entries;
  std::vector<QifAccount> accounts;
  std::vector<QifType> types;
};

}  // namespace tallyfold
