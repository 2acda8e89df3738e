#pragma once

#include <string_view>

#include "plist/reader.h"

namespace tallyfold {

// As plist::Read(), with its progress told.
[[nodiscard]] plist::ReadResult ReadTellingProgress(std::string_view bytes);

}  // namespace tallyfold
