#pragma once

#include <functional>

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::desktop {

class SheetHost;

// Tells the host how each sheet is made. Both must outlive the sheets. `open_help` shows the guide.
void SetUpSheets(SheetHost& host, LDGRController& app, const std::function<void()>& open_help);
// Those of the exchange of files; part of SetUpSheets().
void SetUpExchangeSheets(SheetHost& host, LDGRController& app);
// Those of entries and accounts; part of SetUpSheets().
void SetUpEntrySheets(SheetHost& host, LDGRController& app);
// Those of the preferences, the backups and the program itself; part of SetUpSheets().
void SetUpPreferenceSheets(SheetHost& host, LDGRController& app,
                           const std::function<void()>& open_help);
// That of scheduled entries; part of SetUpSheets().
void SetUpScheduleSheets(SheetHost& host, LDGRController& app);

}  // namespace tallyfold::desktop
