#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_options.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/recurrence.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"
#include "model/account_schedule.h"

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
             next < 0 ? "" : WriteDate(next)});
}

void ListSchedules(Console& console, const Arguments& /*arguments*/) {
  const auto account = SelectedAccount(console);
  Table table = ScheduleTable();
  for (const auto& schedule : account->GetSchedules()) AddRow(table, *account, *schedule);
  console.printer.Show(table);
}

EntryKind ReadKind(std::string_view text) {
  if (text == "debit") return EntryKind::Debit;
  if (text == "deposit") return EntryKind::Deposit;
  if (text == "transfer") return EntryKind::Transfer;
  throw CommandError("expected debit, deposit or transfer, not " + Quoted(text));
}

std::int32_t TypeNamed(const EntryTypeList& types, std::string_view name) {
  if (name == "none") return -1;
  std::vector<PopUpItem> items;
  for (const auto& type : types) items.push_back({type->GetName(), type->GetNumber()});
  return items[static_cast<std::size_t>(ItemTitled(items, name, "type"))].tag;
}

void Refuse(const Arguments& arguments, std::string_view option, std::string_view kind) {
  if (!arguments.Has(option)) return;
  throw CommandError(std::string(option) + ": a scheduled " + std::string(kind) + " has none");
}

void ReadOtherAccount(const Console& console, const Arguments& arguments, NewSchedule& values) {
  const auto to = arguments.Text("to");
  const auto from = arguments.Text("from");
  if (to.has_value() == from.has_value()) throw CommandError("expected either to= or from=");
  const auto other = AccountNamed(console, to ? *to : *from);
  if (other == SelectedAccount(console)) {
    throw CommandError("a transfer needs another account than the selected one");
  }
  values.transfer_account = other->GetNumber();
  values.is_transfer_origin = to.has_value();
}

// The options that depend on the kind.
void ReadKindOptions(const Console& console, const Arguments& arguments, NewSchedule& values) {
  const auto account = SelectedAccount(console);
  const auto type = arguments.Text("type");
  switch (values.kind) {
    case EntryKind::Debit:
      Refuse(arguments, "from", "debit");
      values.to_from = arguments.Text("to").value_or("");
      values.is_check = arguments.YesNo("check").value_or(false);
      if (type) values.type = TypeNamed(account->GetDebitTypes(), *type);
      break;
    case EntryKind::Deposit:
      Refuse(arguments, "to", "deposit");
      Refuse(arguments, "check", "deposit");
      values.to_from = arguments.Text("from").value_or("");
      if (type) values.type = TypeNamed(account->GetDepositTypes(), *type);
      break;
    case EntryKind::Transfer:
      for (const std::string_view option : {"type", "check", "split"}) {
        Refuse(arguments, option, "transfer");
      }
      ReadOtherAccount(console, arguments, values);
      break;
  }
}

void AddSchedule(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  NewSchedule values;
  values.kind = ReadKind(arguments.WordAt(0));
  const auto amount = arguments.Amount("amount");
  const auto start = arguments.Date("start");
  const auto repeat = arguments.Text("repeat");
  if (!start) throw CommandError("expected start=");
  if (!repeat) throw CommandError("expected repeat=");
  values.split = ReadSplit(arguments);
  if (amount.has_value() == (values.split != SplitRows())) {
    throw CommandError("expected either amount= or split=");
  }
  values.start = *start;
  values.amount = amount.value_or(0.0);
  const Interval interval = ReadInterval(*repeat);
  values.repeat_interval_type = interval.type;
  values.repeat_interval = interval.every;
  const Until until = ReadUntil(arguments.Text("until").value_or("forever"));
  values.repeat_until_type = until.type;
  values.repeat_until = until.value;
  values.use_preceding_friday = arguments.YesNo("friday").value_or(false);
  values.description = arguments.Text("description").value_or("");
  values.tax_deductible = arguments.YesNo("tax").value_or(false);
  values.notes = arguments.Text("notes").value_or("");
  ReadKindOptions(console, arguments, values);

  const auto schedule = console.controller.Schedule_Add(values);
  if (schedule == nullptr) throw CommandError("the schedule cannot be added");
  Table table = ScheduleTable();
  AddRow(table, *account, *schedule);
  console.printer.Show(table);
}

// --- Due occurrences ----------------------------------------------------------------------------

std::vector<DueOccurrence> DueOccurrences(const Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  return console.controller.Schedules_Due(arguments.Date("through").value_or(TodaysDateNumber()));
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
      date ? console.controller.Schedules_Due(*date) : DueOccurrences(console, arguments);
  std::erase_if(due, [&](const DueOccurrence& occurrence) {
    return (schedule != nullptr && occurrence.schedule != schedule) ||
           (date && occurrence.entry->GetDate() != *date);
  });
  if (due.empty()) {
    throw CommandError("nothing of that is due; schedule due lists what is");
  }
  return due;
}

void CommitDue(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  EntryList entries;
  for (const DueOccurrence& occurrence : NamedOccurrences(console, arguments)) {
    if (!console.controller.Schedule_CommitOccurrence(occurrence)) continue;
    entries.push_back(console.controller.SelectedEntry());
  }
  ShowChangedEntries(console, *account, entries);
}

void SkipDue(Console& console, const Arguments& arguments) {
  const auto due = NamedOccurrences(console, arguments);
  for (const DueOccurrence& occurrence : due) {
    (void)console.controller.Schedule_SkipOccurrence(occurrence);
  }
  console.printer.Confirm("Skipped " + WriteNumber(static_cast<std::int64_t>(due.size())) + ".");
}

constexpr Option kAddOptions[] = {
    {.name = "start", .value = "DATE", .help = "the first day it may fall due"},
    {.name = "repeat", .value = "INTERVAL", .help = kIntervals},
    {.name = "until", .value = "forever|DATE|N times", .help = "when it ends (forever)"},
    {.name = "friday",
     .value = "yes|no",
     .help = "monthly and longer ones move from a weekend to the Friday before (no)"},
    {.name = "amount", .value = "AMOUNT", .help = "such as 12.50"},
    {.name = "to", .value = "TEXT|ACCOUNT", .help = "who is paid; of a transfer the account"},
    {.name = "from", .value = "TEXT|ACCOUNT", .help = "who pays; of a transfer the account"},
    {.name = "description", .value = "TEXT", .help = "what it is for"},
    {.name = "type", .value = "NAME", .help = "a type of the account, or none"},
    {.name = "check", .value = "yes|no", .help = "whether it is paid by check (no)"},
    {.name = "tax", .value = "yes|no", .help = "whether it is tax deductible (no)"},
    {.name = "notes", .value = "TEXT", .help = "anything else"},
    {.name = "split",
     .value = "DESCRIPTION|TO|AMOUNT",
     .help = "one line of a split, up to ten",
     .is_repeatable = true},
};

constexpr Option kDueOptions[] = {
    {.name = "through", .value = "DATE", .help = "the last day that counts (today)"},
};

constexpr Option kCommitOptions[] = {
    {.name = "date", .value = "DATE", .help = "only the occurrence of that day"},
    {.name = "through", .value = "DATE", .help = "the last day that counts (today)"},
};

constexpr Command kCommands[] = {
    {.name = "schedule add",
     .words = "debit|deposit|transfer",
     .least_words = 1,
     .most_words = 1,
     .options = kAddOptions,
     .help = "adds an entry that recurs",
     .example = "schedule add debit start=2026-04-01 repeat=monthly amount=890.00 to=Landlord",
     .run = AddSchedule},
    {.name = "schedule list",
     .help = "lists the scheduled entries of the selected account",
     .example = "schedule list",
     .run = ListSchedules},
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
     .help = "drops due occurrences for good",
     .example = "schedule skip 2 date=2026-04-01",
     .run = SkipDue},
};

}  // namespace

std::span<const Command> ScheduleCommands() {
  return kCommands;
}

}  // namespace tallyfold::console
