#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text_encodings.h"

namespace tallyfold {

// What a file is that the user wants to import, told by its content alone.
enum class ImportContent : std::uint8_t {
  // What can be read.
  Qif,
  Ofx,
  Camt,
  Table,
  // What cannot.
  Empty,
  NotText,  // has NUL bytes
  WebPage,
  Archive,               // zip
  ProtectedArchive,      // zip with a password
  Compressed,            // gzip
  Spreadsheet,           // a workbook in a zip
  ProtectedSpreadsheet,  // a workbook with a password
  OldSpreadsheet,        // a binary workbook
  XmlSpreadsheet,        // a workbook as one XML document
  Pdf,
  Picture,
  SwiftStatement,  // MT940 and its like
  OtherXml,
  Foreign,
};

// Linear in the bytes.
[[nodiscard]] ImportContent ContentOf(std::string_view bytes);

// What the user is told of content that cannot be read: what it is and what to do. The English key;
// "" for content that can be read.
[[nodiscard]] std::string_view RefusalOf(ImportContent content) noexcept;

// The encoding of UTF-16 or UTF-32 that the bytes have, by their mark or by where their NUL bytes
// stand; none for anything else.
[[nodiscard]] std::optional<TextEncoding> WideEncodingOf(std::string_view bytes) noexcept;

}  // namespace tallyfold
