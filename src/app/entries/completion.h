#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"

namespace tallyfold {

// The texts that complete what is typed, ignoring case: first those that begin with it, then those
// that hold it elsewhere, each in the order of the list. All texts for "".
[[nodiscard]] std::vector<std::string> Completions(const TextList& texts, std::string_view typed);

}  // namespace tallyfold
