#pragma once

namespace tallyfold {

class Alerts;

// Asks before an entry that the bank's statement has confirmed gets another amount, day or kind.
// False where it is to stay as it is.
[[nodiscard]] bool AgreesToChangeResolved(Alerts& alerts);

}  // namespace tallyfold
