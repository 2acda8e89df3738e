// Reading a QIF file: the bytes, their encoding, the text.

#include <string>
#include <string_view>

#include "exchange/qif_import.h"
#include "platform/file_system.h"
#include "platform/text_encodings.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

// How text is read that is not of the encoding it was said to be of.
std::string DecodedByDefault(std::string_view bytes, const TextEncodings& encodings) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    if (auto text = encodings.Decode(bytes, TextEncoding::Utf16)) return *std::move(text);
  }
  if (!plist::IsValidUtf8(bytes)) {
    if (auto text = encodings.Decode(bytes, TextEncoding::Windows1252)) return *std::move(text);
  }
  // Five byte values mean nothing in Windows-1252; the rest of the text is kept.
  return std::string(bytes);
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
