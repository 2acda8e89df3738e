#pragma once

#include "app/shell/print_sheet.h"

namespace tallyfold::desktop {

class UserSettings;

// Paper, orientation and what is printed with a register, as they were chosen last; at first on the
// paper that is usual where the user is.
[[nodiscard]] PrintChoices KeptChoices(const UserSettings& settings);
void KeepChoices(const PrintChoices& choices, UserSettings& settings);

}  // namespace tallyfold::desktop
