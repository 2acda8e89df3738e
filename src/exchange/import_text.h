#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text_encodings.h"

namespace tallyfold {

// How the bytes of a file to be imported become text.
struct ImportText {
  std::string text;  // valid UTF-8 unless `encodings` lacks what every computer has
  // What the bytes were read as, which need not be what was asked for.
  TextEncoding encoding = TextEncoding::Utf8;
  // Bytes that are no text in it, each of which, or some together, became U+FFFD.
  std::size_t replaced_bytes = 0;
};

// The bytes themselves, without a mark, where they are UTF-8; none for any other text, UTF-16 of
// ASCII letters among them (see WideEncodingOf()).
[[nodiscard]] std::optional<std::string_view> Utf8Bytes(std::string_view bytes) noexcept;

// Reads in `encoding`; as ReadByDefault() does where the bytes are no text of that, or have a mark
// of UTF-16 that `encoding` does not know. A mark of UTF-8 is dropped whatever the encoding.
[[nodiscard]] ImportText ReadInEncoding(std::string_view bytes, TextEncoding encoding,
                                        const TextEncodings& encodings);

// In the way of a mark of UTF-16, as UTF-8 (bytes that are none are replaced where characters of
// several bytes outnumber them) or as Windows-1252. Never fails.
[[nodiscard]] ImportText ReadByDefault(std::string_view bytes, const TextEncodings& encodings);

}  // namespace tallyfold
