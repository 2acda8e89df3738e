#pragma once

#include "plist/value.h"

namespace tallyfold {

// Entry types once belonged to the whole application and were kept in its preferences. While such
// old files are upgraded, the preferences put their "types" and "inactiveTypes" here and each
// account without types of its own takes copies. Preferences are therefore upgraded first. One
// dictionary for the whole process, empty at the start.
[[nodiscard]] plist::Dictionary& TypeHandOver();

}  // namespace tallyfold
