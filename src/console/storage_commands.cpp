#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "app/controller.h"
#include "app/exchange/export_commands.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/console_panels.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/save_notes.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "platform/ambient.h"
#include "platform/file_system.h"
#include "storage/accounts_store.h"

namespace tallyfold::console {
namespace {

void Save(Console& console, const Arguments& /*arguments*/) {
  if (!console.controller.exports().Save()) throw CommandError(FailedSaveText(console.controller));
  console.printer.Confirm("Saved.");
}

void ListBackups(Console& console, const Arguments& /*arguments*/) {
  Table table(
      {{"name"}, {"made"}, {"accounts", Column::Align::Right}, {"entries", Column::Align::Right}});
  const auto count = [](std::size_t number) {
    return WriteNumber(static_cast<std::int64_t>(number));
  };
  for (const BackupRow& backup : console.controller.backups().Rows()) {
    const CivilTime made = CurrentClock().LocalTime(backup.made);
    const auto& contents = backup.contents;
    table.Add({backup.name, WriteDate(NSCalendarDateToDateNumber(made)),
               contents ? count(contents->accounts) : "unreadable",
               contents ? count(contents->entries) : "unreadable"});
  }
  console.printer.Show(table);
}

void AddDifference(Table& table, const AccountDifference& account) {
  const auto add = [&table](std::string what, const LDGRAccountEntry& entry) {
    table.Add({std::move(what), WriteNumber(entry.GetNumber()), WriteDate(entry.GetDate()),
               entry.GetDescription(), entry.GetToFrom(), WriteAmount(entry.GetAmount())});
  };
  for (const EntryDifference& each : account.entries) {
    switch (each.kind) {
      case EntryDifference::Kind::Added:
        add("added", *each.now);
        break;
      case EntryDifference::Kind::Gone:
        add("gone", *each.then);
        break;
      case EntryDifference::Kind::Changed:
        add("changed", *each.now);
        add("was", *each.then);
        break;
    }
  }
}

void CompareBackup(Console& console, const Arguments& arguments) {
  const std::string& name = arguments.WordAt(0);
  auto& sheet = console.controller.backupsSheet();
  if (!sheet.Open()) throw CommandError("the backups cannot be shown now");
  const auto& rows = sheet.State().rows;
  const auto row = std::ranges::find(rows, name, &BackupsSheetState::Row::name);
  sheet.SelectBackup(row == rows.end() ? -1 : static_cast<std::int32_t>(row - rows.begin()));
  sheet.Compare();
  const auto& comparison = sheet.State().comparison;
  if (!comparison) {
    throw CommandError("there is no backup " + Quoted(name) +
                       " that can be read; backup list shows them");
  }
  if (comparison->is_locked) {
    throw CommandError("the backup " + Quoted(name) + " has a password of its own");
  }
  if (const auto of = arguments.Text("account")) {
    const auto number = AccountNamed(console, *of)->GetNumber();
    Table lines({{"since then"},
                 {"number", Column::Align::Right},
                 {"date"},
                 {"description"},
                 {"to/from"},
                 {"amount", Column::Align::Right}});
    for (const AccountDifference& account : comparison->accounts) {
      if (account.number != number) continue;
      if (account.is_locked) throw CommandError(account.name + " is locked");
      AddDifference(lines, account);
    }
    return console.printer.Show(lines);
  }
  Table table({{"account"},
               {"added", Column::Align::Right},
               {"changed", Column::Align::Right},
               {"gone", Column::Align::Right}});
  const auto count = [](const AccountDifference& account, std::size_t of) {
    return account.is_locked ? "locked" : WriteNumber(static_cast<std::int64_t>(of));
  };
  for (const AccountDifference& each : comparison->accounts) {
    table.Add(
        {each.name, count(each, each.added), count(each, each.changed), count(each, each.gone)});
  }
  console.printer.Show(table);
}

// `unreadable` tells of a file that holds no accounts.
void TellResult(Console& console, AccountsStore::RestoreResult result, const std::string& name,
                const std::string& unreadable) {
  switch (result) {
    case AccountsStore::RestoreResult::Restored:
      console.printer.Confirm("Restored " + name + ".");
      break;
    case AccountsStore::RestoreResult::Declined:
      if (console.questions.AsksPerson()) return console.printer.Confirm("Nothing was restored.");
      throw CommandError("nothing was restored; answer Restore before the command restores it");
    case AccountsStore::RestoreResult::Unreadable:
      throw CommandError(unreadable);
    case AccountsStore::RestoreResult::Failed:
      throw CommandError("nothing was restored; the accounts of now could not be kept" +
                         ReasonOf(console.controller.accountsStore().RestoreFailure()));
    case AccountsStore::RestoreResult::Ended:
      break;
  }
}

void Restore(Console& console, const Arguments& arguments) {
  const std::string& name = arguments.WordAt(0);
  TellResult(console, console.controller.backups().Accounts_RestoreBackup(name), name,
             "there is no backup " + Quoted(name) + " that can be read; backup list shows them");
}

void RestoreFile(Console& console, const Arguments& arguments) {
  const std::string path = AbsolutePath(console.files, arguments.WordAt(0));
  if (console.files.IsFolder(path)) throw CommandError(path + " is a folder");
  if (!console.files.Exists(path)) throw CommandError("there is no file " + path);
  console.panels.Expect(path, [] {});
  const auto result = console.controller.backups().RestoreFromFile();
  if (const std::string problem = console.panels.TakeProblem(); !problem.empty()) {
    throw CommandError(problem);
  }
  if (!result) throw CommandError("nothing can be restored now");
  TellResult(console, *result, arguments.WordAt(0),
             "the file " + path + " holds no accounts that can be read");
}

void BackUpNow(Console& console, const Arguments& /*arguments*/) {
  auto& backups = console.controller.backups();
  if (!backups.BackUpNow()) throw CommandError(backups.State().problem);
  console.printer.Confirm("Kept as " + backups.State().kept + ".");
}

constexpr Option kCompareOptions[] = {
    {.name = "account", .value = "ACCOUNT", .help = "shows the entries themselves of that one"},
};

constexpr Command kStorageCommands[] = {
    {.name = "save",
     .help = "writes the accounts and the preferences to their files now",
     .example = "save",
     .run = Save,
     .writes_own_files = true},
    {.name = "backup list",
     .help =
         "lists the backups and kept copies of the accounts and what they hold, the newest first",
     .example = "backup list",
     .run = ListBackups},
    {.name = "backup compare",
     .words = "BACKUP",
     .least_words = 1,
     .most_words = 1,
     .options = kCompareOptions,
     .help = "tells which entries were added, changed or removed since a backup, by account",
     .example = "backup compare Accounts_3_2_2026_1.0.0 account=Cash",
     .run = CompareBackup},
    {.name = "backup restore",
     .words = "BACKUP",
     .least_words = 1,
     .most_words = 1,
     .help = "puts a backup or kept copy in the place of the accounts, which are kept, after a "
             "question",
     .example = "backup restore Accounts_3_2_2026_1.0.0",
     .answers = "Cancel, Restore",
     .run = Restore,
     .writes_own_files = true},
    {.name = "backup now",
     .help = "saves the accounts and keeps a copy of their file, which backup list shows",
     .example = "backup now",
     .run = BackUpNow,
     .writes_own_files = true},
    {.name = "backup restore-file",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .help = "puts any accounts file or backup in the place of the accounts, which are kept, after "
             "a question",
     .example = "backup restore-file ~/old/Accounts.plist",
     .answers = "Cancel, Restore",
     .run = RestoreFile,
     .writes_own_files = true},
};

}  // namespace

std::span<const Command> StorageCommands() {
  return kStorageCommands;
}

}  // namespace tallyfold::console
