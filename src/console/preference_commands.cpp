#include "app/controller.h"
#include "app/desk.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/update_check.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/console_host.h"
#include "console/preference_texts.h"
#include "console/printer.h"
#include "console/table.h"
#include "storage/preferences.h"

namespace tallyfold::console {
namespace {

Table PreferenceTable() {
  return Table({{"name"}, {"value"}, {"takes"}});
}

void AddRow(Table& table, const Console& console, std::string_view name) {
  table.Add({std::string(name), PreferenceText(console.controller.desk().preferences(), name),
             ExpectedOfPreference(name)});
}

void ListPreferences(Console& console, const Arguments& /*arguments*/) {
  Table table = PreferenceTable();
  for (const auto& field : LDGRPreferences::Fields()) {
    if (!ExpectedOfPreference(field.key).empty()) AddRow(table, console, field.key);
  }
  console.printer.Show(table);
}

void OpenSheet(const Console& console) {
  if (console.controller.preferencesSheet().Open()) return;
  throw CommandError("the preferences cannot be changed now");
}

void PressOK(const Console& console) {
  if (!console.controller.preferencesSheet().OK()) {
    throw CommandError("the preferences were not taken");
  }
}

void SetPreference(Console& console, const Arguments& arguments) {
  const std::string& name = arguments.WordAt(0);
  const std::string expected = ExpectedOfPreference(name);
  if (expected.empty()) {
    throw CommandError("there is no preference " + Quoted(name) + "; preferences lists them");
  }
  OpenSheet(console);
  if (!console.controller.preferencesSheet().Read(name,
                                                  PreferenceValue(name, arguments.WordAt(1)))) {
    throw CommandError(name + ": expected " + expected + ", not " + Quoted(arguments.WordAt(1)));
  }
  PressOK(console);
  Table table = PreferenceTable();
  AddRow(table, console, name);
  console.printer.Show(table);
}

void ResetAppearance(Console& console, const Arguments& /*arguments*/) {
  OpenSheet(console);
  console.controller.preferencesSheet().DefaultAppearanceSettings();
  PressOK(console);
  console.printer.Confirm("Dates, amounts, debits and deposits look as they first did.");
}

std::string StatusText(UpdateState::Status status) {
  switch (status) {
    case UpdateState::Status::NotChecked:
      return "not checked";
    case UpdateState::Status::NoAddress:
      return "this program was built without an address to ask";
    case UpdateState::Status::Checking:
      return "checking";
    case UpdateState::Status::UpToDate:
      return "up to date";
    case UpdateState::Status::NewerVersion:
      return "there is a newer version";
    case UpdateState::Status::NoAnswer:
      break;
  }
  return "no answer";
}

void CheckForUpdates(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  if (arguments.WordCount() > 0 && arguments.WordAt(0) != "again") {
    throw CommandError("expected updates [again]");
  }
  // What was learnt is told until somebody asks again.
  if (arguments.WordCount() > 0 ||
      controller.updates().State().status == UpdateState::Status::NotChecked) {
    controller.updates().CheckForUpdates();
  }
  Table table({{"version"}, {"latest"}, {"state"}});
  table.Add({console.host.BundleVersion(), controller.updates().State().latest_version,
             StatusText(controller.updates().State().status)});
  console.printer.Show(table);
}

constexpr Command kPreferenceCommands[] = {
    {.name = "preferences",
     .help = "lists every preference, what it is and what it takes",
     .example = "preferences",
     .run = ListPreferences},
    {.name = "preference",
     .words = "NAME VALUE",
     .least_words = 2,
     .most_words = 2,
     .help = "sets a preference",
     .example = "preference dateFormat long",
     .run = SetPreference,
     .writes_own_files = true},
    {.name = "preferences reset",
     .help = "gives dates, amounts and the colours of debits and deposits their plain look again",
     .example = "preferences reset",
     .run = ResetAppearance,
     .writes_own_files = true},
    {.name = "updates",
     .words = "[again]",
     .most_words = 1,
     .help = "asks whether there is a newer version, and tells what is known so far",
     .example = "updates",
     .run = CheckForUpdates},
};

}  // namespace

std::span<const Command> PreferenceCommands() {
  return kPreferenceCommands;
}

}  // namespace tallyfold::console
