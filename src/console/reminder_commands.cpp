#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/controller.h"
#include "app/schedules/schedule_reminder.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/entry_table.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

std::string CountText(std::size_t number) {
  return WriteNumber(static_cast<std::int64_t>(number));
}

std::string DatesOf(const ReminderRow& row) {
  if (row.date_is_enabled) return WriteDate(row.typed.date.value_or(kNullDate));
  return CountText(row.days.size()) + " from " + WriteDate(row.days.front()) + " to " +
         WriteDate(row.days.back());
}

void Show(const Console& console) {
  const ScheduleReminderState& state = console.controller.reminder().State();
  Table rows({{"row", Column::Align::Right},
              {"marked"},
              {"schedule", Column::Align::Right},
              {"date"},
              {"when"},
              {"type"},
              {"description"},
              {"to/from"},
              {"amount", Column::Align::Right}});
  for (std::size_t i = 0; i < state.rows.size(); ++i) {
    const ReminderRow& row = state.rows[i];
    rows.Add({CountText(i + 1), row.typed.is_marked ? "yes" : "",
              WriteNumber(row.schedule->GetNumber()), DatesOf(row),
              row.is_ahead ? "to come" : "due", row.type, row.description, row.to_from,
              WriteAmount(row.SignedAmount().value_or(0.0))});
  }
  console.printer.Show(rows);
  Table figures({{"due", Column::Align::Right},
                 {"to come", Column::Align::Right},
                 {"look ahead"},
                 {"balance", Column::Align::Right}});
  figures.Add({CountText(state.due), CountText(state.ahead),
               state.typed.look_ahead + ' ' +
                   state.unit_items[static_cast<std::size_t>(state.typed.look_ahead_unit)].title,
               state.balance ? WriteAmount(*state.balance) : "-"});
  console.printer.Show(figures);
}

// The reminder, opened where it is not open yet.
const ScheduleReminderState& Reminder(Console& console) {
  (void)SelectedAccount(console);
  LDGRController& controller = console.controller;
  if (!controller.reminder().State().is_open && !controller.reminder().Open()) {
    throw CommandError("the reminder cannot be shown now");
  }
  return controller.reminder().State();
}

void Remind(Console& console, const Arguments& /*arguments*/) {
  (void)Reminder(console);
  Show(console);
}

NumberRange RowsNamed(const ScheduleReminderState& state, std::string_view word) {
  if (state.rows.empty()) throw CommandError("there is nothing in the reminder");
  return ReadNumberRange(word, "row", 1, static_cast<std::int32_t>(state.rows.size()));
}

std::size_t RowNamed(const ScheduleReminderState& state, std::string_view word) {
  const NumberRange range = RowsNamed(state, word);
  if (range.first != range.last) throw CommandError("expected one row, not " + Quoted(word));
  return static_cast<std::size_t>(range.first) - 1;
}

std::vector<ReminderRow::Typed> TypedRows(const ScheduleReminderState& state) {
  std::vector<ReminderRow::Typed> typed;
  for (const ReminderRow& row : state.rows) typed.push_back(row.typed);
  return typed;
}

void MarkRows(Console& console, const Arguments& arguments) {
  const ScheduleReminderState& state = Reminder(console);
  const bool is_marked = arguments.YesNo("marked").value_or(true);
  if (arguments.NamesAllRows()) {
    console.controller.reminder().MarkAll(is_marked);
    return Show(console);
  }
  std::vector<ReminderRow::Typed> typed = TypedRows(state);
  for (std::size_t i = 0; i < arguments.WordCount(); ++i) {
    const NumberRange range = RowsNamed(state, arguments.WordAt(i));
    for (std::int32_t row = range.first; row <= range.last; ++row) {
      typed[static_cast<std::size_t>(row) - 1].is_marked = is_marked;
    }
  }
  console.controller.reminder().Read(typed);
  Show(console);
}

void EditRow(Console& console, const Arguments& arguments) {
  const ScheduleReminderState& state = Reminder(console);
  const std::size_t index = RowNamed(state, arguments.WordAt(0));
  const ReminderRow& row = state.rows[index];
  if (arguments.Has("date") && !row.date_is_enabled) {
    throw CommandError("date: the row stands for " + CountText(row.days.size()) + " dates");
  }
  if (arguments.Has("amount") && !row.amount_is_enabled) {
    throw CommandError("amount: the amount of a split is the sum of its lines");
  }
  std::vector<ReminderRow::Typed> typed = TypedRows(state);
  if (const auto date = arguments.Date("date")) typed[index].date = *date;
  if (const auto amount = arguments.Amount("amount")) typed[index].amount = *amount;
  console.controller.reminder().Read(typed);
  Show(console);
}

void LookAhead(Console& console, const Arguments& arguments) {
  const ScheduleReminderState& state = Reminder(console);
  LDGRController& controller = console.controller;
  const std::string& unit = arguments.WordAt(1);
  constexpr std::string_view kUnits[] = {"days", "weeks", "months"};
  auto tag = static_cast<std::int32_t>(state.typed.look_ahead_unit);
  if (!unit.empty()) {
    const auto* const named = std::find(std::begin(kUnits), std::end(kUnits), unit);
    if (named == std::end(kUnits)) {
      throw CommandError("expected days, weeks or months, not " + Quoted(unit));
    }
    tag = static_cast<std::int32_t>(named - std::begin(kUnits));
  }
  const std::int32_t count = ReadNumber(arguments.WordAt(0), "ahead", 0, kMostLookAhead);
  (void)controller.reminder().scheduleReminderSheet_LookAhead(std::to_string(count));
  controller.reminder().LookAheadType(tag);
  Show(console);
}

void ChooseBalance(Console& console, const Arguments& arguments) {
  (void)Reminder(console);
  constexpr std::string_view kModes[] = {"none", "today", "after"};
  const auto* const named = std::find(std::begin(kModes), std::end(kModes), arguments.WordAt(0));
  if (named == std::end(kModes)) {
    throw CommandError("expected none, today or after, not " + Quoted(arguments.WordAt(0)));
  }
  console.controller.reminder().BalanceModeChosen(
      static_cast<std::int32_t>(named - std::begin(kModes)));
  Show(console);
}

[[noreturn]] void Refuse(const Console& console) {
  throw CommandError(TextOf(console.controller.reminder().State().problem));
}

bool MeansAll(const Arguments& arguments) {
  if (arguments.WordCount() == 0) return false;
  if (arguments.WordAt(0) == "all") return true;
  throw CommandError("expected all or nothing, not " + Quoted(arguments.WordAt(0)) +
                     "; remind mark chooses rows");
}

void CommitOccurrence(Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  const bool all = MeansAll(arguments);
  (void)Reminder(console);
  LDGRController& controller = console.controller;
  const std::size_t before = account->GetEntries().size();
  if (all ? !controller.reminder().CommitAll() : !controller.reminder().CommitMarked()) {
    Refuse(console);
  }
  const EntryList& entries = account->GetEntries();
  ShowChangedEntries(console, account,
                     {entries.begin() + static_cast<std::ptrdiff_t>(before), entries.end()});
}

void Skip(Console& console, const Arguments& /*arguments*/) {
  (void)Reminder(console);
  if (!console.controller.reminder().SkipMarked()) Refuse(console);
  if (console.controller.reminder().State().is_open) return Show(console);
  console.printer.Confirm("Nothing is left.");
}

void Later(Console& console, const Arguments& /*arguments*/) {
  (void)Reminder(console);
  console.controller.reminder().Later();
  console.printer.Confirm("What is left is offered again later.");
}

constexpr Option kReminderMarkOptions[] = {
    {.name = "marked", .value = "yes|no", .help = "no takes the mark away again"},
};

constexpr Option kReminderEditOptions[] = {
    {.name = "date", .value = "DATE", .help = "of the entry that is made"},
    {.name = "amount", .value = "AMOUNT", .help = "of the entry that is made, such as 12.50"},
};

constexpr Command kReminderCommands[] = {
    {.name = "remind",
     .help = "shows what is due of the selected account by the look-ahead date; rows that are due "
             "are marked. It stays until another command is given",
     .example = "remind",
     .run = Remind,
     .needs = Needs::Reminder},
    {.name = "remind mark",
     .words = "ROW...|FIRST-LAST|all",
     .least_words = 1,
     .most_words = 100,
     .options = kReminderMarkOptions,
     .help = "marks rows of the reminder",
     .example = "remind mark 3 5-7",
     .run = MarkRows,
     .needs = Needs::Reminder},
    {.name = "remind edit",
     .words = "ROW",
     .least_words = 1,
     .most_words = 1,
     .options = kReminderEditOptions,
     .help = "changes the entry that a row is going to make",
     .example = "remind edit 1 amount=31.05",
     .run = EditRow,
     .needs = Needs::Reminder},
    {.name = "remind ahead",
     .words = "NUMBER [days|weeks|months]",
     .least_words = 1,
     .most_words = 2,
     .help = "sets how far the reminder looks ahead",
     .example = "remind ahead 2 weeks",
     .run = LookAhead,
     .needs = Needs::Reminder},
    {.name = "remind balance",
     .words = "none|today|after",
     .least_words = 1,
     .most_words = 1,
     .help = "chooses the balance that the reminder shows; after: with what is marked",
     .example = "remind balance after",
     .run = ChooseBalance,
     .needs = Needs::Reminder},
    {.name = "remind commit",
     .words = "[all]",
     .most_words = 1,
     .help = "makes entries of the marked rows, or of all",
     .example = "remind commit",
     .run = CommitOccurrence,
     .needs = Needs::Reminder},
    {.name = "remind skip",
     .help = "drops what the marked rows stand for, for good",
     .example = "remind skip",
     .run = Skip,
     .needs = Needs::Reminder},
    {.name = "remind later",
     .help = "closes the reminder; it offers what is left again later",
     .example = "remind later",
     .run = Later,
     .needs = Needs::Reminder},
};

}  // namespace

std::span<const Command> ReminderCommands() {
  return kReminderCommands;
}

}  // namespace tallyfold::console
