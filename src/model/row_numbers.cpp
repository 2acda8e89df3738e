#include "model/row_numbers.h"

namespace tallyfold {

RowIndexSet indexSetWithRowNumbers(const std::optional<plist::Array>& numbers) {
  RowIndexSet rows;
  if (!numbers) return rows;
  for (const plist::Value& number : *numbers) {
    const std::int32_t row = number.IntegerValue();
    if (row >= 0) rows.insert(row);
  }
  return rows;
}

}  // namespace tallyfold
