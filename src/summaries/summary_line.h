#pragma once

#include <cstddef>
#include <cstdint>

#include "model/account_entry.h"
#include "summaries/summary_layout.h"

namespace tallyfold {

// A line of a laid-out summary that adds up entries.
struct SummaryLine {
  enum class Kind : std::uint8_t {
    Period,
    // Of all periods.
    Total,
    // Of the block with the number `block`.
    Block,
  };
  Kind kind = Kind::Total;
  // From 0; nothing to a total.
  std::size_t line = 0;
  std::size_t block = 0;
};

// The entries that the line counts, by date and each of them once, as the summary was computed
// last; none for a line that there is not. `layout` must be that of this summary. One sweep over
// the entries that the summary counts.
[[nodiscard]] EntryList EntriesOfLine(const LDGRAccountSummary& summary,
                                      const SummaryLayout& layout, const SummaryLine& line);

}  // namespace tallyfold
