#include "console/register_order.h"

#include <string>
#include <utility>

#include "console/command_error.h"
#include "console/words.h"
#include "registers/register_rows.h"

namespace tallyfold::console {

std::optional<RegisterSortKey> ReadSortKey(std::string_view word) {
  if (word == "number") return std::nullopt;
  if (const auto key = SortKeyOfColumn(ColumnIdentifier(word))) return key;
  throw CommandError("sort: expected one of " + std::string(kRegisterColumns) + ", not " +
                     Quoted(word));
}

std::string_view ColumnIdentifier(std::string_view word) noexcept {
  return word == "to/from" ? "toFrom" : word;
}

EntryList InOrderOf(EntryList entries, const RegisterOrder& order) {
  RegisterRows rows;
  rows.SetEntries(std::move(entries));
  rows.Sort(order);
  return rows.Entries();
}

}  // namespace tallyfold::console
