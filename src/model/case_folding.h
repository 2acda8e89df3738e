#pragma once

#include <string_view>

namespace tallyfold {

// The lower-case form of one code point, each on its own (simple folding, as the Unicode tables
// have it): Latin with Latin-1 and Latin Extended-A, Greek and Cyrillic. Everything else, and what
// has no single code point as its form, comes back unchanged.
[[nodiscard]] char32_t FoldCodePoint(char32_t code_point) noexcept;

// Takes the next code point off the front of `text`, which must not be empty. A byte that begins
// no valid UTF-8 sequence is taken alone and comes back as a value of its own beyond all code
// points, so that invalid texts still compare by their bytes.
[[nodiscard]] char32_t TakeCodePoint(std::string_view& text) noexcept;

}  // namespace tallyfold
