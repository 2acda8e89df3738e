#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tallyfold {

// Tells contents of files from one another, but not against anybody who wants to deceive. Takes a
// content in pieces of any length.
class ContentChecksum {
 public:
  ContentChecksum() = default;
  explicit ContentChecksum(std::string_view content) noexcept { Append(content); }

  void Append(std::string_view bytes) noexcept {
    size_ += bytes.size();
    if (pending_size_ > 0) {
      while (pending_size_ < pending_.size() && !bytes.empty()) {
        pending_[pending_size_++] = bytes.front();
        bytes.remove_prefix(1);
      }
      if (pending_size_ < pending_.size()) return;
      Mix(pending_.data());
      pending_size_ = 0;
    }
    for (; bytes.size() >= pending_.size(); bytes.remove_prefix(pending_.size())) {
      Mix(bytes.data());
    }
    for (const char byte : bytes) pending_[pending_size_++] = byte;
  }

  friend bool operator==(const ContentChecksum& a, const ContentChecksum& b) noexcept {
    return a.size_ == b.size_ && a.sum_ == b.sum_ && a.pending() == b.pending();
  }

 private:
  void Mix(const char* word) noexcept {
    std::uint64_t value = 0;
    std::memcpy(&value, word, sizeof value);
    // Odd, so that no two words lead from one sum to the same next one.
    sum_ = (sum_ ^ value) * 0x9E3779B97F4A7C15U;
    sum_ ^= sum_ >> 29;
  }
  [[nodiscard]] std::string_view pending() const noexcept {
    return {pending_.data(), pending_size_};
  }

  std::uint64_t sum_ = 0;
  std::uint64_t size_ = 0;
  // What does not fill a word yet.
  std::array<char, sizeof(std::uint64_t)> pending_{};
  std::size_t pending_size_ = 0;
};

}  // namespace tallyfold
