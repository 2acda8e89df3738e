#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "plist/value.h"
#include "plist/words.h"

namespace tallyfold::plist {

// The keys of one file, each text once.
class KeyTable {
 public:
  struct Entry {
    explicit Entry(std::string_view text);

    // Whether the key, written without references, and its closing tag lie at `place`.
    [[nodiscard]] bool IsAt(const char* place, const char* end) const noexcept {
      const std::size_t size = ending_text.size();
      if (size < 8 || static_cast<std::size_t>(end - place) < size) return false;
      const char* text = ending_text.data();
      for (std::size_t i = 0; i + 8 < size; i += 8) {
        if (LoadWord(place + i) != LoadWord(text + i)) return false;
      }
      return LoadWord(place + size - 8) == LoadWord(text + size - 8);
    }

    Key key;
    // The key and its closing tag as they stand in the file; "" for a key that needs references.
    std::string ending_text;
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

inline KeyTable::Entry::Entry(std::string_view text) : key(text) {
  constexpr std::string_view kNeedReferences("<&\r\0", 4);
  if (text.find_first_of(kNeedReferences) == std::string_view::npos) {
    ending_text.append(text).append("</key>");
  }
}

}  // namespace tallyfold::plist
