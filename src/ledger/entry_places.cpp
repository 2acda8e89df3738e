#include "ledger/entry_places.h"

#include <algorithm>

namespace tallyfold {
namespace {

// How far from the place it had an entry is looked for before all places are seen anew.
constexpr std::size_t kNear = 64;

std::optional<std::size_t> FindNear(const EntryList& entries, const LDGRAccountEntry* entry,
                                    std::size_t place) {
  const std::size_t from = std::min(place - std::min(place, kNear), entries.size());
  const std::size_t to = std::min(place + kNear, entries.size());
  for (std::size_t i = from; i < to; ++i) {
    if (entries[i].get() == entry) return i;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> EntryPlaces::Of(const LDGRAccount& account,
                                           const LDGRAccountEntry* entry) {
  const EntryList& entries = account.GetEntries();
  if (const auto found = FindNear(entries, entry, entries.size())) return found;
  if (const auto seen = seen_.find(&account); seen != seen_.end()) {
    const auto place = seen->second.find(entry);
    if (place != seen->second.end()) {
      if (const auto found = FindNear(entries, entry, place->second)) return found;
    }
  }
  Seen& seen = seen_[&account];
  seen.clear();
  seen.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) seen.emplace(entries[i].get(), i);
  const auto place = seen.find(entry);
  if (place == seen.end()) return std::nullopt;
  return place->second;
}

}  // namespace tallyfold
