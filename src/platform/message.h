#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace tallyfold {

// A sentence for the user. `key` is the English sentence, which is looked up; the values stand at
// its places "{1}", "{2}" and so on, which a translation may put in another order and name more
// than once. A place without a value stays as it is; values may hold braces.
[[nodiscard]] std::string Message(std::string_view key, std::span<const std::string> values);
[[nodiscard]] inline std::string Message(std::string_view key,
                                         std::initializer_list<std::string> values) {
  return Message(key, std::span(values.begin(), values.size()));
}

// The key for so many: one for 1, many for any other number.
[[nodiscard]] constexpr std::string_view Plural(std::string_view one, std::string_view many,
                                                std::size_t count) noexcept {
  return count == 1 ? one : many;
}

// The sentence for so many, with the number at its place "{1}": "1 entry", "12 entries".
[[nodiscard]] std::string Counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace tallyfold
