#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "model/account_entry.h"
#include "printing/document.h"
#include "printing/figures.h"

namespace tallyfold {

// The lines of an entry's split that are used, below the entry's own.

// Where they stand, as far as there are such columns. Without one for payees and sources, these
// follow the description.
struct SplitColumns {
  std::optional<std::size_t> text = {};
  std::size_t text_span = 1;
  std::optional<std::size_t> to_from = {};
  std::optional<std::size_t> amount = {};
};

// 0 for an entry without a split, as everything below is empty.
[[nodiscard]] std::size_t SplitLineCount(const LDGRAccountEntry& entry) noexcept;
// Their amounts, as the entry's own amount counts them.
void AddSplitAmounts(const LDGRAccountEntry& entry, AmountShapes& shapes) noexcept;
[[nodiscard]] std::vector<PrintLine> SplitLines(const LDGRAccountEntry& entry,
                                                const SplitColumns& columns,
                                                const PrintedFigures& figures);

}  // namespace tallyfold
