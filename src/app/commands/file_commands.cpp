#include "app/accounts/account_selection.h"
#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/print_sheet.h"
#include "app/shell/printing.h"
#include "app/shell/undo.h"
#include "app/shell/update_check.h"
#include "app/views/entry_find.h"

namespace tallyfold::command_tables {
namespace {

bool HasPassword(LDGRController& app) {
  return IsFree(app) && !app.applicationLock().password().empty();
}
bool Always(LDGRController& /*app*/) {
  return true;
}
bool UpdateWindowIsOpen(LDGRController& app) {
  return app.updates().State().window_is_open;
}
bool BackupsAreOpen(LDGRController& app) {
  return app.backupsSheet().State().is_open;
}
bool BackupCanBeRestored(LDGRController& app) {
  return app.backupsSheet().State().restore_is_enabled;
}
bool AsksForPassword(LDGRController& app) {
  return app.applicationLock().State().is_open;
}
bool ApplicationPasswordIsRight(LDGRController& app) {
  return AsksForPassword(app) && app.applicationLock().State().ok_is_enabled;
}
bool PreferencesAreOpen(LDGRController& app) {
  return app.preferencesSheet().State().is_open;
}
bool ImportOptionsAreOpen(LDGRController& app) {
  return app.sharedQIFImportController().Options().is_open;
}
bool CanPrint(LDGRController& app) {
  return HasAccount(app) && app.printing().CanPrint(app.printing().KindShown());
}
bool IsReviewing(LDGRController& app) {
  return app.sharedQIFImportController().IsReviewing() && app.sheets().IsFree();
}
bool HasReviewedEntry(LDGRController& app) {
  return IsReviewing(app) &&
         app.sharedQIFImportController().tableDataSource().GetSelectedEntry() != nullptr;
}

bool HasMatch(LDGRController& app) {
  return HasReviewedEntry(app) && app.sharedQIFImportController().Review().can_match;
}

bool HasMarkedUndated(LDGRController& app) {
  return IsReviewing(app) && app.sharedQIFImportController().Review().marked_undated > 0;
}

constexpr Command kFileCommands[] = {
    {.name = "QIFImport",
     .title = "Import...",
     .shortcut = "Ctrl+I",
     .menu = Menu::File,
     .controls = "QIFImport_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { static_cast<void>(app.importCommand().QIFImport()); }},
    {.name = "ExportQIF",
     .title = "Export QIF...",
     .menu = Menu::File,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.exports().ExportQIF(); }},
    {.name = "ExportText",
     .title = "Export Text...",
     .menu = Menu::File,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.exports().ExportText(); }},
    {.name = "Save",
     .title = "Save",
     .shortcut = "Ctrl+S",
     .menu = Menu::File,
     .can = IsFree,
     .run = [](LDGRController& app) { app.exports().Save(); }},
    {.name = "SaveAs",
     .title = "Save As...",
     .shortcut = "Ctrl+Shift+S",
     .menu = Menu::File,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.exports().SaveAs(); }},
    {.name = "Print_Open",
     .title = "Print...",
     .shortcut = "Ctrl+P",
     .menu = Menu::File,
     .can = CanPrint,
     .run = [](LDGRController& app) { app.printSheet().Open(); }},
    {.name = "Print_Close",
     .can = [](LDGRController& app) { return app.printSheet().State().is_open; },
     .run = [](LDGRController& app) { app.printSheet().Close(); }},
    {.name = "BackUpNow",
     .title = "Back Up Now",
     .menu = Menu::File,
     .can = IsFree,
     .run = [](LDGRController& app) { app.backups().BackUpNow(); }},
    {.name = "Backups_Open",
     .title = "Backups...",
     .menu = Menu::File,
     .can = IsFree,
     .run = [](LDGRController& app) { app.backupsSheet().Open(); }},
    {.name = "Backups_Close",
     .can = BackupsAreOpen,
     .run = [](LDGRController& app) { app.backupsSheet().Close(); }},
    {.name = "Backups_Restore",
     .can = BackupCanBeRestored,
     .run = [](LDGRController& app) { app.backupsSheet().Restore(); }},
    {.name = "RestoreFromFile",
     .title = "Restore From File...",
     .menu = Menu::File,
     .can = IsFree,
     .run = [](LDGRController& app) { app.backups().RestoreFromFile(); }},
    {.name = "lock",
     .title = "Lock",
     .shortcut = "Ctrl+L",
     .menu = Menu::File,
     .controls = "lock_MenuItem",
     .can = HasPassword,
     .run = [](LDGRController& app) { app.applicationLock().lock(); }},
    {.name = "Quit",
     .title = "Quit",
     .shortcut = "Ctrl+Q",
     .menu = Menu::File,
     .controls = "quit_MenuItem",
     .can = Always,
     .run = [](LDGRController& app) { app.lifecycle().Quit(); }},
    // The titles with the name of the step are the undo's.
    {.name = "Undo",
     .title = "Undo",
     .shortcut = "Ctrl+Z",
     .menu = Menu::Edit,
     .can = [](LDGRController& app) { return app.undo().CanUndo(); },
     .run = [](LDGRController& app) { app.undo().UndoStep(); }},
    {.name = "Redo",
     .title = "Redo",
     .shortcut = "Ctrl+Shift+Z",
     .menu = Menu::Edit,
     .can = [](LDGRController& app) { return app.undo().CanRedo(); },
     .run = [](LDGRController& app) { app.undo().RedoStep(); }},
    {.name = "EntryFind_Open",
     .title = "Find in All Accounts...",
     .shortcut = "Ctrl+Shift+F",
     .menu = Menu::Edit,
     .can = IsFree,
     .run = [](LDGRController& app) { app.entryFind().Open(); }},
    {.name = "EntryFind_Close",
     .can = [](LDGRController& app) { return app.entryFind().State().is_open; },
     .run = [](LDGRController& app) { app.entryFind().Close(); }},
    {.name = "PreferencesSheet_Open",
     .title = "Preferences...",
     .shortcut = "Ctrl+,",
     .menu = Menu::Edit,
     .can = IsFree,
     .run = [](LDGRController& app) { app.preferencesSheet().Open(); }},
    {.name = "CheckForUpdates",
     .title = "Check for Updates...",
     .menu = Menu::Help,
     .can = IsFree,
     .run = [](LDGRController& app) { app.updates().CheckForUpdates(); }},
    {.name = "About_Open",
     .title = "About Tallyfold",
     .menu = Menu::Help,
     .can = IsFree,
     .run = [](LDGRController& app) { app.about().Open(); }},
    {.name = "About_Close",
     .can = [](LDGRController& app) { return app.about().State().is_open; },
     .run = [](LDGRController& app) { app.about().Close(); }},
    {.name = "UpdateWindow_Close",
     .can = UpdateWindowIsOpen,
     .run = [](LDGRController& app) { app.updates().CloseWindow(); }},
    {.name = "authenticationSheet_OK",
     .can = ApplicationPasswordIsRight,
     .run = [](LDGRController& app) { app.applicationLock().OK(); }},
    {.name = "authenticationSheet_Cancel",
     .can = AsksForPassword,
     .run = [](LDGRController& app) { app.applicationLock().Cancel(); }},
    {.name = "PreferencesSheet_OK",
     .can = PreferencesAreOpen,
     .run = [](LDGRController& app) { app.preferencesSheet().OK(); }},
    {.name = "PreferencesSheet_Cancel",
     .can = PreferencesAreOpen,
     .run = [](LDGRController& app) { app.preferencesSheet().Cancel(); }},
    {.name = "ImportOptions_OK",
     .can = ImportOptionsAreOpen,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportOptions_OK(); }},
    {.name = "ImportOptions_Cancel",
     .can = ImportOptionsAreOpen,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportOptions_Cancel(); }},
    {.name = "ImportEntry_Import",
     .can = HasReviewedEntry,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_Import(); }},
    {.name = "ImportEntry_Change",
     .can = HasReviewedEntry,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_Change(); }},
    {.name = "ImportEntry_Remove",
     .can = HasReviewedEntry,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_Remove(); }},
    {.name = "ImportEntry_Resolve",
     .can = HasReviewedEntry,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_Resolve(); }},
    {.name = "ImportEntry_Match",
     .can = HasMatch,
     .run = [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_Match(); }},
    {.name = "ImportEntry_UnmarkUndated",
     .can = HasMarkedUndated,
     .run =
         [](LDGRController& app) { app.sharedQIFImportController().ImportEntry_UnmarkUndated(); }},
    {.name = "import_OK_Button",
     .can = IsReviewing,
     .run = [](LDGRController& app) { app.sharedQIFImportController().import_OK_Button(); }},
    {.name = "import_Cancel_Button",
     .can = IsReviewing,
     .run = [](LDGRController& app) { app.sharedQIFImportController().import_Cancel_Button(); }},
    {.name = "import_GoBack_Button",
     .can = IsReviewing,
     .run = [](LDGRController& app) { app.sharedQIFImportController().import_GoBack_Button(); }},
};

}  // namespace

std::span<const Command> File() {
  return kFileCommands;
}

}  // namespace tallyfold::command_tables
