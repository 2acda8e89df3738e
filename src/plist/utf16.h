#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfold::plist {

enum class ByteOrder { LittleEndian, BigEndian };

// UTF-16 without byte-order mark as UTF-8. `is_valid` false: the text ends before the first
// surrogate without its twin, or before a last odd byte.
struct Utf8Text {
  std::string text;
  bool is_valid = true;
};
[[nodiscard]] Utf8Text Utf16ToUtf8(std::string_view bytes, ByteOrder order);

}  // namespace tallyfold::plist
