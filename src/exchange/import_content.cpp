#include "exchange/import_content.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "exchange/import_file_kind.h"
#include "model/text.h"

namespace tallyfold {
namespace {

// What a file is shows in its beginning.
constexpr std::size_t kLookedAt = 64 * 1024;
constexpr std::string_view kTextBlanks = " \t\r\n\v\f";

constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kEmptyZip = "PK\x05\x06";
constexpr std::string_view kCompound = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

std::string_view WithoutBlanks(std::string_view text) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(kTextBlanks), text.size()));
  return text;
}

bool HasStart(std::string_view text, std::string_view start) noexcept {
  return CompareIgnoringCase(text.substr(0, start.size()), start) == 0;
}

ImportContent ContentOfZip(std::string_view bytes) noexcept {
  constexpr std::size_t kFlags = 6;
  const bool is_protected = bytes.size() > kFlags && (bytes[kFlags] & 1) != 0;
  const std::string_view start = bytes.substr(0, kLookedAt);
  const auto has = [start](std::string_view name) {
    return start.find(name) != std::string_view::npos;
  };
  if (has("[Content_Types].xml") || has("opendocument.spreadsheet") || has("xl/")) {
    return ImportContent::Spreadsheet;
  }
  return is_protected ? ImportContent::ProtectedArchive : ImportContent::Archive;
}

// The names in such a file are written in UTF-16.
ImportContent ContentOfCompound(std::string_view bytes) {
  constexpr std::string_view kName = "EncryptedPackage";
  std::string wide;
  for (const char letter : kName) {
    wide += letter;
    wide += '\0';
  }
  return bytes.find(wide) != std::string_view::npos ? ImportContent::ProtectedSpreadsheet
                                                    : ImportContent::OldSpreadsheet;
}

// The beginning of a text, by its bytes of ASCII.
std::string Narrowed(std::string_view bytes, bool is_wide) {
  std::string text(bytes.substr(0, kLookedAt));
  if (is_wide) std::erase(text, '\0');
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (text.starts_with(mark)) text.erase(0, mark.size());
  }
  return text;
}

// The name of the first tag, in lower case and without its prefix, behind instructions and
// comments; "" for none. "!doctype html" is "html".
std::string FirstTag(std::string_view text) {
  for (;;) {
    text = WithoutBlanks(text);
    if (!text.starts_with('<')) return {};
    std::string_view end;
    if (text.starts_with("<!--")) {
      end = "-->";
    } else if (text.starts_with("<?")) {
      end = "?>";
    } else if (HasStart(text, "<!doctype html")) {
      return "html";
    } else if (text.starts_with("<!")) {
      // A document type may hold declarations of its own.
      const std::size_t first = text.find_first_of("[>");
      end = first != std::string_view::npos && text[first] == '[' ? "]>" : ">";
    } else {
      break;
    }
    const std::size_t found = text.find(end);
    if (found == std::string_view::npos) return {};
    text.remove_prefix(found + end.size());
  }
  text = text.substr(1, text.find_first_of(" \t\r\n/>", 1) - 1);
  text.remove_prefix(text.rfind(':') + 1);
  return FoldCase(text);
}

ImportContent ContentOfMarkup(std::string_view text, const std::string& tag) {
  constexpr std::array<std::string_view, 12> kOfPages = {"html", "head",   "body",   "table",
                                                         "div",  "meta",   "script", "title",
                                                         "form", "center", "style",  "p"};
  if (std::find(kOfPages.begin(), kOfPages.end(), tag) != kOfPages.end()) {
    return ImportContent::WebPage;
  }
  if (tag == "ofx") return ImportContent::Ofx;
  if (text.find("BkToCstmr") != std::string_view::npos ||
      text.find("camt.05") != std::string_view::npos) {
    return ImportContent::Camt;
  }
  if (tag == "workbook") return ImportContent::XmlSpreadsheet;
  return ImportContent::OtherXml;
}

bool HasQifHeader(std::string_view text) {
  constexpr std::array<std::string_view, 4> kHeaders = {"!Type:", "!Account",
                                                        "!Option:", "!Clear:"};
  for (std::size_t found = text.find('!'); found != std::string_view::npos;
       found = text.find('!', found + 1)) {
    if (found > 0 && text[found - 1] != '\n' && text[found - 1] != '\r') continue;
    const std::string_view line = text.substr(found);
    if (std::any_of(kHeaders.begin(), kHeaders.end(),
                    [line](std::string_view header) { return HasStart(line, header); })) {
      return true;
    }
  }
  return false;
}

// A line that begins with "^" ends a record.
bool HasRecordEnd(std::string_view text) {
  for (std::size_t found = text.find('^'); found != std::string_view::npos;
       found = text.find('^', found + 1)) {
    if (found > 0 && text[found - 1] != '\n' && text[found - 1] != '\r') continue;
    if (found + 1 == text.size() || kTextBlanks.find(text[found + 1]) != std::string_view::npos) {
      return true;
    }
  }
  return false;
}

// Some lines have two separators of a kind, or most have one.
bool LooksLikeTable(std::string_view text) {
  constexpr std::string_view kSeparators = ",;\t|";
  constexpr std::size_t kMostLines = 200;
  std::array<std::size_t, kSeparators.size()> wide_rows{};
  std::array<std::size_t, kSeparators.size()> rows{};
  std::size_t lines = 0;
  for (; lines < kMostLines; ++lines) {
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    if (text.empty()) break;
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    text.remove_prefix(line.size());
    for (std::size_t i = 0; i < kSeparators.size(); ++i) {
      const auto found = std::count(line.begin(), line.end(), kSeparators[i]);
      if (found >= 2) ++wide_rows[i];
      if (found >= 1) ++rows[i];
    }
  }
  const std::size_t widest = *std::max_element(wide_rows.begin(), wide_rows.end());
  const std::size_t most = *std::max_element(rows.begin(), rows.end());
  return widest >= 3 || (lines > 0 && (widest * 2 >= lines || most * 4 >= lines * 3));
}

bool IsSwiftStatement(std::string_view text) {
  return text.starts_with("{1:F01") || text.starts_with(":20:") || text.starts_with(":25:") ||
         text.starts_with(":940:");
}

}  // namespace

std::optional<TextEncoding> WideEncodingOf(std::string_view bytes) noexcept {
  if (bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4)) ||
      bytes.starts_with(std::string_view("\0\0\xFE\xFF", 4))) {
    return TextEncoding::Utf32;
  }
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return TextEncoding::Utf16;
  const std::string_view start = bytes.substr(0, 4096);
  if (start.size() < 4) return std::nullopt;
  std::array<std::size_t, 2> nuls{};
  for (std::size_t i = 0; i < start.size(); ++i) {
    if (start[i] == '\0') ++nuls[i % 2];
  }
  // Most letters of these files have a high byte of 0, and nothing has a low one of 0.
  const std::size_t half = start.size() / 2;
  if (nuls[0] == 0 && nuls[1] * 5 >= half * 2) return TextEncoding::Utf16LittleEndian;
  if (nuls[1] == 0 && nuls[0] * 5 >= half * 2) return TextEncoding::Utf16BigEndian;
  return std::nullopt;
}

ImportContent ContentOf(std::string_view bytes) {
  if (bytes.starts_with(kZip) || bytes.starts_with(kEmptyZip)) return ContentOfZip(bytes);
  if (bytes.starts_with(kCompound)) return ContentOfCompound(bytes);
  if (bytes.starts_with("%PDF")) return ImportContent::Pdf;
  if (bytes.starts_with("\x1F\x8B")) return ImportContent::Compressed;
  if (IsPicture(bytes)) return ImportContent::Picture;

  const bool is_wide = WideEncodingOf(bytes).has_value();
  const std::string start = Narrowed(bytes, is_wide);
  const std::string_view text = WithoutBlanks(start);
  if (text.empty() && bytes.size() <= kLookedAt) return ImportContent::Empty;
  if (HasQifHeader(text) || HasRecordEnd(is_wide ? start : bytes)) {
    return ImportContent::Qif;
  }
  if (!is_wide && bytes.find('\0') != std::string_view::npos) return ImportContent::NotText;
  const std::string tag = FirstTag(text);
  if (!tag.empty()) return ContentOfMarkup(text, tag);
  if (HasStart(text, "OFXHEADER")) return ImportContent::Ofx;
  if (CaselessNeedle("<ofx>").OccursIn(text)) return ImportContent::Ofx;
  if (IsSwiftStatement(text)) return ImportContent::SwiftStatement;
  if (LooksLikeTable(text)) return ImportContent::Table;
  // A record of QIF may end in the middle of a line.
  return bytes.find('^') != std::string_view::npos ? ImportContent::Qif : ImportContent::Foreign;
}

std::string_view RefusalOf(ImportContent content) noexcept {
  switch (content) {
    case ImportContent::Qif:
    case ImportContent::Ofx:
    case ImportContent::Camt:
    case ImportContent::Table:
      return "";
    case ImportContent::Empty:
      return "the file is empty; download it again";
    case ImportContent::NotText:
      return "the file holds bytes that no text has; download it again, as CSV, OFX, CAMT or QIF";
    case ImportContent::WebPage:
      return "the file is a web page (HTML), whatever its name says; the bank may have logged you "
             "out, or offers another kind of download: CSV, OFX, CAMT or QIF";
    case ImportContent::Archive:
      return "the file is a zip archive; unpack it and import the files in it";
    case ImportContent::ProtectedArchive:
      return "the file is a zip archive with a password; unpack it with the password and import "
             "the files in it";
    case ImportContent::Compressed:
      return "the file is compressed (gzip); unpack it and import what comes out";
    case ImportContent::Spreadsheet:
      return "the file is a spreadsheet; open it, save it as CSV and import that";
    case ImportContent::ProtectedSpreadsheet:
      return "the file is a spreadsheet with a password; open it with the password, save it as CSV "
             "and import that";
    case ImportContent::OldSpreadsheet:
      return "the file is a spreadsheet or document of an older kind; open it, save it as CSV and "
             "import that";
    case ImportContent::XmlSpreadsheet:
      return "the file is a spreadsheet (XML); open it, save it as CSV and import that";
    case ImportContent::Pdf:
      return "the file is a printed statement (PDF); ask the bank for CSV, OFX, CAMT or QIF";
    case ImportContent::Picture:
      return "the file is a picture; ask the bank for CSV, OFX, CAMT or QIF";
    case ImportContent::SwiftStatement:
      return "the file is a SWIFT statement (MT940); ask the bank for CAMT, OFX or CSV";
    case ImportContent::OtherXml:
      return "the file is XML, but neither OFX nor a CAMT statement; nothing in it can be imported";
    case ImportContent::Foreign:
      return "the file is neither QIF nor OFX, CAMT or a table; nothing in it can be imported";
  }
  return "";
}

}  // namespace tallyfold
