#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfold {

// True for the bytes of a file that the compress tool made (".Z").
[[nodiscard]] bool IsCompressed(std::string_view bytes) noexcept;

// What was compressed; none when `bytes` are no such file or are damaged in a way that shows, or
// when the result would be larger than `limit` bytes.
[[nodiscard]] std::optional<std::string> Uncompress(std::string_view bytes, std::size_t limit);

}  // namespace tallyfold
