#pragma once

#include <string>
#include <string_view>

namespace tallyfold {

// Text as records may hold it, for whatever enters from outside (typed, pasted, imported): valid
// UTF-8 without U+FFFE, U+FFFF and control characters other than tab and line ends. Each byte that
// belongs to no valid sequence becomes U+FFFD. Text that is clean already comes back as it is.
[[nodiscard]] std::string CleanText(std::string_view bytes);

}  // namespace tallyfold
