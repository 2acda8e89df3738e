#pragma once

#include <functional>
#include <memory>

#include "app/entries/entry_reveal.h"
#include "app/face/refresh.h"
#include "app/views/account_summary_tab.h"
#include "app/views/date_jump.h"
#include "app/views/shown_entries.h"
#include "filters/register_search.h"
#include "registers/entry_speaker.h"

namespace tallyfold {

struct ApplicationParts;

// What is asked of the registers and the other tables: which rows they show, by which filter, and
// that they show others. Asked only once all parts are there.
class RegisterAnswers final : public Refresh::Host,
                              public EntryReveal::Host,
                              public ShownEntries::Host,
                              public DateJump::Host,
                              public AccountSummaryTab::Host,
                              public RegisterSearch::Host,
                              public EntrySpeaker::Host {
 public:
  explicit RegisterAnswers(ApplicationParts& parts) noexcept : parts_(parts) {}

  // Rows.
  [[nodiscard]] bool LiveUpdatingFilters() const override;
  void ReloadRegisters() override;
  void ReloadShownRegister() override;
  void TakeSavedEntries(const EntryList& entries) override;
  void RedrawRegisters() override;
  void ReloadSchedules() override;
  void ReloadAccountsList() override;
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) override;
  [[nodiscard]] RegisterKind ShownRegister() const override;
  [[nodiscard]] LDGRAccountTableViewData* CurrentRegister() override;

  // Entries out of sight.
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) override;
  [[nodiscard]] bool IsShown(const LDGRAccountEntry* entry) const override;
  [[nodiscard]] std::shared_ptr<LDGRFilter> CurrentFilter() const override;
  void ShowRegister() override;
  void ShowAllEntries() override;
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) override;

  // The search.
  void AsOne(const std::function<void()>& steps) override;
  void AsKeystroke(const std::function<void()>& steps) override;
  void Search_Cancel() override;
  void SearchStateChanged() override;
  void FocusSearchField() override;
  void UpdateEntryDependentButtons() override;
  void UpdateBalanceField() override;

  // Speech.
  void StopSpeech() override;
  [[nodiscard]] bool RegisterWindowIsMain() const override;
  [[nodiscard]] float PauseBetweenSpokenEntries() const override;

 private:
  ApplicationParts& parts_;
};

}  // namespace tallyfold
