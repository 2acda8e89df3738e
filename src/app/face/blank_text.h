#pragma once

#include <string_view>

namespace tallyfold {

// Whether a typed text holds nothing but white space, and so is no name.
[[nodiscard]] inline bool IsBlank(std::string_view text) noexcept {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace tallyfold
