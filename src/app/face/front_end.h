#pragma once

#include <cstdint>

namespace tallyfold {

// What a front end shows, in the pieces in which it changes. A front end that hears of an area
// asks the controller for that area's state again.
enum class Area : std::uint8_t {
  Accounts,         // the accounts list
  SelectedAccount,  // which account is selected, and what can be done with one
  WindowTitle,
  AccountMenu,
  Registers,          // rows of both registers
  RegisterColumns,    // columns of both registers
  ScrolledRow,        // the row a register is to make visible
  SelectedEntry,      // the selected row of the current register
  EntryButtons,       // what can be done with the selected entry
  HiddenEntry,        // an entry that the filter hides
  Schedules,          // the schedule list
  ScheduleButtons,    // what can be done with the selected scheduled entry
  Balance,            // the balance below the register
  ReconcileBalances,  // the figures of the reconcile tab
  EntryTypeMenu,
  EntryOrders,      // what became of the last order without a sheet
  TransferLinking,  // what may be linked as a transfer, and what became of it
  EntryFind,        // what was found in all accounts
  DateJump,         // the field for the day to go to
  BackUp,           // what the last backup on order or restored file came to
  History,          // what can be undone and redone
  Recovery,         // what came back after an interruption, and what would be lost now
  Summary,
  Tabs,
  AccountsDrawer,
  Search,       // search fields, and the marks of the filter menu
  Preferences,  // how everything is shown
  Updates,      // the update check
  Sheet,        // which sheet is open
  DebitSheet,
  DepositSheet,
  TransferSheet,
  EntryRemoveSheet,
  TransferEntryRemoveSheet,
  ScheduleSheet,
  ScheduleRemoveSheet,
  ScheduleReminderSheet,
  AccountEditSheet,
  AccountSummarySheet,
  AuthenticationSheet,
  AccountAuthenticationSheet,
  PreferencesSheet,
  ImportOptionsSheet,
  BackupsSheet,
  AboutSheet,
  PrintSheet,
  ImportReview,  // the review of an import: its rows, its total and what can be done
};

// The sheets of the main window. At most one is open at a time.
enum class Sheet : std::uint8_t {
  None,
  Debit,
  Deposit,
  Transfer,
  EntryRemoveConfirm,
  TransferEntryRemoveConfirm,
  Schedule,
  ScheduleRemoveConfirm,
  ScheduleReminder,
  AccountEdit,
  AccountSummary,
  Authentication,
  AccountAuthentication,
  Preferences,
  ImportOptions,
  Backups,
  About,
  Print,
};

// What the application asks of whoever shows it. Each answer given here is that of a program
// without a window.
class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  // The state of `area` has changed: told once an operation, when everything it changes is as it
  // will stay, and before a question to the user. States may be asked; a reference to one is good
  // until the next operation. It must not call operations.
  virtual void Changed([[maybe_unused]] Area area) {}
  // Ends editing in the fields of an open sheet, which may Read() into it. False when a field
  // refuses its text; the operation that asked then changes nothing and the sheet stays open.
  [[nodiscard]] virtual bool EndEditing([[maybe_unused]] Sheet sheet) { return true; }
};

}  // namespace tallyfold
