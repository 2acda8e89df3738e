#include "exchange/markup_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "exchange/import_content.h"
#include "model/text.h"

namespace tallyfold {
namespace {

struct EncodingName {
  std::string_view name;  // as it stands, in lower case
  TextEncoding encoding;
};

constexpr EncodingName kEncodingNames[] = {
    {"1252", TextEncoding::Windows1252},
    {"windows-1252", TextEncoding::Windows1252},
    {"cp1252", TextEncoding::Windows1252},
    {"usascii", TextEncoding::Windows1252},
    {"iso-8859-1", TextEncoding::Windows1252},
    {"8859-1", TextEncoding::Windows1252},
    {"iso8859-1", TextEncoding::Windows1252},
    {"latin1", TextEncoding::Windows1252},
    {"iso-8859-15", TextEncoding::Windows1252},
    {"us-ascii", TextEncoding::Windows1252},
    {"1250", TextEncoding::Windows1250},
    {"windows-1250", TextEncoding::Windows1250},
    {"cp1250", TextEncoding::Windows1250},
    {"iso-8859-2", TextEncoding::Latin2},
    {"8859-2", TextEncoding::Latin2},
    {"1251", TextEncoding::Windows1251},
    {"windows-1251", TextEncoding::Windows1251},
    {"cp1251", TextEncoding::Windows1251},
    {"1257", TextEncoding::Windows1257},
    {"windows-1257", TextEncoding::Windows1257},
    {"shift_jis", TextEncoding::ShiftJis},
    {"euc-jp", TextEncoding::EucJp},
};

// The value behind `key` in the head, to the next blank, quote or tag; "" for none.
std::string ValueOf(std::string_view folded_head, std::string_view key) {
  const std::size_t found = folded_head.find(key);
  if (found == std::string_view::npos) return {};
  std::string_view value = folded_head.substr(found + key.size());
  value.remove_prefix(std::min(value.find_first_not_of(" \t\"'=:"), value.size()));
  return std::string(value.substr(0, value.find_first_of(" \t\r\n\"'?<>")));
}

std::optional<TextEncoding> DeclaredEncoding(std::string_view bytes) {
  constexpr std::size_t kHead = 1024;
  const std::string head = FoldCase(bytes.substr(0, kHead));
  for (const std::string_view key : {"charset:", "encoding=", "encoding:"}) {
    const std::string value = ValueOf(head, key);
    for (const EncodingName& each : kEncodingNames) {
      if (value == each.name) return each.encoding;
    }
  }
  return std::nullopt;
}

}  // namespace

ImportText ReadMarkupText(std::string_view bytes, const TextEncodings& encodings) {
  if (const auto wide = WideEncodingOf(bytes)) return ReadInEncoding(bytes, *wide, encodings);
  const auto declared = DeclaredEncoding(bytes);
  return declared ? ReadInEncoding(bytes, *declared, encodings) : ReadByDefault(bytes, encodings);
}

}  // namespace tallyfold
