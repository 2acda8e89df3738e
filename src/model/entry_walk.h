#pragma once

#include <cstddef>
#include <string>

#include "model/account_entry.h"

namespace tallyfold {

// Entries lie all over the memory, and a plain walk through 100,000 of them mostly waits for it.
// These walks ask for an entry some steps before they come to it.

namespace entry_walk {

// In steps of a walk. Nearer, the memory is late; much further, it is gone again.
inline constexpr std::size_t kEntriesAhead = 16;
inline constexpr std::size_t kMoreAhead = 8;

// Inlined at once: calls of a function without a visible effect are optimized away.
[[gnu::always_inline]] inline void AskFor(const void* memory) noexcept {
  // To ask for no memory at all takes its time too.
  if (memory != nullptr) __builtin_prefetch(memory);
}

// Of an entry what lies before and in its member `last`. Entries begin anywhere in a cache line.
template <typename Last>
[[gnu::always_inline]] inline void AskForEntry(const LDGRAccountEntry& entry,
                                               const Last& last) noexcept {
  constexpr std::ptrdiff_t kCacheLine = 64;
  const char* const end = reinterpret_cast<const char*>(&last + 1) - 1;
  for (const auto* begin = reinterpret_cast<const char*>(&entry); begin < end;
       begin += kCacheLine) {
    AskFor(begin);
  }
  AskFor(end);
}

}  // namespace entry_walk

// Each calls `visit` with each entry, in order. `entries` is any vector of pointers to entries,
// none of them null.

// For visits that read numbers, days, amounts and marks.
template <typename Entries, typename Visit>
void WalkEntries(const Entries& entries, Visit visit) {
  using namespace entry_walk;
  const std::size_t count = entries.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i + kEntriesAhead < count) {
      const LDGRAccountEntry& later = *entries[i + kEntriesAhead];
      AskForEntry(later, later.GetSplit());
    }
    if (i + kMoreAhead < count) AskFor(entries[i + kMoreAhead]->GetSplit().get());
    visit(*entries[i]);
  }
}

// For visits that read one text too.
template <typename Entries, typename Visit>
void WalkEntryText(const Entries& entries,
                   const std::string& (LDGRAccountEntry::*text)() const noexcept, Visit visit) {
  using namespace entry_walk;
  const std::size_t count = entries.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i + kEntriesAhead < count) {
      const LDGRAccountEntry& later = *entries[i + kEntriesAhead];
      AskFor(&later);
      AskFor(&(later.*text)());
    }
    if (i + kMoreAhead < count) AskFor(((*entries[i + kMoreAhead]).*text)().data());
    visit(*entries[i]);
  }
}

// For visits that read all texts.
template <typename Entries, typename Visit>
void WalkEntryTexts(const Entries& entries, Visit visit) {
  using namespace entry_walk;
  const std::size_t count = entries.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i + kEntriesAhead < count) {
      const LDGRAccountEntry& later = *entries[i + kEntriesAhead];
      AskForEntry(later, later.GetNotes());
    }
    if (i + kMoreAhead < count) {
      const LDGRAccountEntry& later = *entries[i + kMoreAhead];
      AskFor(later.GetSplit().get());
      AskFor(later.GetDescription().data());
      AskFor(later.GetToFrom().data());
      AskFor(later.GetNotes().data());
    }
    visit(*entries[i]);
  }
}

}  // namespace tallyfold
