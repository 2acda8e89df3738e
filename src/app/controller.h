#pragma once

#include <memory>

namespace tallyfold {

class AboutSheet;
class AccountEditing;
class AccountPasswords;
class AccountRemoval;
class AccountSelection;
class AccountSummarySheet;
class AccountSummaryTab;
class AccountsDrawer;
class AccountsStore;
class AmountFields;
class ApplicationLock;
class BackupsList;
class BackupsSheet;
class BalanceField;
class DateJump;
class Desk;
class EntryEditing;
class EntryFind;
class EntryOrders;
class EntryRemoval;
class EntryReveal;
class EntrySpeaker;
class ExportCommands;
class FrontEnd;
class IdleWatch;
class LDGRApplication;
class LDGRQIFImportController;
class Ledger;
class Lifecycle;
class WindowHooks;
class Menus;
class PreferencesSheet;
class PreferencesStore;
class PrintSheet;
class Printing;
class QifImportCommand;
class Recovery;
class ReconcileTab;
class Refresh;
class RegisterSearch;
class Registers;
class Saving;
class ScheduleCommit;
class ScheduleEditing;
class ScheduleReminder;
class SchedulesTab;
class SheetSlot;
class ShownEntries;
class StandardFilters;
class Tabs;
class TextEditing;
class TransferLinking;
class TransferLinks;
class Undo;
class UpdateCheck;
struct ApplicationParts;
struct Services;

// The application: puts its parts together and hands them out. What can be done, and what a front
// end shows of it, stands in the header of each part; front ends and tests drive the same parts.
//
// Everything runs on the main thread. Operations are not reentrant.
class LDGRController {
 public:
  // The services must outlive the controller, which becomes the sharedController().
  explicit LDGRController(const Services& services);
  LDGRController(const LDGRController&) = delete;
  LDGRController& operator=(const LDGRController&) = delete;
  ~LDGRController();

  // The one that was made last, as long as it lives; else null.
  [[nodiscard]] static LDGRController* sharedController() noexcept;

  // Who shows the application; null (as at first) for nobody. Both must outlive their stay here.
  void SetFrontEnd(FrontEnd* front_end) noexcept;
  void SetWindowHooks(WindowHooks* window) noexcept;

  // What nearly every part asks: the accounts, the preferences and what is selected.
  [[nodiscard]] Desk& desk() noexcept;

  // The door for changes of the accounts, and what has gone through it.
  [[nodiscard]] Ledger& ledger() noexcept;
  [[nodiscard]] Undo& undo() noexcept;
  [[nodiscard]] Recovery& recovery() noexcept;

  // Launch, end, locks and the frame around the tabs.
  [[nodiscard]] LDGRApplication& application() noexcept;
  [[nodiscard]] Lifecycle& lifecycle() noexcept;
  [[nodiscard]] ApplicationLock& applicationLock() noexcept;
  [[nodiscard]] IdleWatch& idleWatch() noexcept;
  [[nodiscard]] SheetSlot& sheets() noexcept;
  [[nodiscard]] Tabs& tabs() noexcept;
  [[nodiscard]] Menus& menus() noexcept;
  [[nodiscard]] TextEditing& textEditing() noexcept;
  [[nodiscard]] PreferencesSheet& preferencesSheet() noexcept;
  [[nodiscard]] UpdateCheck& updates() noexcept;
  [[nodiscard]] AboutSheet& about() noexcept;
  [[nodiscard]] Printing& printing() noexcept;
  [[nodiscard]] PrintSheet& printSheet() noexcept;

  // The two files and their backups.
  [[nodiscard]] AccountsStore& accountsStore() noexcept;
  [[nodiscard]] PreferencesStore& preferencesStore() noexcept;
  [[nodiscard]] Saving& saving() noexcept;
  [[nodiscard]] BackupsList& backups() noexcept;
  [[nodiscard]] BackupsSheet& backupsSheet() noexcept;

  // Accounts.
  [[nodiscard]] AccountSelection& selection() noexcept;
  [[nodiscard]] AccountEditing& accountSheet() noexcept;
  [[nodiscard]] AccountRemoval& accountRemoval() noexcept;
  [[nodiscard]] AccountPasswords& accountPasswords() noexcept;
  [[nodiscard]] AccountsDrawer& accountsDrawer() noexcept;

  // Entries.
  [[nodiscard]] EntryEditing& entries() noexcept;
  [[nodiscard]] EntryRemoval& entryRemoval() noexcept;
  [[nodiscard]] EntryReveal& entryReveal() noexcept;
  [[nodiscard]] EntryOrders& entryOrders() noexcept;
  [[nodiscard]] TransferLinking& transferLinking() noexcept;
  [[nodiscard]] TransferLinks& transferLinks() noexcept;
  [[nodiscard]] AmountFields& amountFields() noexcept;

  // Scheduled entries.
  [[nodiscard]] SchedulesTab& schedules() noexcept;
  [[nodiscard]] ScheduleEditing& scheduleSheet() noexcept;
  [[nodiscard]] ScheduleReminder& reminder() noexcept;
  [[nodiscard]] ScheduleCommit& scheduleCommit() noexcept;

  // What is shown of an account.
  [[nodiscard]] Registers& registers() noexcept;
  [[nodiscard]] RegisterSearch& search() noexcept;
  [[nodiscard]] ShownEntries& shownEntries() noexcept;
  [[nodiscard]] EntryFind& entryFind() noexcept;
  [[nodiscard]] DateJump& dateJump() noexcept;
  [[nodiscard]] StandardFilters& filters() noexcept;
  [[nodiscard]] EntrySpeaker& speaker() noexcept;
  [[nodiscard]] BalanceField& balanceField() noexcept;
  [[nodiscard]] ReconcileTab& reconcileTab() noexcept;
  [[nodiscard]] AccountSummaryTab& summaries() noexcept;
  [[nodiscard]] AccountSummarySheet& summarySheet() noexcept;
  [[nodiscard]] Refresh& refresh() noexcept;

  // Files that come and go.
  [[nodiscard]] ExportCommands& exports() noexcept;
  [[nodiscard]] QifImportCommand& importCommand() noexcept;
  [[nodiscard]] LDGRQIFImportController& sharedQIFImportController() noexcept;

 private:
  std::unique_ptr<ApplicationParts> parts_;
};

}  // namespace tallyfold
