#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/line_aids.h"

namespace tallyfold::console {

struct Console;
class LineHistory;

// What a person is offered who types a command: earlier lines, and how words go on. While the
// application is locked no earlier line is offered; names of accounts, types, filters and summaries
// are only where they may be seen, so never of what is in a locked account.
class CommandAids final : public LineAids {
 public:
  // Both must outlive this. `is_launched` says whether there are accounts to ask yet.
  CommandAids(const Console& console, const LineHistory& history, const bool& is_launched) noexcept
      : console_(console), history_(history), is_launched_(is_launched) {}

  [[nodiscard]] std::vector<std::string> Earlier() const override;
  [[nodiscard]] LineCompletion Complete(std::string_view before) const override;

 private:
  [[nodiscard]] std::vector<std::string> Names(std::string_view what) const;

  const Console& console_;
  const LineHistory& history_;
  const bool& is_launched_;
};

}  // namespace tallyfold::console
