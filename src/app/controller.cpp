#include "app/controller.h"

#include <utility>

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
#include "app/schedules/schedule_commit.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/services.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/menus.h"
#include "app/shell/modal_watch.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/printing.h"
#include "app/shell/recovery.h"
#include "app/shell/saving.h"
#include "app/shell/tabs.h"
#include "app/shell/text_editing.h"
#include "app/shell/undo.h"
#include "app/shell/update_check.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"
#include "filters/standard_filters.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "registers/entry_speaker.h"
#include "storage/accounts_store.h"
#include "storage/data_folder_lock.h"
#include "storage/preferences_store.h"
#include "storage/save_gate.h"

namespace tallyfold {
namespace {

LDGRController* shared_controller = nullptr;

}  // namespace

// The parts, each made of those it needs, and the answers to what they ask of those above them.
struct LDGRController::Parts final : private AccountsStore::Host,
                                     private PreferencesStore::Host,
                                     private Refresh::Host,
                                     private AccountSelection::Host,
                                     private EntryReveal::Host,
                                     private ShownEntries::Host,
                                     private DateJump::Host,
                                     private AccountSummaryTab::Host,
                                     private LDGRQIFImportController::Host,
                                     private PreferencesSheet::Host,
                                     private RegisterSearch::Host,
                                     private EntrySpeaker::Host,
                                     private IdleWatch::Host,
                                     private Lifecycle::Host {
  explicit Parts(const Services& services);

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
  PreferencesSheet preferences_sheet;
  UpdateCheck updates;
  Menus menus;
  Tabs tabs;
  Undo undo;
  Printing printing;
  IdleWatch idle;
  TextEditing text_editing;
  ExportCommands export_commands;
  LDGRQIFImportController import;
  QifImportCommand import_command;
  // Last: what it brings up must be there.
  Lifecycle lifecycle;

 private:
  // --- Accounts and their selection ---
  void ForgetSelectedAccount() override {
    ledger.history().Clear();
    announcer.Changed(Area::History);
    registers.ShowAccount(nullptr);
    schedules.ShowAccount(nullptr);
    search.Clear();
    selection.Forget();
    account_passwords.Forget();
    reveal.Forget();
    orders.Forget();
    linking.Forget();
    find.Forget();
  }
  bool Account_Add() override { return account_editing.Account_Add(); }
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) override {
    account_passwords.Account_Authenticate(account);
  }
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) override {
    selection.Account_Select(account);
  }
  void ShowSummary() override { summary_tab.Show(); }
  void ShowInTables(const std::shared_ptr<LDGRAccount>& account) override {
    reveal.Forget();
    registers.ShowAccount(account);
    schedules.ShowAccount(account);
    announcer.Changed(Area::Schedules);
    refresh.ReconcileTab_UpdateBalances();
  }
  void FillCurrentRegister() override {
    tabs.FillCurrentRegister();
    if (registers.CurrentKind() == RegisterKind::Reconcile) {
      refresh.ReconcileTab_UpdateBalances();
    } else {
      refresh.AccountBalance_Field_Update();
    }
  }
  void ClearSearch() override { search.Clear(); }
  void SettleRecovery() override { recovery.Settle(); }
  void ReplaceScheduleReminderTimer() override { idle.ReplaceScheduleReminderTimer(); }

  // --- What is stored of the tables ---
  std::optional<LiveTable> TableShown(std::string_view identifier) override {
    if (identifier == "schedule") return LiveTableOf(schedules.Table());
    return registers.TableShown(identifier);
  }
  const LDGRAccount* AccountShown() override { return desk.SelectedAccount().get(); }
  std::int32_t BalanceMode() override { return static_cast<std::int32_t>(balance_field.Mode()); }
  bool AccountsHoldUnsavedTypes() override { return accounts.HoldsUnsavedTypes(); }
  float AccountsDrawerWidth() override { return desk.preferences().GetAccountsDrawerWidth(); }
  std::int32_t AccountsDrawerPreferredEdge() override {
    return desk.preferences().GetAccountsDrawerPreferredEdge();
  }

  // --- Rows of the registers ---
  bool LiveUpdatingFilters() const override { return desk.preferences().GetLiveUpdatingFilters(); }
  RegisterKind ShownRegister() const override { return tabs.ShownRegister(); }
  LDGRAccountTableViewData* CurrentRegister() override { return &registers.Current(); }
  void ReloadShownRegister() override {
    reveal.Forget();
    registers.Reload(ShownRegister());
  }
  void ReloadRegisters() override {
    reveal.Forget();
    registers.Reload();
  }
  void TakeSavedEntries(const EntryList& entries) override { registers.TakeSavedEntries(entries); }
  void RedrawRegisters() override { registers.Redraw(); }
  void ReloadAccountsList() override { drawer.Reload(); }
  void ReloadSchedules() override { schedules.Rows().Reload(); }
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) override {
    desk.SelectEntry(entry);
  }
  // No account is loaded yet: the registers show the columns of the one that is going to be shown.
  void SetUpRegisters() override {
    amount_fields.SetSpeak(desk.preferences().GetSpeakEntryAmounts());
    balance_field.AccountBalance_PopUp_Populate(desk.preferences().GetBalanceMode());
    registers.UpdateDateFormat();
    schedules.UpdateDateFormat();
    registers.ShowColumnsOf(desk.preferences().GetSelectedAccountNumber());
  }

  // --- Entries out of sight, and the search ---
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) override {
    using Reason = EntryReveal::Reason;
    reveal.TellIfHidden(entry, is_new ? Reason::Added : Reason::Changed);
  }
  bool IsShown(const LDGRAccountEntry* entry) const override {
    return registers.Current().EntryToRow(entry).has_value();
  }
  std::shared_ptr<LDGRFilter> CurrentFilter() const override {
    const auto account = desk.SelectedAccount();
    if (account == nullptr) return nullptr;
    return registers.CurrentKind() == RegisterKind::Reconcile ? account->reconcileFilter()
                                                              : account->entryFilter();
  }
  void ShowRegister() override {
    const bool is_reconcile = registers.CurrentKind() == RegisterKind::Reconcile;
    tabs.Select(is_reconcile ? Tab::Reconcile : Tab::Entry);
  }
  void ShowAllEntries() override {
    ShowRegister();
    search.Filter_Select(filter_type::kGeneral);
  }
  void AsOne(const std::function<void()>& steps) override {
    const Announcer::Operation operation(announcer);
    // A filter is no step to be undone, but part of what the file holds.
    Change change(ledger);
    if (const auto account = desk.SelectedAccount()) change.EditSettings(account);
    steps();
    change.Close();
  }
  void AsKeystroke(const std::function<void()>& steps) override {
    const Announcer::Operation operation(announcer);
    Change change(ledger);
    if (const auto account = desk.SelectedAccount()) change.EditSettings(account);
    change.WriteLater();
    steps();
    change.Close();
  }
  void Search_Cancel() override { search.Search_Cancel(); }
  void SearchStateChanged() override { announcer.Changed(Area::Search); }
  void FocusSearchField() override { window->FocusSearchField(); }
  void UpdateEntryDependentButtons() override { refresh.EntryButtons_Update(); }
  void UpdateBalanceField() override { refresh.AccountBalance_Field_Update(); }

  // --- The idle watch ---
  std::optional<std::chrono::milliseconds> TimeSinceLastEvent() const override {
    return application.TimeSinceLastEvent();
  }
  void DayChanged() override {
    filters.Filters_DateFilters_Update();
    refresh.DayChanged();
    reminder.DayChanged();
  }
  bool SheetIsOpen() const override { return !sheets.IsFree(); }
  bool ModalWindowIsUp() const override { return modal.IsUp() || window->UserIsTracking(); }
  bool AccountsWantSaving() const override {
    return desk.IsUnlocked() && selection.HasPostLoaded() && accounts.HasUnsavedChanges();
  }
  bool Accounts_Save() override { return saving.Accounts_Save(); }
  bool SchedulesCanBeEvaluated() const override {
    return desk.IsUnlocked() && desk.SelectedAccount() != nullptr;
  }
  void OfferDueOccurrences(bool by_timer) override { reminder.OfferDueOccurrences(by_timer); }

  // --- Speech ---
  void StopSpeech() override { speaker.StopSpeech(); }
  bool RegisterWindowIsMain() const override { return window->IsMain(); }
  float PauseBetweenSpokenEntries() const override {
    return desk.preferences().GetPauseBetweenSpokenEntries();
  }

  // --- The rest ---
  void ImportEnded() override { import_command.Ended(); }
  void CloseMainWindow() override { window->Close(); }
  void PreferencesChanged() override {
    window->updateTableFonts();
    window->UpdateTableRowHeights();
    balance_field.AccountBalance_PopUp_Populate(desk.preferences().GetBalanceMode());
    amount_fields.SetSpeak(desk.preferences().GetSpeakEntryAmounts());
    registers.UpdateDateFormat();
    schedules.UpdateDateFormat();
    if (desk.preferences().GetShowAccountsDrawer() != drawer.State().is_open) {
      drawer.ToggleAccountsDrawer();
    }
    announcer.Changed(Area::Preferences);
    refresh.AccountsChanged();
  }
};

LDGRController::Parts::Parts(const Services& services)
    : modal(services.alerts, services.panels, announcer),
      application(services.notifications, services.loop),
      data_lock(services.files, modal, services.host),
      accounts({services.files, modal, services.host, services.processes}, gate, data_lock, *this),
      preferences({services.files, services.host, services.processes}, gate, *this),
      refresh(*this, announcer),
      speaker(services.loop, services.speech, *this),
      recovery(services.files, ledger, announcer),
      selection(*this, desk, preferences, window, refresh, announcer),
      account_editing(desk, ledger, selection, links, sheets, refresh, announcer),
      account_passwords(desk, selection, preferences, sheets, window, refresh, announcer),
      account_removal(desk, ledger, links, selection, account_passwords, modal, sheets, refresh,
                      announcer),
      drawer(desk, selection, account_editing, refresh, announcer),
      editing(desk, ledger, links, sheets, refresh, announcer),
      removal(desk, ledger, links, sheets, refresh, announcer),
      reveal(*this, desk, sheets, links, announcer),
      orders(desk, ledger, links, sheets, refresh, announcer),
      linking(desk, ledger, sheets, refresh, announcer),
      amount_fields(services.loop, services.field_speech),
      schedule_commit(desk, ledger, links, refresh, announcer),
      schedules(desk, ledger, schedule_commit, sheets, refresh, announcer),
      schedule_editing(desk, ledger, sheets, refresh, announcer),
      reminder(desk, schedule_commit, sheets, services.loop, announcer),
      registers(desk, announcer),
      search(services.loop, *this),
      shown_entries(*this, desk, registers, announcer),
      find(desk, reveal, sheets, announcer),
      date_jump(*this, desk, registers, sheets, announcer),
      balance_field(desk, registers, announcer),
      reconcile_tab(desk, ledger, registers, editing, refresh, announcer),
      summary_tab(*this, desk, ledger, modal, sheets, announcer),
      summary_sheet(desk, ledger, summary_tab, sheets, announcer),
      lock(ledger, saving, selection, services.host, sheets, window, refresh, services.loop,
           announcer),
      backups(accounts, lock, selection, modal, announcer),
      preferences_sheet(*this, desk, ledger, accounts, balance_field, window, sheets, services.loop,
                        announcer),
      updates(services.host, services.updates, announcer),
      menus(desk, ledger, modal, selection, sheets, refresh, announcer),
      tabs(desk, registers, search, summary_tab, speaker, reveal, refresh, announcer),
      undo(ledger, desk, sheets, modal, selection, tabs, summary_tab, refresh, announcer),
      printing(desk, tabs, registers),
      idle(services.loop, *this),
      text_editing(services.notifications,
                   {editing, search, lock, account_passwords, preferences_sheet, reminder}),
      export_commands(desk, ledger, saving, tabs, speaker, services.files, services.encodings,
                      modal, modal),
      import(*this, desk, ledger, editing, speaker, modal, services.files, services.encodings,
             sheets, announcer),
      import_command(desk, ledger, sheets, tabs, summary_tab, speaker, import, services.encodings,
                     modal, idle, refresh, announcer),
      lifecycle(*this, {data_lock, window, updates, preferences, accounts, services.notifications,
                        drawer, idle, lock, selection, refresh, services.host, saving, text_editing,
                        speaker, recovery}) {
  filters.Filters_Init();
}

LDGRController::LDGRController(const Services& services)
    : parts_(std::make_unique<Parts>(services)) {
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
