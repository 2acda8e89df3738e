#include "storage/content_mark.h"

#include <bit>
#include <cstring>

namespace tallyfold {

void ContentMarker::Mix(std::uint64_t word) noexcept {
  hash_ = std::rotl(hash_ ^ (word * 0xBF58'476D'1CE4'E5B9U), 29) * 0x94D0'49BB'1331'11EBU;
}

void ContentMarker::Add(std::string_view bytes) noexcept {
  const auto add_byte = [this](char byte) {
    rest_ |= std::uint64_t{static_cast<unsigned char>(byte)} << (length_ % 8 * 8);
    if (++length_ % 8 == 0) {
      Mix(rest_);
      rest_ = 0;
    }
  };
  while (!bytes.empty() && length_ % 8 != 0) {
    add_byte(bytes.front());
    bytes.remove_prefix(1);
  }
  while (bytes.size() >= 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), 8);
    if constexpr (std::endian::native == std::endian::big) {
      word = 0;
      for (unsigned i = 0; i < 8; ++i) {
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (i * 8);
      }
    }
    Mix(word);
    length_ += 8;
    bytes.remove_prefix(8);
  }
  for (const char byte : bytes) add_byte(byte);
}

ContentMark ContentMarker::Mark() const noexcept {
  ContentMarker end = *this;
  end.Mix(rest_);
  end.Mix(length_);
  return {length_, end.hash_ ^ (end.hash_ >> 31)};
}

ContentMark MarkOf(std::string_view bytes) noexcept {
  ContentMarker marker;
  marker.Add(bytes);
  return marker.Mark();
}

std::string ChecksumText(std::uint64_t checksum) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text(16, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, checksum >>= 4) {
    *digit = kDigits[checksum & 15];
  }
  return text;
}

}  // namespace tallyfold
