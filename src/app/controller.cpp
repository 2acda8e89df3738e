#include "app/controller.h"

#include "app/parts.h"

namespace tallyfold {
namespace {

LDGRController* shared_controller = nullptr;

}  // namespace

LDGRController::LDGRController(const Services& services)
    : parts_(std::make_unique<ApplicationParts>(services)) {
  shared_controller = this;
}

LDGRController::~LDGRController() {
  if (shared_controller == this) shared_controller = nullptr;
}

LDGRController* LDGRController::sharedController() noexcept {
  return shared_controller;
}

void LDGRController::SetFrontEnd(FrontEnd* front_end) noexcept {
  parts_->announcer.Set(front_end);
}

void LDGRController::SetWindowHooks(WindowHooks* window) noexcept {
  parts_->window.Set(window);
}

Desk& LDGRController::desk() noexcept {
  return parts_->desk;
}

Ledger& LDGRController::ledger() noexcept {
  return parts_->ledger;
}

Recovery& LDGRController::recovery() noexcept {
  return parts_->recovery;
}

Undo& LDGRController::undo() noexcept {
  return parts_->undo;
}

LDGRApplication& LDGRController::application() noexcept {
  return parts_->application;
}

Lifecycle& LDGRController::lifecycle() noexcept {
  return parts_->lifecycle;
}

ApplicationLock& LDGRController::applicationLock() noexcept {
  return parts_->lock;
}

Saving& LDGRController::saving() noexcept {
  return parts_->saving;
}

BackupsSheet& LDGRController::backupsSheet() noexcept {
  return parts_->backups_sheet;
}

AboutSheet& LDGRController::about() noexcept {
  return parts_->about;
}

BackupsList& LDGRController::backups() noexcept {
  return parts_->backups;
}

IdleWatch& LDGRController::idleWatch() noexcept {
  return parts_->idle;
}

SheetSlot& LDGRController::sheets() noexcept {
  return parts_->sheets;
}

Tabs& LDGRController::tabs() noexcept {
  return parts_->tabs;
}

Menus& LDGRController::menus() noexcept {
  return parts_->menus;
}

TextEditing& LDGRController::textEditing() noexcept {
  return parts_->text_editing;
}

PreferencesSheet& LDGRController::preferencesSheet() noexcept {
  return parts_->preferences_sheet;
}

UpdateCheck& LDGRController::updates() noexcept {
  return parts_->updates;
}

Printing& LDGRController::printing() noexcept {
  return parts_->printing;
}

PrintSheet& LDGRController::printSheet() noexcept {
  return parts_->print_sheet;
}

AccountSelection& LDGRController::selection() noexcept {
  return parts_->selection;
}

AccountEditing& LDGRController::accountSheet() noexcept {
  return parts_->account_editing;
}

AccountRemoval& LDGRController::accountRemoval() noexcept {
  return parts_->account_removal;
}

AccountPasswords& LDGRController::accountPasswords() noexcept {
  return parts_->account_passwords;
}

AccountsDrawer& LDGRController::accountsDrawer() noexcept {
  return parts_->drawer;
}

EntryEditing& LDGRController::entries() noexcept {
  return parts_->editing;
}

EntryRemoval& LDGRController::entryRemoval() noexcept {
  return parts_->removal;
}

EntryReveal& LDGRController::entryReveal() noexcept {
  return parts_->reveal;
}

EntryOrders& LDGRController::entryOrders() noexcept {
  return parts_->orders;
}

TransferLinking& LDGRController::transferLinking() noexcept {
  return parts_->linking;
}

ShownEntries& LDGRController::shownEntries() noexcept {
  return parts_->shown_entries;
}

EntryFind& LDGRController::entryFind() noexcept {
  return parts_->find;
}

DateJump& LDGRController::dateJump() noexcept {
  return parts_->date_jump;
}

TransferLinks& LDGRController::transferLinks() noexcept {
  return parts_->links;
}

AmountFields& LDGRController::amountFields() noexcept {
  return parts_->amount_fields;
}

SchedulesTab& LDGRController::schedules() noexcept {
  return parts_->schedules;
}

ScheduleEditing& LDGRController::scheduleSheet() noexcept {
  return parts_->schedule_editing;
}

ScheduleReminder& LDGRController::reminder() noexcept {
  return parts_->reminder;
}

ScheduleCommit& LDGRController::scheduleCommit() noexcept {
  return parts_->schedule_commit;
}

Registers& LDGRController::registers() noexcept {
  return parts_->registers;
}

RegisterSearch& LDGRController::search() noexcept {
  return parts_->search;
}

StandardFilters& LDGRController::filters() noexcept {
  return parts_->filters;
}

EntrySpeaker& LDGRController::speaker() noexcept {
  return parts_->speaker;
}

BalanceField& LDGRController::balanceField() noexcept {
  return parts_->balance_field;
}

ReconcileTab& LDGRController::reconcileTab() noexcept {
  return parts_->reconcile_tab;
}

AccountSummaryTab& LDGRController::summaries() noexcept {
  return parts_->summary_tab;
}

AccountSummarySheet& LDGRController::summarySheet() noexcept {
  return parts_->summary_sheet;
}

ExportCommands& LDGRController::exports() noexcept {
  return parts_->export_commands;
}

QifImportCommand& LDGRController::importCommand() noexcept {
  return parts_->import_command;
}

LDGRQIFImportController& LDGRController::sharedQIFImportController() noexcept {
  return parts_->import;
}

Refresh& LDGRController::refresh() noexcept {
  return parts_->refresh;
}

AccountsStore& LDGRController::accountsStore() noexcept {
  return parts_->accounts;
}

PreferencesStore& LDGRController::preferencesStore() noexcept {
  return parts_->preferences;
}

}  // namespace tallyfold
