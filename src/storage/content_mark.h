#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tallyfold {

// Tells contents apart: not secret, but two of them are never equal by chance.
struct ContentMark {
  std::uint64_t length = 0;
  std::uint64_t checksum = 0;
  friend bool operator==(const ContentMark&, const ContentMark&) = default;
};

// Works out the mark of a content that comes in pieces, however it is cut.
class ContentMarker {
 public:
  void Add(std::string_view bytes) noexcept;
  [[nodiscard]] ContentMark Mark() const noexcept;

 private:
  void Mix(std::uint64_t word) noexcept;

  std::uint64_t hash_ = 0x9E37'79B9'7F4A'7C15U;
  std::uint64_t length_ = 0;
  // The last bytes that make no whole word yet, from the lowest.
  std::uint64_t rest_ = 0;
};

[[nodiscard]] ContentMark MarkOf(std::string_view bytes) noexcept;

// 16 hexadecimal digits.
[[nodiscard]] std::string ChecksumText(std::uint64_t checksum);

}  // namespace tallyfold
