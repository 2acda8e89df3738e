#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_commit.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedules_tab.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/recurrence.h"
#include "console/schedule_options.h"
#include "console/shown_columns.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "registers/schedule_dates.h"
#include "registers/schedule_list.h"

namespace tallyfold::console {
namespace {

// --- Adding and listing -------------------------------------------------------------------------

Table ScheduleTable() {
  return Table({{"number", Column::Align::Right},
                {"kind"},
                {"start"},
                {"type"},
                {"description"},
                {"to/from"},
                {"amount", Column::Align::Right},
                {"repeat"},
                {"until"},
                {"friday"},
                {"committed", Column::Align::Right},
                {"next"}});
}

void AddRow(Table& table, const LDGRAccount& account, const LDGRAccountSchedule& schedule) {
  const DateNumber next = schedule.NextEntryDate();
  table.Add({WriteNumber(schedule.GetNumber()), KindText(schedule), WriteDate(schedule.GetDate()),
             TypeText(account, schedule), schedule.GetDescription(), schedule.GetToFrom(),
             WriteAmount(schedule.GetAmount()), IntervalText(schedule), UntilText(schedule),
             schedule.GetUsePrecedingFriday() ? "yes" : "",
             WriteNumber(static_cast<std::int64_t>(schedule.GetCommittedDates().size())),
             next < 0 ? "-" : WriteDate(next)});
}

void ShowSchedule(const Console& console, const LDGRAccount& account,
                  const LDGRAccountSchedule& schedule) {
  Table table = ScheduleTable();
  AddRow(table, account, schedule);
  console.printer.Show(table);
}

void ListSchedules(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  Table table = ScheduleTable();
  for (const auto& schedule : account->GetSchedules()) AddRow(table, *account, *schedule);
  console.printer.Show(table);
}

// The list of the window, in its order.
void ShowSchedules(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  static const ShownColumns kShown({{{"next"}, "next"},
                                    {{"repeats"}, "repeats"},
                                    {{"until"}, "until"},
                                    {{"overdue", Column::Align::Right}, "overdue"},
                                    {{"type"}, "type"},
                                    {{"description"}, "description"},
                                    {{"to/from"}, "toFrom"},
                                    {{"amount", Column::Align::Right}, "amount"}},
                                   DefaultScheduleColumns());
  std::vector<Column> columns = {{"number", Column::Align::Right}};
  kShown.AddTo(columns);
  Table table(std::move(columns));
  const TableFormat format{kPlainDays, console.controller.desk().preferences()};
  for (const auto& schedule : console.controller.schedules().Rows().Schedules()) {
    std::vector<std::string> cells = {WriteNumber(schedule->GetNumber())};
    kShown.AddTo(cells, [&](std::string_view column) {
      return CellOfSchedule(account.get(), *schedule, column, format, TodaysDateNumber());
    });
    table.Add(std::move(cells));
  }
  console.printer.Show(table);
}

void ShowDates(Console& console, const Arguments& arguments) {
  const auto schedule = ScheduleNamed(console, arguments.WordAt(0));
  Table table({{"date"}, {"day"}, {"note"}});
  for (const ScheduleDateLine& line : ScheduleDates(*schedule)) {
    table.Add({line.date == 0 ? "-" : WriteDate(line.date), line.text, line.note});
  }
  console.printer.Show(table);
}

void FinishScheduleSheet(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  TypeIntoScheduleSheet(console, arguments);
  if (!console.controller.scheduleSheet().OK()) {
    const auto& problem = console.controller.scheduleSheet().State().problem;
    throw CommandError(problem ? problem->text : "the schedule cannot be stored");
  }
  ShowSchedule(console, *account, *console.controller.desk().SelectedSchedule());
}

void AddSchedule(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  const std::string& kind = arguments.WordAt(0);
  if (kind != "debit" && kind != "deposit" && kind != "transfer") {
    throw CommandError("expected debit, deposit or transfer, not " + Quoted(kind));
  }
  for (const std::string_view option : {"start", "repeat"}) {
    if (!arguments.Has(option)) throw CommandError("expected " + std::string(option) + '=');
  }
  const bool has_split = arguments.Has("split");
  if (arguments.Has("amount") == has_split) throw CommandError("expected either amount= or split=");
  if (kind == "transfer" && arguments.Has("to") == arguments.Has("from")) {
    throw CommandError("expected either to= or from=");
  }
  LDGRController& controller = console.controller;
  const bool is_open = kind == "debit"     ? controller.scheduleSheet().New(EntryKind::Debit)
                       : kind == "deposit" ? controller.scheduleSheet().New(EntryKind::Deposit)
                                           : controller.scheduleSheet().New(EntryKind::Transfer);
  if (!is_open) {
    throw CommandError(kind == "transfer" ? "a transfer needs another account"
                                          : "no schedule can be added now");
  }
  FinishScheduleSheet(console, arguments);
}

void ScheduleFromEntry(Console& console, const Arguments& arguments) {
  SelectEntryNamed(console, arguments.WordAt(0));
  if (!console.controller.scheduleSheet().NewFromEntry()) {
    throw CommandError("no schedule can be made of entry " + arguments.WordAt(0));
  }
  FinishScheduleSheet(console, arguments);
}

// Selects the schedule that the first word names.
std::shared_ptr<LDGRAccountSchedule> Select(Console& console, const Arguments& arguments) {
  auto schedule = ScheduleNamed(console, arguments.WordAt(0));
  console.controller.desk().SelectSchedule(schedule);
  return schedule;
}

void EditSchedule(Console& console, const Arguments& arguments) {
  (void)Select(console, arguments);
  if (!console.controller.scheduleSheet().Edit()) {
    throw CommandError("schedule " + arguments.WordAt(0) + " is of no kind and cannot be edited");
  }
  FinishScheduleSheet(console, arguments);
}

void DuplicateSchedule(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  (void)Select(console, arguments);
  if (!console.controller.schedules().Schedule_Duplicate())
    throw CommandError("it cannot be duplicated now");
  ShowSchedule(console, *account, *console.controller.desk().SelectedSchedule());
}

void RemoveSchedule(Console& console, const Arguments& arguments) {
  static const std::string kButtons[] = {"OK", "Cancel"};
  (void)Select(console, arguments);
  LDGRController& controller = console.controller;
  controller.schedules().ScheduleRemoveConfirm_Begin();
  if (controller.sheets().Current() == Sheet::ScheduleRemoveConfirm) {
    if (console.questions.Ask(controller.schedules().Confirm().question, "", kButtons, 1) != 0) {
      controller.schedules().ScheduleRemoveConfirm_Cancel();
      if (console.questions.AsksPerson()) return console.printer.Confirm("Nothing was removed.");
      throw CommandError("nothing was removed; answer OK before the command removes the schedule");
    }
    controller.schedules().ScheduleRemoveConfirm_OK();
  }
  console.printer.Confirm("Removed schedule " + arguments.WordAt(0) + ".");
}

// --- Due occurrences ----------------------------------------------------------------------------

std::vector<DueOccurrence> DueOccurrences(const Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  return console.controller.scheduleCommit().Due(
      arguments.Date("through").value_or(TodaysDateNumber()));
}

void ListDue(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  Table table({{"schedule", Column::Align::Right},
               {"date"},
               {"type"},
               {"description"},
               {"to/from"},
               {"amount", Column::Align::Right}});
  for (const DueOccurrence& due : DueOccurrences(console, arguments)) {
    table.Add({WriteNumber(due.schedule->GetNumber()), WriteDate(due.entry->GetDate()),
               TypeText(*account, *due.entry), due.entry->GetDescription(), due.entry->GetToFrom(),
               WriteAmount(due.entry->GetAmount())});
  }
  console.printer.Show(table);
}

// The due occurrences that the arguments name: those of one schedule or of all, on one day or on
// any. With a date, what falls due later counts too.
std::vector<DueOccurrence> NamedOccurrences(const Console& console, const Arguments& arguments) {
  const std::string& word = arguments.WordAt(0);
  const auto schedule = word == "all" ? nullptr : ScheduleNamed(console, word);
  const auto date = arguments.Date("date");
  if (date && arguments.Has("through")) throw CommandError("expected date= or through=, not both");
  std::vector<DueOccurrence> due =
      date ? console.controller.scheduleCommit().Due(*date) : DueOccurrences(console, arguments);
  std::erase_if(due, [&](const DueOccurrence& occurrence) {
    return (schedule != nullptr && occurrence.schedule != schedule) ||
           (date && occurrence.entry->GetDate() != *date);
  });
  if (due.empty()) {
    throw CommandError("nothing of that is due; schedule due lists what is");
  }
  return due;
}

// Whether the next occurrence is meant, whenever it falls due.
bool MeansNext(Console& console, const Arguments& arguments) {
  if (!arguments.YesNo("next").value_or(false)) return false;
  if (arguments.Has("date") || arguments.Has("through")) {
    throw CommandError("expected next= or a date, not both");
  }
  (void)Select(console, arguments);
  return true;
}

[[noreturn]] void RefuseNext(const Arguments& arguments) {
  throw CommandError("schedule " + arguments.WordAt(0) + " has no further date");
}

void CommitDue(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const std::size_t before = account->GetEntries().size();
  if (MeansNext(console, arguments)) {
    if (!console.controller.schedules().Schedule_CommitNext()) RefuseNext(arguments);
  } else if (!console.controller.scheduleCommit().CommitAll(NamedOccurrences(console, arguments))) {
    throw CommandError("nothing was committed");
  }
  const EntryList& entries = account->GetEntries();
  ShowChangedEntries(console, account,
                     {entries.begin() + static_cast<std::ptrdiff_t>(before), entries.end()});
}

// False when the user would rather not.
bool ConfirmSkipping(Console& console, const std::vector<DueOccurrence>& due) {
  static const std::string kButtons[] = {"OK", "Cancel"};
  const std::string question = console.controller.scheduleCommit().QuestionBeforeSkipping(due);
  if (console.questions.Ask(question, "", kButtons, 1) == 0) return true;
  if (!console.questions.AsksPerson()) {
    throw CommandError("nothing was skipped; answer OK before the command skips them");
  }
  console.printer.Confirm("Nothing was skipped.");
  return false;
}

void SkipDue(Console& console, const Arguments& arguments) {
  std::size_t count = 1;
  if (MeansNext(console, arguments)) {
    if (!console.controller.schedules().Schedule_SkipNext()) RefuseNext(arguments);
  } else {
    const auto due = NamedOccurrences(console, arguments);
    if (arguments.WordAt(0) == "all" && !ConfirmSkipping(console, due)) return;
    if (!console.controller.scheduleCommit().SkipAll(due))
      throw CommandError("nothing was skipped");
    count = due.size();
  }
  console.printer.Confirm("Skipped " + WriteNumber(static_cast<std::int64_t>(count)) + ".");
}

constexpr Option kDueOptions[] = {
    {.name = "through", .value = "DATE", .help = "the last day that counts (today)"},
};

constexpr Option kCommitOptions[] = {
    {.name = "date", .value = "DATE", .help = "only the occurrence of that day"},
    {.name = "through", .value = "DATE", .help = "the last day that counts (today)"},
    {.name = "next", .value = "yes|no", .help = "the next of one schedule, due or not (no)"},
};

// Tables of options live elsewhere, so this one is made when it is first asked for.
const std::vector<Command>& TableOfCommands() {
  static const std::vector<Command> commands = {
      {.name = "schedules",
       .help = "shows what recurs as the window does: the next date, how often, what is overdue",
       .example = "schedules",
       .run = ShowSchedules},
      {.name = "schedule add",
       .words = "debit|deposit|transfer",
       .least_words = 1,
       .most_words = 1,
       .options = ScheduleOptions(),
       .help = "adds an entry that recurs",
       .example = "schedule add debit start=2026-04-01 repeat=monthly amount=890.00 to=Landlord",
       .run = AddSchedule},
      {.name = "schedule from",
       .words = "ENTRY",
       .least_words = 1,
       .most_words = 1,
       .options = ScheduleOptions(),
       .help = "adds one like an entry, monthly from its day on, which counts as committed",
       .example = "schedule from 12 repeat=weekly",
       .run = ScheduleFromEntry},
      {.name = "schedule edit",
       .words = "SCHEDULE",
       .least_words = 1,
       .most_words = 1,
       .options = ScheduleOptions(),
       .help = "changes a scheduled entry; what was committed of it stays as it is",
       .example = "schedule edit 2 amount=910.00",
       .run = EditSchedule},
      {.name = "schedule duplicate",
       .words = "SCHEDULE",
       .least_words = 1,
       .most_words = 1,
       .help = "adds a copy, of which the same dates count as committed",
       .example = "schedule duplicate 2",
       .run = DuplicateSchedule},
      {.name = "schedule remove",
       .words = "SCHEDULE",
       .least_words = 1,
       .most_words = 1,
       .help = "removes a scheduled entry, after a question (see answer); its entries stay",
       .example = "schedule remove 2",
       .answers = "OK, Cancel",
       .run = RemoveSchedule},
      {.name = "schedule list",
       .help = "lists the scheduled entries of the selected account as schedule add takes them",
       .example = "schedule list",
       .run = ListSchedules},
      {.name = "schedule dates",
       .words = "SCHEDULE",
       .least_words = 1,
       .most_words = 1,
       .help = "shows the next twelve dates, what the weekend moves and what is skipped",
       .example = "schedule dates 2",
       .run = ShowDates},
      {.name = "schedule due",
       .options = kDueOptions,
       .help = "lists the occurrences that have fallen due",
       .example = "schedule due through=2026-04-30",
       .run = ListDue},
      {.name = "schedule commit",
       .words = "SCHEDULE|all",
       .least_words = 1,
       .most_words = 1,
       .options = kCommitOptions,
       .help = "makes entries of due occurrences",
       .example = "schedule commit 2 date=2026-04-01",
       .run = CommitDue},
      {.name = "schedule skip",
       .words = "SCHEDULE|all",
       .least_words = 1,
       .most_words = 1,
       .options = kCommitOptions,
       .help = "drops due occurrences for good; all of them after a question (see answer)",
       .example = "schedule skip 2 date=2026-04-01",
       .answers = "OK, Cancel",
       .run = SkipDue},
  };
  return commands;
}

}  // namespace

std::span<const Command> ScheduleCommands() {
  return TableOfCommands();
}

}  // namespace tallyfold::console
