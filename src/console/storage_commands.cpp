#include <filesystem>
#include <string>
#include <system_error>

#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/table.h"
#include "console/values.h"
#include "platform/ambient.h"
#include "platform/file_system.h"

namespace tallyfold::console {
namespace {

// "~/" is the home folder; a path without a slash in front begins at the current folder.
std::string AbsolutePath(const Console& console, const std::string& typed) {
  if (typed.empty()) throw CommandError("expected a path that is not empty");
  if (typed.starts_with("~/")) return console.files.HomeFolder() + typed.substr(1);
  std::error_code error;
  const auto path = std::filesystem::absolute(typed, error);
  if (error) throw CommandError("the current folder is gone; give the whole path");
  return path.string();
}

void Save(Console& console, const Arguments& /*arguments*/) {
  if (!console.controller.Accounts_Save()) throw CommandError("the accounts could not be saved");
  console.printer.Confirm("Saved.");
}

void SaveAs(Console& console, const Arguments& arguments) {
  static const std::string kButtons[] = {"Replace", "Cancel"};
  const std::string path = AbsolutePath(console, arguments.WordAt(0));
  if (console.files.IsFolder(path)) throw CommandError(path + " is a folder");
  if (console.files.Exists(path) &&
      console.questions.Ask(path + " exists already. Replace it?", "", kButtons, 1) != 0) {
    if (console.questions.AsksPerson()) return console.printer.Confirm("Nothing was saved.");
    throw CommandError("nothing was saved; answer Replace before the command replaces the file");
  }
  if (!console.controller.Accounts_SaveToFilePath(path)) {
    throw CommandError(path + " could not be written");
  }
  console.printer.Confirm("Saved as " + path + ".");
}

void ListBackups(Console& console, const Arguments& /*arguments*/) {
  Table table({{"name"}, {"made"}});
  for (const BackupFile& backup : console.controller.accountsStore().Backups()) {
    const CivilTime made = CurrentClock().LocalTime(backup.made);
    table.Add({backup.name, WriteDate(NSCalendarDateToDateNumber(made))});
  }
  console.printer.Show(table);
}

void Restore(Console& console, const Arguments& arguments) {
  const std::string& name = arguments.WordAt(0);
  switch (console.controller.Accounts_RestoreBackup(name)) {
    case AccountsStore::RestoreResult::Restored:
      console.printer.Confirm("Restored " + name + ".");
      break;
    case AccountsStore::RestoreResult::Declined:
      if (console.questions.AsksPerson()) return console.printer.Confirm("Nothing was restored.");
      throw CommandError("nothing was restored; answer Restore before the command restores it");
    case AccountsStore::RestoreResult::Unreadable:
      throw CommandError("there is no backup " + Quoted(name) +
                         " that can be read; backups lists them");
    case AccountsStore::RestoreResult::Failed:
      throw CommandError("nothing was restored; the accounts of now could not be kept");
    case AccountsStore::RestoreResult::Ended:
      break;
  }
}

constexpr Command kCommands[] = {
    {.name = "save",
     .help = "writes the accounts to their file now",
     .example = "save",
     .run = Save},
    {.name = "saveas",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .help = "writes the accounts to another file; asks before it replaces one (see answer)",
     .example = "saveas \"~/Documents/Accounts 2026.plist\"",
     .run = SaveAs},
    {.name = "backups",
     .help = "lists the backups of the accounts file, the newest first",
     .example = "backups",
     .run = ListBackups},
    {.name = "restore",
     .words = "BACKUP",
     .least_words = 1,
     .most_words = 1,
     .help = "puts a backup in the place of the accounts, which are kept, after a question",
     .example = "restore Accounts_3_2_2026_1.0.0",
     .run = Restore},
};

}  // namespace

std::span<const Command> StorageCommands() {
  return kCommands;
}

}  // namespace tallyfold::console
