#pragma once

#include <span>
#include <string>
#include <string_view>

#include "console/command.h"

namespace tallyfold::console {

// How a line may be written, beside its command: what help and the manual page tell of it.
struct LineRule {
  std::string_view written = {};
  std::string_view means = {};
};
[[nodiscard]] std::span<const LineRule> LineRules();

// What `--help` answers.
[[nodiscard]] std::string UsageText();

// The manual page tallyfold-console(1), in roff for the macros of man.
[[nodiscard]] std::string ManualPage(std::span<const Subject> subjects, std::string_view version);

}  // namespace tallyfold::console
