#include "model/entry_numbers.h"

#include <algorithm>

#include "model/account.h"
#include "model/entry_log.h"

namespace tallyfold {

EntryNumbers::Lines::const_iterator EntryNumbers::FirstWith(std::int32_t number) const noexcept {
  return std::lower_bound(
      lines_.begin(), lines_.end(), number,
      [](const Line& line, std::int32_t wanted) { return line.number < wanted; });
}

EntryNumbers::Line EntryNumbers::LineOf(const std::shared_ptr<LDGRAccountEntry>& entry) {
  return {entry->GetNumber(), entry->GetCheckNumber(), entry->IsCheck(), entry};
}

const EntryNumbers& EntryNumbers::UpToDate(std::shared_ptr<EntryNumbers>& kept,
                                           const LDGRAccount& account) {
  if (kept == nullptr) kept = std::make_shared<EntryNumbers>();
  kept->CatchUpWith(account);
  return *kept;
}

void EntryNumbers::CatchUpWith(const LDGRAccount& account) {
  const auto touches = account.EntriesTouchedSince(mark_);
  const std::uint64_t mark = account.EntriesMark();
  // Until all is done, it is as if nothing were known.
  mark_ = 0;
  if (touches && touches->size() <= EntryLog::kFew) {
    const auto last = LastTouches(*touches);
    for (const EntryTouch& touch : last) {
      const auto found = std::find_if(lines_.begin(), lines_.end(),
                                      [&](const Line& line) { return line.entry == touch.entry; });
      if (found != lines_.end()) lines_.erase(found);
      if (!touch.is_there) continue;
      lines_.insert(FirstWith(touch.entry->GetNumber()), LineOf(touch.entry));
    }
  } else {
    lines_.clear();
    lines_.reserve(account.GetEntries().size());
    for (const auto& entry : account.GetEntries()) lines_.push_back(LineOf(entry));
    const auto is_before = [](const Line& a, const Line& b) { return a.number < b.number; };
    if (!std::is_sorted(lines_.begin(), lines_.end(), is_before)) {
      std::sort(lines_.begin(), lines_.end(), is_before);
    }
  }
  mark_ = mark;
}

std::size_t EntryNumbers::CountOf(std::int32_t number) const noexcept {
  const auto first = FirstWith(number);
  const auto end = std::find_if(first, lines_.end(),
                                [number](const Line& line) { return line.number != number; });
  return static_cast<std::size_t>(end - first);
}

std::shared_ptr<LDGRAccountEntry> EntryNumbers::AnyWith(std::int32_t number) const noexcept {
  const auto first = FirstWith(number);
  return first != lines_.end() && first->number == number ? first->entry : nullptr;
}

bool EntryNumbers::Holds(const LDGRAccountEntry& entry) const noexcept {
  auto line = FirstWith(entry.GetNumber());
  while (line != lines_.end() && line->number == entry.GetNumber()) {
    if ((line++)->entry.get() == &entry) return true;
  }
  return false;
}

std::shared_ptr<LDGRAccountEntry> EntryNumbers::LastCheck() const noexcept {
  const auto is_check = [](const Line& line) { return line.is_check; };
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), is_check);
  if (last == lines_.rend()) return nullptr;
  const auto other = std::find_if(last + 1, lines_.rend(), is_check);
  return other != lines_.rend() && other->number == last->number ? nullptr : last->entry;
}

std::int32_t EntryNumbers::HighestCheckNumber() const noexcept {
  std::int32_t highest = -1;
  for (const Line& line : lines_) highest = std::max(highest, line.check_number);
  return highest;
}

std::vector<std::int32_t> EntryNumbers::CheckNumbersAfter(std::int32_t number) const {
  std::vector<std::int32_t> later;
  for (const Line& line : lines_) {
    if (line.is_check && line.check_number > number) later.push_back(line.check_number);
  }
  std::sort(later.begin(), later.end());
  return later;
}

}  // namespace tallyfold
