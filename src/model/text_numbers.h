#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace tallyfold {

// Numbers the different ones among many texts from 0, in the order in which they come. The texts
// must stay where they are. Letters and case count.
class TextNumbers {
 public:
  std::uint32_t NumberOf(std::string_view text) {
    if (2 * (texts_.size() + 1) > slots_.size()) Grow();
    const std::size_t hash = std::hash<std::string_view>()(text);
    const std::size_t slot = SlotFor(text, hash);
    if (slots_[slot] == kEmpty) {
      slots_[slot] = static_cast<std::uint32_t>(texts_.size());
      texts_.push_back({hash, text});
    }
    return slots_[slot];
  }

 private:
  static constexpr std::uint32_t kEmpty = 0xFFFF'FFFFU;
  static constexpr std::size_t kFirstSlots = 64;

  struct Text {
    std::size_t hash;
    std::string_view text;
  };

  // Where the text stands or belongs; at least half of the slots are empty.
  [[nodiscard]] std::size_t SlotFor(std::string_view text, std::size_t hash) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
      if (slots_[slot] == kEmpty) return slot;
      const Text& other = texts_[slots_[slot]];
      if (other.hash == hash && other.text == text) return slot;
    }
  }
  void Grow() {
    slots_.assign(slots_.empty() ? kFirstSlots : 4 * slots_.size(), kEmpty);
    for (std::uint32_t number = 0; number < texts_.size(); ++number) {
      slots_[SlotFor(texts_[number].text, texts_[number].hash)] = number;
    }
  }

  // Numbers of texts by their hashes; a power of two of them.
  std::vector<std::uint32_t> slots_;
  std::vector<Text> texts_;
};

}  // namespace tallyfold
