#include "console/register_order.h"

#include <algorithm>
#include <iterator>

namespace tallyfold::console {
namespace {

using Comparator = int (LDGRAccountEntry::*)(const LDGRAccountEntry&) const;

struct SortColumn {
  std::string_view name;
  Comparator ascending;
  Comparator descending;
};

constexpr SortColumn kColumns[] = {
    {"number", &LDGRAccountEntry::NumberIsGreaterThan,
     &LDGRAccountEntry::NumberIsGreaterThan_Reversed},
    {"date", &LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan,
     &LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan_Reversed},
    {"check", &LDGRAccountEntry::CheckNumberIsGreaterThan,
     &LDGRAccountEntry::CheckNumberIsGreaterThan_Reversed},
    {"type", &LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan,
     &LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan_Reversed},
    {"description", &LDGRAccountEntry::DescriptionIsGreaterThan,
     &LDGRAccountEntry::DescriptionIsGreaterThan_Reversed},
    {"to/from", &LDGRAccountEntry::ToFromIsGreaterThan,
     &LDGRAccountEntry::ToFromIsGreaterThan_Reversed},
    {"amount", &LDGRAccountEntry::AmountIsGreaterThan,
     &LDGRAccountEntry::AmountIsGreaterThan_Reversed},
    {"cleared", &LDGRAccountEntry::ClearedIsGreaterThan,
     &LDGRAccountEntry::ClearedIsGreaterThan_Reversed},
};

const SortColumn* FindColumn(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kColumns), std::end(kColumns),
                   [&](const SortColumn& column) { return column.name == name; });
  return found == std::end(kColumns) ? nullptr : found;
}

void SortBy(EntryList& entries, Comparator comparator) {
  std::stable_sort(entries.begin(), entries.end(), [comparator](const auto& a, const auto& b) {
    return ((*a).*comparator)(*b) < 0;
  });
}

}  // namespace

bool IsRegisterColumn(std::string_view column) {
  return FindColumn(column) != nullptr;
}

void SortEntries(EntryList& entries, const RegisterOrder& order) {
  SortBy(entries, &LDGRAccountEntry::NumberIsGreaterThan);
  const SortColumn* const column = FindColumn(order.column);
  if (column == nullptr) return;
  SortBy(entries, order.descending ? column->descending : column->ascending);
}

}  // namespace tallyfold::console
