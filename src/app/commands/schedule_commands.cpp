#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "ledger/due_occurrences.h"
#include "model/account_schedule.h"
#include "registers/entry_speaker.h"

namespace tallyfold::command_tables {
namespace {

bool HasOtherAccount(LDGRController& app) {
  return HasAccount(app) && app.desk().accounts().size() > 1;
}
bool CanBeScheduled(LDGRController& app) {
  if (!HasEntry(app)) return false;
  const auto entry = app.desk().SelectedEntry();
  return entry->IsDebit() || entry->IsDeposit() || (entry->IsTransfer() && HasOtherAccount(app));
}
bool HasScheduleWithSheet(LDGRController& app) {
  if (!HasSchedule(app)) return false;
  const auto schedule = app.desk().SelectedSchedule();
  return schedule->IsDebit() || schedule->IsDeposit() || schedule->IsTransfer();
}
bool HasNextOccurrence(LDGRController& app) {
  return HasSchedule(app) && NextDayToCommit(*app.desk().SelectedSchedule()) != -1;
}
bool ScheduleSheetIsOpen(LDGRController& app) {
  return app.scheduleSheet().State().is_open;
}
bool AsksToRemoveSchedule(LDGRController& app) {
  return app.schedules().Confirm().is_open;
}
bool ReminderIsOpen(LDGRController& app) {
  return app.reminder().State().is_open;
}

constexpr Command kScheduleCommands[] = {
    {.name = "Schedule_Debit",
     .title = "New Scheduled Debit...",
     .shortcut = "Ctrl+Alt+D",
     .menu = Menu::Schedule,
     .controls = "schedule_Debit_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { app.scheduleSheet().New(EntryKind::Debit); }},
    {.name = "Schedule_Deposit",
     .title = "New Scheduled Deposit...",
     .shortcut = "Ctrl+Alt++",
     .menu = Menu::Schedule,
     .controls = "schedule_Deposit_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { app.scheduleSheet().New(EntryKind::Deposit); }},
    {.name = "Schedule_Transfer",
     .title = "New Scheduled Transfer...",
     .shortcut = "Ctrl+Alt+T",
     .menu = Menu::Schedule,
     .controls = "schedule_Transfer_MenuItem",
     .can = HasOtherAccount,
     .run = [](LDGRController& app) { app.scheduleSheet().New(EntryKind::Transfer); }},
    {.name = "Schedule_FromEntry",
     .title = "Make Schedule from Entry...",
     .menu = Menu::Entry,
     .can = CanBeScheduled,
     .run = [](LDGRController& app) { app.scheduleSheet().NewFromEntry(); }},
    {.name = "Schedule_Edit",
     .title = "Edit Schedule...",
     .menu = Menu::Schedule,
     .can = HasScheduleWithSheet,
     .run = [](LDGRController& app) { app.scheduleSheet().Edit(); }},
    {.name = "Schedule_Duplicate",
     .title = "Duplicate Schedule",
     .menu = Menu::Schedule,
     .can = HasSchedule,
     .run = [](LDGRController& app) { app.schedules().Schedule_Duplicate(); }},
    {.name = "ScheduleRemoveConfirm_Begin",
     .title = "Remove Schedule",
     .menu = Menu::Schedule,
     .can = HasSchedule,
     .run = [](LDGRController& app) { app.schedules().ScheduleRemoveConfirm_Begin(); }},
    {.name = "Schedule_CommitNext",
     .title = "Commit Next",
     .menu = Menu::Schedule,
     .can = HasNextOccurrence,
     .run = [](LDGRController& app) { app.schedules().Schedule_CommitNext(); }},
    {.name = "Schedule_SkipNext",
     .title = "Skip Next",
     .menu = Menu::Schedule,
     .can = HasNextOccurrence,
     .run = [](LDGRController& app) { app.schedules().Schedule_SkipNext(); }},
    {.name = "Schedule_Speak",
     .title = "Speak Scheduled Entry",
     .menu = Menu::Schedule,
     .can = HasSchedule,
     .run =
         [](LDGRController& app) {
           app.speaker().SpeakEntry(app.desk().SelectedSchedule().get());
         }},
    {.name = "ScheduleReminderSheet_Open",
     .title = "Show What Is Due...",
     .menu = Menu::Schedule,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.reminder().Open(); }},
    {.name = "ScheduleSheet_OK",
     .can = ScheduleSheetIsOpen,
     .run = [](LDGRController& app) { app.scheduleSheet().OK(); }},
    {.name = "ScheduleSheet_Cancel",
     .can = ScheduleSheetIsOpen,
     .run = [](LDGRController& app) { app.scheduleSheet().Cancel(); }},
    {.name = "ScheduleRemoveConfirm_OK",
     .can = AsksToRemoveSchedule,
     .run = [](LDGRController& app) { app.schedules().ScheduleRemoveConfirm_OK(); }},
    {.name = "ScheduleRemoveConfirm_Cancel",
     .can = AsksToRemoveSchedule,
     .run = [](LDGRController& app) { app.schedules().ScheduleRemoveConfirm_Cancel(); }},
    {.name = "ScheduleReminderSheet_Commit",
     .can = ReminderIsOpen,
     .run = [](LDGRController& app) { app.reminder().CommitMarked(); }},
    {.name = "ScheduleReminderSheet_CommitAll",
     .can = ReminderIsOpen,
     .run = [](LDGRController& app) { app.reminder().CommitAll(); }},
    {.name = "ScheduleReminderSheet_Skip",
     .can = ReminderIsOpen,
     .run = [](LDGRController& app) { app.reminder().SkipMarked(); }},
    {.name = "ScheduleReminderSheet_Later",
     .can = ReminderIsOpen,
     .run = [](LDGRController& app) { app.reminder().Later(); }},
};

}  // namespace

std::span<const Command> Schedule() {
  return kScheduleCommands;
}

}  // namespace tallyfold::command_tables
