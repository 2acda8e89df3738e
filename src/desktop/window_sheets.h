#pragma once

#include <functional>

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::desktop {

class Printers;
class SheetHost;
class UserSettings;

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

// That of printing, which knows beside the application what there is to print on and where choices
// are kept.
void SetUpPrintSheet(SheetHost& host, LDGRController& app, Printers& printers,
                     UserSettings& settings);

}  // namespace tallyfold::desktop
