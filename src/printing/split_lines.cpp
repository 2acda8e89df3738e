#include "printing/split_lines.h"

#include <string>
#include <utility>

#include "model/entry_split.h"

namespace tallyfold {
namespace {

// Sets the lines off from those of entries.
constexpr const char* kIndent = "  ";

template <typename Use>
void ForEachLine(const LDGRAccountEntry& entry, const Use& use) {
  const LDGRAccountEntrySplit* const split = entry.GetSplit().get();
  if (split == nullptr) return;
  const bool is_negative = entry.IsDebit() && !entry.IsDeposit();
  for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
    const double amount = split->GetAmount(line);
    const std::string& description = split->GetDescription(line);
    const std::string& to_from = split->GetToFrom(line);
    if (description.empty() && to_from.empty() && amount == 0.0) continue;
    use(description, to_from, is_negative ? -amount : amount);
  }
}

}  // namespace

std::size_t SplitLineCount(const LDGRAccountEntry& entry) noexcept {
  std::size_t count = 0;
  ForEachLine(entry, [&](const auto&, const auto&, double) { ++count; });
  return count;
}

void AddSplitAmounts(const LDGRAccountEntry& entry, AmountShapes& shapes) noexcept {
  ForEachLine(entry, [&](const auto&, const auto&, double amount) { shapes.Add(amount); });
}

std::vector<PrintLine> SplitLines(const LDGRAccountEntry& entry, const SplitColumns& columns,
                                  const PrintedFigures& figures) {
  std::vector<PrintLine> lines;
  ForEachLine(entry,
              [&](const std::string& description, const std::string& to_from, double amount) {
                PrintLine line;
                std::string text = kIndent + description;
                if (columns.to_from) {
                  line.cells.push_back({*columns.to_from, kIndent + to_from});
                } else if (!to_from.empty()) {
                  text += description.empty() ? to_from : ", " + to_from;
                }
                if (columns.text) {
                  line.cells.push_back({*columns.text, std::move(text), columns.text_span});
                }
                if (columns.amount) line.cells.push_back({*columns.amount, figures.Amount(amount)});
                lines.push_back(std::move(line));
              });
  return lines;
}

}  // namespace tallyfold
