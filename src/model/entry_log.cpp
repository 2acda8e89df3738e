#include "model/entry_log.h"

#include <new>
#include <unordered_set>

namespace tallyfold {

void EntryLog::Add(const EntryList& entries, bool are_there) noexcept {
  if (touches_.size() + entries.size() > kMost) Forget();
  if (entries.size() > kMost) return;
  try {
    for (const auto& entry : entries) touches_.push_back({entry, are_there});
  } catch (const std::bad_alloc&) {
    Forget();
  }
}

std::vector<EntryTouch> LastTouches(std::span<const EntryTouch> touches) {
  if (touches.size() < 2) return {touches.begin(), touches.end()};
  std::vector<EntryTouch> last;
  std::unordered_set<const LDGRAccountEntry*> known;
  for (auto touch = touches.rbegin(); touch != touches.rend(); ++touch) {
    if (known.insert(touch->entry.get()).second) last.push_back(*touch);
  }
  return last;
}

}  // namespace tallyfold
