#pragma once

#include <limits>

namespace tallyfold::desktop {

// For QLineEdit::setMaxLength(): the toolkit cuts longer texts than 32,767 characters, pasted and
// stored ones alike, and says nothing.
inline constexpr int kAnyLength = std::numeric_limits<int>::max();

}  // namespace tallyfold::desktop
