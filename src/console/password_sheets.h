#pragma once

#include <memory>
#include <string>

#include "console/console.h"

namespace tallyfold {
class LDGRAccount;
}

namespace tallyfold::console {

// The sheets that ask for the application's or an account's password.

// Types the password into the sheet that is open and presses OK. False when it is wrong or no sheet
// is open.
bool GivePassword(Console& console, const std::string& password);

// Brings an open password sheet to its end before anything else is done. A person types the
// password, and cancels with an empty one (which at the application's sheet ends the program). A
// program could have unlocked before: the sheet of an account is cancelled, the application stays
// locked.
void ServePasswordSheet(Console& console);

// The same after an account was to be selected; throws CommandError when it is not.
void RequireSelected(Console& console, const std::shared_ptr<LDGRAccount>& account);

}  // namespace tallyfold::console
