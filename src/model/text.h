#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// Comparison and search without regard to case, for the whole program: Unicode's simple folding by
// code point over UTF-8, then comparison by code point. No locale, no normalisation. Invalid UTF-8
// compares by its bytes.

// The text folded, which for most scripts means: in lower case.
[[nodiscard]] std::string FoldCase(std::string_view text);
// 1, 0 or -1.
[[nodiscard]] int CompareIgnoringCase(std::string_view a, std::string_view b) noexcept;

// Appends a form of `text` whose order by bytes is that of CompareIgnoringCase(), for texts that
// are compared more than once.
void AppendOrderForm(std::string& forms, std::string_view text);

// A text looked for in many others: prepared once, after which no search allocates. An empty one
// occurs nowhere.
class CaselessNeedle {
 public:
  explicit CaselessNeedle(std::string_view text);
  // True when the text occurs anywhere in `field`.
  [[nodiscard]] bool OccursIn(std::string_view field) const noexcept;
  // True when the whole field is the text.
  [[nodiscard]] bool Equals(std::string_view field) const noexcept;
  [[nodiscard]] bool empty() const noexcept { return folded_.empty(); }

 private:
  [[nodiscard]] bool HoldsOtherSizes(std::string_view field) const noexcept;
  [[nodiscard]] bool OccursByCodePoints(std::string_view field) const noexcept;
  [[nodiscard]] bool OccursBySkipping(std::string_view field) const noexcept;
  void NoteOtherSizes();
  void PrepareSkips();

  std::string folded_;
  // The cases of its letters that take more or fewer bytes than their folded form.
  std::vector<std::string> other_sizes_;
  // Of a field in which it can occur, in bytes.
  std::size_t least_size_ = 0;
  // A stretch of a field as long as the text cannot be it, by the stretch's last byte, nor can the
  // stretches that begin less than so many bytes further on. 0 where this one may be it.
  std::array<std::uint8_t, 256> skips_{};
  // The same after a stretch whose last byte allowed it, but that was another text.
  std::size_t retry_skip_ = 1;
  bool begins_with_invalid_byte_ = false;
};

// "Food", "Food and Rent", "Food, Rent and Travel"; "" for no items.
[[nodiscard]] std::string StringsToEnglishList(const std::vector<std::string>& items);

// The first characters of the text and an ellipsis, or the whole text when it has no more.
[[nodiscard]] std::string FirstCharacters(std::string_view text, std::size_t count);

// A line of the log: `format` with its first "%@" replaced by `text`. What the user reads is a
// Message().
[[nodiscard]] std::string MessageWithText(std::string_view format, std::string_view text);

}  // namespace tallyfold
