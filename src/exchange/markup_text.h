#pragma once

#include <string_view>

#include "exchange/import_text.h"

namespace tallyfold {

// The text of a file of tags that is no UTF-8 (see Utf8Bytes()), whatever its head says: text of
// another encoding hardly ever is. The head names the encoding, by "CHARSET:1252" before the first
// tag, or "encoding=" in the XML declaration; what is no text of that is read as ReadByDefault()
// does.
[[nodiscard]] ImportText ReadMarkupText(std::string_view bytes, const TextEncodings& encodings);

}  // namespace tallyfold
