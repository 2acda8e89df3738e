#pragma once

#include <cstddef>
#include <string_view>

namespace tallyfold {

// Texts (UTF-8) in fixed pitch, as terminals and plain pages show them. A byte that belongs to no
// valid sequence counts as a character of its own.

// How many places `text` takes: wide characters of East Asia and pictures two, combining ones none.
[[nodiscard]] std::size_t DisplayWidth(std::string_view text) noexcept;

// Takes the next character as a reader sees it off the front of `text`, which must not be empty: a
// code point with all that combines with it, pictures joined to one included.
[[nodiscard]] std::string_view TakeCharacter(std::string_view& text) noexcept;

}  // namespace tallyfold
