#include "console/register_order.h"

#include <algorithm>
#include <string>
#include <utility>

#include "console/command_error.h"
#include "console/words.h"

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

void SortEntries(EntryList& entries, const RegisterOrder& order) {
  if (!order.key) {
    std::ranges::stable_sort(entries, [&order](const auto& a, const auto& b) {
      return (order.descending ? a->NumberIsGreaterThan_Reversed(*b) : a->NumberIsGreaterThan(*b)) <
             0;
    });
    return;
  }
  EntryList sorted;
  sorted.reserve(entries.size());
  for (const auto index : OrderOfEntries(entries, *order.key, order.descending)) {
    sorted.push_back(std::move(entries[index]));
  }
  entries = std::move(sorted);
}

}  // namespace tallyfold::console
