#include "app/controller.h"

#include <algorithm>

namespace tallyfold {
namespace {

LDGRController* shared_controller = nullptr;

}  // namespace

// One answer serves every component that asks the same question.
struct LDGRController::Hosts final : AccountsStore::Host,
                                     PreferencesStore::Host,
                                     Refresh::Host,
                                     TransferLinks::Host,
                                     AccountSelection::Host,
                                     AccountEditing::Host,
                                     EntryEditing::Host,
                                     EntryRemoval::Host,
                                     ScheduleAdding::Host,
                                     ScheduleCommit::Host {
  explicit Hosts(LDGRController& controller) noexcept : app(controller) {}

  // --- Accounts and preferences ---
  const AccountList& Accounts() const override { return app.accounts_.accounts(); }
  std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const override {
    return app.accounts_.AccountWithNumber(number);
  }
  std::int32_t HighestAccountNumber() const override {
    return app.accounts_.HighestAccountNumber();
  }
  void AddAccount(const std::shared_ptr<LDGRAccount>& account) override {
    app.accounts_.AddAccount(account);
  }
  bool Account_Add() override { return app.Account_Add(); }
  const LDGRPreferences& Preferences() const override { return app.preferences(); }
  LDGRPreferences& Preferences() override { return app.preferences(); }
  void Preferences_StoreAccountPrefs(LDGRAccount& account) override {
    app.preferences_.Preferences_StoreAccountPrefs(&account);
  }
  bool LiveUpdatingFilters() const override { return app.preferences().GetLiveUpdatingFilters(); }

  // --- Selection ---
  std::shared_ptr<LDGRAccount> SelectedAccount() const override {
    return app.selection_.Selected();
  }
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) override {
    app.selection_.Account_Select(account);
  }
  void ForgetSelectedAccount() override {
    app.selected_entry_ = nullptr;
    app.selection_.Forget();
  }
  void SetMainWindowTitleForAccount(const LDGRAccount* account) override {
    app.selection_.SetMainWindowTitleForAccount(account);
  }
  std::shared_ptr<LDGRAccountEntry> SelectedEntry() const override { return app.selected_entry_; }
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) override {
    app.SelectEntry(entry);
  }

  // --- What is shown ---
  std::optional<LiveTable> TableShown(std::string_view /*identifier*/) override {
    return std::nullopt;
  }
  const LDGRAccount* AccountShown() override { return app.selection_.Selected().get(); }
  std::int32_t BalanceMode() override { return app.preferences().GetBalanceMode(); }
  float AccountsDrawerWidth() override { return app.preferences().GetAccountsDrawerWidth(); }
  std::int32_t AccountsDrawerPreferredEdge() override {
    return app.preferences().GetAccountsDrawerPreferredEdge();
  }
  void ShowSummary(LDGRAccount* /*account*/) override { app.front_end_.Changed(Area::Summary); }
  void ShowInTables(const std::shared_ptr<LDGRAccount>& /*account*/) override {
    app.SelectEntry(nullptr);
    app.front_end_.Changed(Area::Registers);
    app.front_end_.Changed(Area::Schedules);
  }
  void FillCurrentRegister() override {
    app.front_end_.Changed(Area::Registers);
    app.refresh_.AccountBalance_Field_Update();
    app.refresh_.ReconcileTab_UpdateBalances();
  }
  void ReloadRegisters() override {
    // The selected row goes with its entry.
    const auto& account = app.selection_.Selected();
    if (account == nullptr || app.selected_entry_ == nullptr) return;
    const auto& entries = account->GetEntries();
    if (std::find(entries.begin(), entries.end(), app.selected_entry_) == entries.end()) {
      app.SelectEntry(nullptr);
    }
  }
  void Search_Cancel() override {}
  void CloseMainWindow() override {}

  // --- Services ---
  void StopSpeech() override { app.services_.speech.Stop(); }
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& /*account*/) override {}
  void ReplaceScheduleReminderTimer() override {}

  LDGRController& app;
};

LDGRController::LDGRController(const Services& services)
    : services_(services),
      hosts_(std::make_unique<Hosts>(*this)),
      data_lock_(services.files, services.alerts, services.host),
      accounts_({services.files, services.alerts, services.host, services.processes}, gate_,
                data_lock_, *hosts_),
      preferences_({services.files, services.host, services.processes}, gate_, *hosts_),
      refresh_(*hosts_, front_end_),
      links_(*hosts_),
      selection_(*hosts_, refresh_, front_end_),
      account_editing_(*hosts_, links_, sheets_, refresh_, front_end_),
      editing_(*hosts_, links_, sheets_, refresh_, front_end_),
      removal_(*hosts_, links_, sheets_, refresh_, front_end_),
      schedule_adding_(*hosts_, refresh_),
      schedule_commit_(*hosts_, links_, refresh_) {
  shared_controller = this;
}

LDGRController::~LDGRController() {
  if (shared_controller == this) shared_controller = nullptr;
}

LDGRController* LDGRController::sharedController() noexcept {
  return shared_controller;
}

void LDGRController::SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) {
  selected_entry_ = entry;
  front_end_.Changed(Area::SelectedEntry);
  refresh_.EntryButtons_Update();
}

}  // namespace tallyfold
