#pragma once

#include <cstddef>
#include <string>

namespace tallyfold {

// "Two scheduled entries are due, three come after."
[[nodiscard]] std::string ReminderSentence(std::size_t due, std::size_t ahead);

}  // namespace tallyfold
