#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// Identifiers of text encodings as files and preferences store them.
enum class TextEncoding : std::int32_t {
  Ascii = 1,
  EucJp = 3,
  Utf8 = 4,
  Latin1 = 5,
  ShiftJis = 8,
  Latin2 = 9,
  Utf16 = 10,  // written with a byte-order mark in host order
  Windows1251 = 11,
  Windows1252 = 12,
  Windows1253 = 13,
  Windows1254 = 14,
  Windows1250 = 15,
  Iso2022Jp = 21,
  MacRoman = 30,
  Windows1257 = -2147482361,  // read only: never offered
  Utf16BigEndian = -1879047936,
  Utf16LittleEndian = -1811939072,
  Utf32 = -1946156800,
  Utf32BigEndian = -1744830208,
  Utf32LittleEndian = -1677721344,
};

// Conversion between UTF-8 and other encodings.
class TextEncodings {
 public:
  virtual ~TextEncodings() = default;
  // Every encoding that can be offered, in that order.
  [[nodiscard]] virtual std::vector<TextEncoding> List() const = 0;
  // Name to show; "" for an unknown identifier.
  [[nodiscard]] virtual std::string Name(TextEncoding encoding) const = 0;
  // Valid UTF-8, or none when `bytes` are not text of that encoding or it is unknown.
  [[nodiscard]] virtual std::optional<std::string> Decode(std::string_view bytes,
                                                          TextEncoding encoding) const = 0;
  // Each character the encoding lacks becomes "?". None for an unknown encoding.
  [[nodiscard]] virtual std::optional<std::string> Encode(std::string_view utf8,
                                                          TextEncoding encoding) const = 0;
};

}  // namespace tallyfold
