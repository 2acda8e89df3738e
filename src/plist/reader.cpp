#include "plist/reader.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "plist/document_reader.h"
#include "plist/utf16.h"
#include "plist/utf8.h"

namespace tallyfold::plist {
namespace {

std::size_t LineAt(std::string_view text, std::size_t position) {
  std::size_t line = 1;
  for (std::size_t i = 0; i < position; ++i) {
    const bool is_first_of_two = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\n' || (text[i] == '\r' && !is_first_of_two)) ++line;
  }
  return line;
}

ReadResult Refusal(std::string_view message, std::string_view text, std::size_t position,
                   std::vector<std::string> details = {}) {
  ReadResult result;
  result.error = message;
  result.details = std::move(details);
  result.line = LineAt(text, position);
  return result;
}

// The encoding that a document declares at its start; "" for none.
std::string_view DeclaredEncoding(std::string_view text) {
  constexpr std::string_view kStart = "<?xml ";
  constexpr std::string_view kEncoding = " encoding";
  if (!text.starts_with(kStart)) return {};
  std::string_view rest = text.substr(0, std::min(text.find('>'), text.size()));
  rest.remove_prefix(std::min(rest.find(kEncoding), rest.size()));
  // What follows the name can only be "=" and the quoted text.
  const std::size_t start = rest.find_first_of("\"'");
  if (start == std::string_view::npos) return {};
  const std::string_view value = rest.substr(start + 1);
  return value.substr(0, std::min(value.find(rest[start]), value.size()));
}

bool IsReadable(std::string_view encoding) {
  constexpr std::string_view kReadable[] = {"", "UTF-8", "UTF-16", "US-ASCII"};
  const auto is_same = [encoding](std::string_view name) {
    return std::equal(encoding.begin(), encoding.end(), name.begin(), name.end(),
                      [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 32 : a) == b; });
  };
  return std::any_of(std::begin(kReadable), std::end(kReadable), is_same);
}

// `text` has no byte-order mark.
ReadResult ReadUtf8(std::string_view text, const ReadTold& told) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    return Refusal("a file of more than 4 GiB", text, 0);
  }
  if (const std::string_view encoding = DeclaredEncoding(text); !IsReadable(encoding)) {
    constexpr std::size_t kLongestName = 40;
    return Refusal("the encoding \"{1}\"", text, 0,
                   {ToValidUtf8(encoding.substr(0, kLongestName))});
  }
  const std::size_t valid = ValidUtf8Prefix(text);
  if (valid != text.size()) return Refusal("bytes that are not UTF-8", text, valid);
  DocumentReader reader(text, told);
  if (!reader.Read()) {
    const XmlScanner::Failure& failure = reader.failure();
    return Refusal(failure.message, text, failure.position, failure.details);
  }
  ReadResult result;
  result.ok = true;
  result.value = reader.TakeValue();
  return result;
}

ReadResult ReadUtf16(std::string_view bytes, ByteOrder order, const ReadTold& told) {
  const Utf8Text converted = Utf16ToUtf8(bytes, order);
  if (!converted.is_valid) {
    return Refusal("bytes that are not UTF-16", converted.text, converted.text.size());
  }
  return ReadUtf8(converted.text, told);
}

}  // namespace

ReadResult Read(std::string_view bytes, const ReadTold& told) {
  if (bytes.starts_with("bplist")) return Refusal("a binary property list", bytes, 0);
  if (bytes.starts_with("\xFE\xFF")) return ReadUtf16(bytes.substr(2), ByteOrder::BigEndian, told);
  if (bytes.starts_with("\xFF\xFE"))
    return ReadUtf16(bytes.substr(2), ByteOrder::LittleEndian, told);
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  return ReadUtf8(bytes, told);
}

}  // namespace tallyfold::plist
