#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "console/console.h"
#include "filters/filter.h"

namespace tallyfold::console {

// What the selected account keeps as the filter of the register that commands act on: the one the
// window shows or, beside another tab, showed last.
struct RegisterFilter {
  std::int32_t type = 0;
  std::string text;
  std::shared_ptr<LDGRFilter> filter;
};

// Throws CommandError without a selected account.
[[nodiscard]] RegisterFilter FilterInForce(const Console& console);

// Throws CommandError in the name of `command` when the window shows another tab than a register.
void RequireShownRegister(const Console& console, std::string_view command);

}  // namespace tallyfold::console
