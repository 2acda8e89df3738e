#pragma once

#include <cstdint>

#include "plist/value.h"

namespace tallyfold {

// Entry types once belonged to the whole application and were kept in its preferences. While such
// old files are upgraded, the preferences put their "types" and "inactiveTypes" here and each
// account without types of its own takes copies. Preferences are therefore upgraded first. One
// dictionary for the whole process, empty at the start.
[[nodiscard]] plist::Dictionary& TypeHandOver();

// How often in this process an account has taken types from there.
[[nodiscard]] std::uint64_t TimesTypesWereTaken() noexcept;
void NoteTypesWereTaken() noexcept;

}  // namespace tallyfold
