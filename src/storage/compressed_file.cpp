#include "storage/compressed_file.h"

#include <algorithm>
#include <cstdint>
#include <vector>

// Adaptive Lempel-Ziv coding as the compress tool writes it. After three bytes of header follow
// codes, lowest bit first: 9 bits wide at the start and wider as the table of known strings grows.
// A code below 256 is a byte, 256 empties the table, higher ones name strings: an earlier string
// and one byte more. Codes come in groups of eight; where the width changes or the table is
// emptied, the rest of a group is filled up.

namespace tallyfold {

namespace {

constexpr std::string_view kCompressedMagic = "\x1F\x9D";
constexpr std::size_t kCompressedHeader = 3;
constexpr unsigned kWidthMask = 0x1F;
constexpr unsigned kCanBeEmptied = 0x80;
constexpr unsigned kFirstWidth = 9;
constexpr unsigned kGreatestWidth = 16;
constexpr unsigned kEmptyTable = 256;

class CodeReader {
 public:
  explicit CodeReader(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] unsigned width() const { return width_; }
  void SetWidth(unsigned width) {
    const std::size_t group = std::size_t{width_} * 8;
    const std::size_t used = (position_ - group_start_) % group;
    if (used != 0) position_ += group - used;
    group_start_ = position_;
    width_ = width;
  }
  // None at the end.
  std::optional<unsigned> Next() {
    if (position_ + width_ > bytes_.size() * 8) return std::nullopt;
    unsigned code = 0;
    for (unsigned bit = 0; bit < width_; ++bit, ++position_) {
      const unsigned byte = static_cast<unsigned char>(bytes_[position_ / 8]);
      code |= ((byte >> (position_ % 8)) & 1U) << bit;
    }
    return code;
  }

 private:
  std::string_view bytes_;
  // In bits.
  std::size_t position_ = 0;
  std::size_t group_start_ = 0;
  unsigned width_ = kFirstWidth;
};

// The known strings.
class StringTable {
 public:
  StringTable(unsigned greatest_width, bool can_be_emptied)
      : capacity_(std::size_t{1} << greatest_width), first_free_(can_be_emptied ? 257 : 256) {
    strings_.resize(first_free_);
    for (unsigned byte = 0; byte < 256; ++byte) strings_[byte].last = static_cast<char>(byte);
  }

  [[nodiscard]] std::size_t size() const { return strings_.size(); }
  // The next string made takes the place of the code that empties; nothing ever names it.
  void Empty() { strings_.resize(first_free_ - 1); }
  void Add(unsigned earlier, char last) {
    if (strings_.size() < capacity_)
      strings_.push_back({static_cast<std::uint16_t>(earlier), last});
  }
  // Appends the string of a code below size() and returns its first byte.
  char AppendTo(std::string& text, unsigned code) const {
    const std::size_t start = text.size();
    for (; code > 255; code = strings_[code].earlier) text.push_back(strings_[code].last);
    text.push_back(strings_[code].last);
    std::reverse(text.begin() + static_cast<std::ptrdiff_t>(start), text.end());
    return text[start];
  }

 private:
  struct String {
    std::uint16_t earlier = 0;
    char last = 0;
  };
  std::size_t capacity_;
  std::size_t first_free_;
  std::vector<String> strings_;
};

}  // namespace

bool IsCompressed(std::string_view bytes) noexcept {
  return bytes.size() >= kCompressedHeader && bytes.starts_with(kCompressedMagic);
}

std::optional<std::string> Uncompress(std::string_view bytes, std::size_t limit) {
  if (!IsCompressed(bytes)) return std::nullopt;
  const auto flags = static_cast<unsigned char>(bytes[kCompressedMagic.size()]);
  const unsigned greatest_width = flags & kWidthMask;
  const bool can_be_emptied = (flags & kCanBeEmptied) != 0;
  // Tables that never grow beyond the first width are written in a way of their own, and only when
  // the tool is told to.
  if (greatest_width <= kFirstWidth || greatest_width > kGreatestWidth) return std::nullopt;

  CodeReader codes(bytes.substr(kCompressedHeader));
  StringTable table(greatest_width, can_be_emptied);
  std::string text;
  std::optional<unsigned> earlier;
  while (const std::optional<unsigned> code = codes.Next()) {
    if (*code == kEmptyTable && can_be_emptied && earlier) {
      table.Empty();
      codes.SetWidth(kFirstWidth);
      continue;
    }
    if (!earlier) {
      if (*code > 255) return std::nullopt;
      table.AppendTo(text, *code);
    } else if (*code < table.size()) {
      table.Add(*earlier, table.AppendTo(text, *code));
    } else if (*code == table.size()) {
      // The string being made just now: the earlier one and its own first byte.
      const char first = table.AppendTo(text, *earlier);
      text.push_back(first);
      table.Add(*earlier, first);
    } else {
      return std::nullopt;
    }
    earlier = code;
    if (text.size() > limit) return std::nullopt;
    if (table.size() >> codes.width() != 0 && codes.width() < greatest_width) {
      codes.SetWidth(codes.width() + 1);
    }
  }
  return text;
}

}  // namespace tallyfold
