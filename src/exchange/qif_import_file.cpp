// Reading a QIF file: the bytes, their encoding, the text.

#include <optional>
#include <string>
#include <string_view>

#include "exchange/import_text.h"
#include "exchange/qif_import.h"
#include "platform/file_system.h"
#include "platform/text_encodings.h"

namespace tallyfold {

LDGRQIFImport LDGRQIFImport::importWithContentsOfFile(const std::optional<std::string>& path,
                                                      std::int32_t encoding,
                                                      const FileSystem& files,
                                                      const TextEncodings& encodings) {
  if (!path) return LDGRQIFImport(std::nullopt);
  const auto contents = files.Read(*path);
  if (!contents) return {};
  const ImportText decoded =
      ReadInEncoding(contents->view(), static_cast<TextEncoding>(encoding), encodings);
  LDGRQIFImport import(decoded.text);
  import.reading_.encoding = decoded.encoding;
  import.reading_.replaced_bytes = decoded.replaced_bytes;
  import.reading_.is_picture = IsPicture(contents->view());
  return import;
}

}  // namespace tallyfold
