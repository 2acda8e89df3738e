#include "plist/utf16.h"

#include "plist/utf8.h"

namespace tallyfold::plist {

Utf8Text Utf16ToUtf8(std::string_view bytes, ByteOrder order) {
  const auto unit_at = [bytes, order](std::size_t position) -> char32_t {
    const auto first = static_cast<unsigned char>(bytes[position]);
    const auto second = static_cast<unsigned char>(bytes[position + 1]);
    return order == ByteOrder::BigEndian ? char32_t{first} << 8U | second
                                         : char32_t{second} << 8U | first;
  };

  Utf8Text result;
  result.text.reserve(bytes.size() / 2);
  std::size_t position = 0;
  for (; position + 2 <= bytes.size(); position += 2) {
    char32_t character = unit_at(position);
    if (character >= 0xD800 && character <= 0xDFFF) {
      const char32_t low = position + 4 <= bytes.size() ? unit_at(position + 2) : 0;
      if (character >= 0xDC00 || low < 0xDC00 || low > 0xDFFF) break;
      character = 0x10000 + ((character - 0xD800) << 10U) + (low - 0xDC00);
      position += 2;
    }
    AppendUtf8(result.text, character);
  }
  result.is_valid = position == bytes.size();
  return result;
}

}  // namespace tallyfold::plist
