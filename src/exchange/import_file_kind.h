#pragma once

#include <cstdint>
#include <string_view>

namespace tallyfold {

// What a file seems to be that the user wants to import, by its content alone.
enum class ImportFileKind : std::uint8_t { Qif, Empty, Table, WebPage, Picture, Foreign };

// By the bytes that begin files of the usual kinds of pictures.
[[nodiscard]] bool IsPicture(std::string_view bytes) noexcept;
// Qif for a text with a header or the end of a record. Never Picture. Linear.
[[nodiscard]] ImportFileKind KindOfImportText(std::string_view text);

}  // namespace tallyfold
