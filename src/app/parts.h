#pragma once

#include "app/account_answers.h"
#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_removal.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/desk.h"
#include "app/entries/amount_fields.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/entry_reveal.h"
#include "app/entries/transfer_linking.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"
#include "app/register_answers.h"
#include "app/schedules/schedule_commit.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/menus.h"
#include "app/shell/modal_watch.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/print_sheet.h"
#include "app/shell/printing.h"
#include "app/shell/recovery.h"
#include "app/shell/saving.h"
#include "app/shell/tabs.h"
#include "app/shell/text_editing.h"
#include "app/shell/undo.h"
#include "app/shell/update_check.h"
#include "app/shell_answers.h"
#include "app/storage_answers.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "filters/register_search.h"
#include "filters/standard_filters.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "registers/entry_speaker.h"
#include "storage/accounts_store.h"
#include "storage/data_folder_lock.h"
#include "storage/preferences_store.h"
#include "storage/save_gate.h"

namespace tallyfold {

struct Services;

// The parts of the application, each made of those it needs. For who puts them together and for the
// answers to what they ask of parts above them; everybody else is handed what he needs.
struct ApplicationParts {
  explicit ApplicationParts(const Services& services);
  ApplicationParts(const ApplicationParts&) = delete;
  ApplicationParts& operator=(const ApplicationParts&) = delete;

  StorageAnswers storage_answers{*this};
  AccountAnswers account_answers{*this};
  RegisterAnswers register_answers{*this};
  ShellAnswers shell_answers{*this};

  Announcer announcer;
  WindowHooksSlot window;
  ModalWatch modal;
  LDGRApplication application;
  SheetSlot sheets{announcer};
  SaveGate gate;
  DataFolderLock data_lock;
  AccountsStore accounts;
  PreferencesStore preferences;
  Desk desk{accounts};
  Saving saving{accounts, preferences};
  Refresh refresh;
  EntrySpeaker speaker;
  Ledger ledger{accounts};
  Recovery recovery;
  TransferLinks links{accounts};
  AccountSelection selection;
  AccountEditing account_editing;
  AccountPasswords account_passwords;
  AccountRemoval account_removal;
  AccountsDrawer drawer;
  EntryEditing editing;
  EntryRemoval removal;
  EntryReveal reveal;
  EntryOrders orders;
  TransferLinking linking;
  AmountFields amount_fields;
  ScheduleCommit schedule_commit;
  SchedulesTab schedules;
  ScheduleEditing schedule_editing;
  ScheduleReminder reminder;
  Registers registers;
  StandardFilters filters;
  RegisterSearch search;
  ShownEntries shown_entries;
  EntryFind find;
  DateJump date_jump;
  BalanceField balance_field;
  ReconcileTab reconcile_tab;
  AccountSummaryTab summary_tab;
  AccountSummarySheet summary_sheet;
  ApplicationLock lock;
  BackupsList backups;
  BackupsSheet backups_sheet;
  AboutSheet about;
  PreferencesSheet preferences_sheet;
  UpdateCheck updates;
  Menus menus;
  Tabs tabs;
  Undo undo;
  Printing printing;
  PrintSheet print_sheet;
  IdleWatch idle;
  TextEditing text_editing;
  ExportCommands export_commands;
  LDGRQIFImportController import;
  QifImportCommand import_command;
  // Last: what it brings up must be there.
  Lifecycle lifecycle;
};

}  // namespace tallyfold
