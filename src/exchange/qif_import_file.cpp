// Reading a QIF file: the bytes, their encoding, the text.

#include <string>
#include <string_view>

#include "exchange/qif_import.h"
#include "platform/file_system.h"
#include "platform/text_encodings.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

// Windows-1252 gives five bytes no character. Each becomes U+FFFD, so that the rest can be read.
std::string DecodedAsWindows1252(std::string_view bytes, const TextEncodings& encodings) {
  constexpr std::string_view kUnassigned = "\x81\x8D\x8F\x90\x9D";
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

// How text is read that is not of the encoding it was said to be of. Never fails.
std::string DecodedByDefault(std::string_view bytes, const TextEncodings& encodings) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    if (auto text = encodings.Decode(bytes, TextEncoding::Utf16)) return *std::move(text);
  }
  return plist::IsValidUtf8(bytes) ? std::string(bytes) : DecodedAsWindows1252(bytes, encodings);
}

}  // namespace

LDGRQIFImport LDGRQIFImport::importWithContentsOfFile(const std::optional<std::string>& path,
                                                      std::int32_t encoding,
                                                      const FileSystem& files,
                                                      const TextEncodings& encodings) {
  if (!path) return LDGRQIFImport(std::nullopt);
  const auto contents = files.Read(*path);
  if (!contents) return {};
  const std::string_view bytes = contents->view();
  if (const auto text = encodings.Decode(bytes, static_cast<TextEncoding>(encoding))) {
    return LDGRQIFImport(*text);
  }
  return LDGRQIFImport(DecodedByDefault(bytes, encodings));
}

}  // namespace tallyfold
