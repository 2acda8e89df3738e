#include "summaries/summary_line.h"

#include <functional>
#include <string_view>
#include <unordered_set>

#include "summaries/account_summary.h"
#include "summaries/subtotal_tally.h"

namespace tallyfold {
namespace {

using Subject = SummaryLayout::Subject;

std::string_view NameOf(const LDGRAccountEntry& entry, Subject subject, TypeNames& types) {
  switch (subject) {
    case Subject::Type:
      return types.Of(entry);
    case Subject::Description:
      return entry.GetDescription();
    case Subject::ToFrom:
      return entry.GetToFrom();
  }
  return {};
}

}  // namespace

EntryList EntriesOfLine(const LDGRAccountSummary& summary, const SummaryLayout& layout,
                        const SummaryLine& line) {
  TypeNames types(summary.account());
  std::function<bool(const LDGRAccountEntry&)> counts;
  switch (line.kind) {
    case SummaryLine::Kind::Total:
      counts = [](const LDGRAccountEntry&) { return true; };
      break;
    case SummaryLine::Kind::Period: {
      if (line.line >= layout.periods.size()) return {};
      const auto& period = layout.periods[line.line];
      counts = [&period](const LDGRAccountEntry& entry) {
        return entry.GetDate() >= period.first && entry.GetDate() <= period.last;
      };
      break;
    }
    case SummaryLine::Kind::Block: {
      if (line.block >= layout.blocks.size()) return {};
      const auto& block = layout.blocks[line.block];
      if (line.line >= block.lines.size()) return {};
      const auto& wanted = block.lines[line.line];
      const std::string_view name = wanted.has_name ? std::string_view(wanted.name) : "";
      counts = [&types, &block, name](const LDGRAccountEntry& entry) {
        return NameOf(entry, block.subject, types) == name;
      };
      break;
    }
  }
  EntryList entries;
  std::unordered_set<const LDGRAccountEntry*> known;
  for (const auto& entry : summary.entries()) {
    if (counts(*entry) && known.insert(entry.get()).second) entries.push_back(entry);
  }
  return entries;
}

}  // namespace tallyfold
