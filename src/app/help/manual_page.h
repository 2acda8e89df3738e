#pragma once

#include <string>
#include <string_view>

namespace tallyfold {

// Text as roff shows it as it stands, on a line of its own.
[[nodiscard]] std::string RoffText(std::string_view text);
// A tagged paragraph: what it is about in bold, and what is said of it.
[[nodiscard]] std::string RoffTagged(std::string_view tag, std::string_view text);

// The manual page tallyfold(1) of the window, in roff for the macros of man, in the texts in force.
[[nodiscard]] std::string WindowManualPage(std::string_view version);

}  // namespace tallyfold
