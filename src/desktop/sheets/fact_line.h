#pragma once

#include <string>
#include <string_view>

namespace tallyfold::desktop {

// What may stand within a sentence, as one that begins a line.
[[nodiscard]] std::string FactLine(std::string_view text);

}  // namespace tallyfold::desktop
