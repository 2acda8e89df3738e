#include "exchange/import_text.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "exchange/import_content.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

// Windows-1252 gives five bytes no character.
constexpr std::string_view kUnassigned = "\x81\x8D\x8F\x90\x9D";

std::size_t UnassignedBytes(std::string_view bytes) {
  const auto is_unassigned = [](char byte) {
    return kUnassigned.find(byte) != std::string_view::npos;
  };
  return static_cast<std::size_t>(std::count_if(bytes.begin(), bytes.end(), is_unassigned));
}

// Each of those becomes U+FFFD, so that the rest can be read.
std::string DecodedAsWindows1252(std::string_view bytes, const TextEncodings& encodings) {
  // Stands for them on the way. A file's own one is a control character, of which none is kept.
  constexpr char kStandIn = '\x1A';
  std::string readable;
  readable.reserve(bytes.size());
  for (const char byte : bytes) {
    if (byte == kStandIn) continue;
    readable += kUnassigned.find(byte) == std::string_view::npos ? byte : kStandIn;
  }
  const auto text = encodings.Decode(readable, TextEncoding::Windows1252);
  if (!text) return std::string(bytes);
  std::string decoded;
  decoded.reserve(text->size());
  for (const char byte : *text) {
    if (byte == kStandIn) {
      decoded += "\uFFFD";
    } else {
      decoded += byte;
    }
  }
  return decoded;
}

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool HasUtf16Mark(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

// How many bytes the smallest piece of text has.
std::size_t UnitSize(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::Utf16:
    case TextEncoding::Utf16BigEndian:
    case TextEncoding::Utf16LittleEndian:
      return 2;
    case TextEncoding::Utf32:
    case TextEncoding::Utf32BigEndian:
    case TextEncoding::Utf32LittleEndian:
      return 4;
    default:
      return 1;
  }
}

// Without the bytes of a unit that a file cut short ends with.
std::string_view WholeUnits(std::string_view bytes, TextEncoding encoding) {
  return bytes.substr(0, bytes.size() - bytes.size() % UnitSize(encoding));
}

// Text with some bytes that are none, when there is more to say for UTF-8 than against it.
std::optional<ImportText> DecodedAsUtf8(std::string_view bytes) {
  if (plist::IsValidUtf8(bytes)) return ImportText{std::string(bytes)};
  std::size_t long_characters = 0;
  std::size_t bad_bytes = 0;
  for (std::string_view rest = bytes; !rest.empty();) {
    const plist::Utf8Character next = plist::FirstUtf8Character(rest);
    if (!next.is_valid) {
      bad_bytes += next.size;
    } else if (next.size > 1) {
      ++long_characters;
    }
    rest.remove_prefix(next.size);
  }
  if (bad_bytes > 0 && long_characters <= bad_bytes) return std::nullopt;
  return ImportText{plist::ToValidUtf8(bytes), TextEncoding::Utf8, bad_bytes};
}

}  // namespace

std::optional<std::string_view> Utf8Bytes(std::string_view bytes) noexcept {
  if (WideEncodingOf(bytes) || !plist::IsValidUtf8(bytes)) return std::nullopt;
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  return bytes;
}

ImportText ReadByDefault(std::string_view bytes, const TextEncodings& encodings) {
  if (HasUtf16Mark(bytes)) {
    const std::string_view whole = WholeUnits(bytes, TextEncoding::Utf16);
    if (auto text = encodings.Decode(whole, TextEncoding::Utf16)) {
      return {*std::move(text), TextEncoding::Utf16};
    }
  }
  if (auto decoded = DecodedAsUtf8(bytes)) return *std::move(decoded);
  return {DecodedAsWindows1252(bytes, encodings), TextEncoding::Windows1252,
          UnassignedBytes(bytes)};
}

ImportText ReadInEncoding(std::string_view bytes, TextEncoding encoding,
                          const TextEncodings& encodings) {
  // In the encodings of bytes the mark would stay in front of the first line as letters.
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  const bool is_wide = UnitSize(encoding) > 1;
  if (HasUtf16Mark(bytes) && !is_wide) return ReadByDefault(bytes, encodings);
  // Text of bytes has no NUL, and its length tells that it was said to be wide in error.
  const bool has_nul = bytes.find('\0') != std::string_view::npos;
  const std::string_view whole = is_wide && has_nul ? WholeUnits(bytes, encoding) : bytes;
  if (auto text = encodings.Decode(whole, encoding)) return {*std::move(text), encoding};
  return ReadByDefault(bytes, encodings);
}

}  // namespace tallyfold
