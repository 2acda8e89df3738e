#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "registers/table_state.h"

namespace tallyfold::desktop {

// The first row of a sorted table whose cell in the sort column is what was typed or begins with
// it; for a day or a number the first one there or beyond. Found by bisection, in the order that
// the core sorts by: a handful of cells is asked for, however many rows there are. None where
// nothing fits, and in a table that is not sorted. `near` is the row from which a day without a
// year is meant, negative for none.
[[nodiscard]] std::optional<std::size_t> RowOfTyped(const TableState& table, std::string_view typed,
                                                    std::string_view date_format, int near);

// Letters typed after one another, until a pause.
class TypedLetters {
 public:
  // All that was typed up to this, in UTF-8; times in milliseconds, of any clock.
  const std::string& Add(const QString& letters, std::uint64_t time, int longest_pause);
  [[nodiscard]] bool IsEmpty() const noexcept { return typed_.empty(); }
  void Clear() noexcept { typed_.clear(); }

 private:
  std::string typed_;
  std::uint64_t last_ = 0;
};

}  // namespace tallyfold::desktop
