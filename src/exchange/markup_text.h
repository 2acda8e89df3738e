#pragma once

#include <string_view>

#include "exchange/import_text.h"

namespace tallyfold {

// The text of a file of tags, which names its encoding in its head: "CHARSET:1252" before the first
// tag, or "encoding=" in the XML declaration. Bytes that are valid UTF-8 are read as that whatever
// the head says, since text of another encoding hardly ever is; and where they are no text of what
// it says, they are read as ReadByDefault() does.
[[nodiscard]] ImportText ReadMarkupText(std::string_view bytes, const TextEncodings& encodings);

}  // namespace tallyfold
