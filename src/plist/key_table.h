#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <unordered_map>

#include "plist/value.h"

namespace tallyfold::plist {

// The keys of one file, each text once.
class KeyTable {
 public:
  struct Entry {
    explicit Entry(std::string_view text) : key(text) {}

    Key key;
    // The entry that followed this one in the file the last time. Records of a kind have their
    // keys in the same order, so it is a good guess for the next time.
    Entry* successor = nullptr;
    // The dictionary that had the key last, by its number within the file, and its position there.
    std::uint32_t dictionary = 0;
    std::uint32_t position = 0;
  };

  // Lives as long as the table.
  [[nodiscard]] Entry* Find(std::string_view text) {
    const auto found = entries_by_text_.find(text);
    if (found != entries_by_text_.end()) return found->second;
    Entry& entry = entries_.emplace_back(text);
    entries_by_text_.emplace(entry.key.text(), &entry);
    return &entry;
  }

 private:
  std::deque<Entry> entries_;
  std::unordered_map<std::string_view, Entry*> entries_by_text_;
};

}  // namespace tallyfold::plist
