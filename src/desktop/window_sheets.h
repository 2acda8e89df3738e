#pragma once

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::desktop {

class SheetHost;

// Tells the host how each sheet is made. Both must outlive the sheets.
void SetUpSheets(SheetHost& host, LDGRController& app);

}  // namespace tallyfold::desktop
