#pragma once

#include <chrono>
#include <optional>

#include "app/exchange/qif_import_controller.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/preferences_sheet.h"

namespace tallyfold {

struct ApplicationParts;

// What is asked of the application as a whole: by the launch, the idle watch, the preferences and
// the end of an import. Asked only once all parts are there.
class ShellAnswers final : public Lifecycle::Host,
                           public IdleWatch::Host,
                           public PreferencesSheet::Host,
                           public LDGRQIFImportController::Host {
 public:
  explicit ShellAnswers(ApplicationParts& parts) noexcept : parts_(parts) {}

  void SetUpRegisters() override;

  [[nodiscard]] std::optional<std::chrono::milliseconds> TimeSinceLastEvent() const override;
  [[nodiscard]] bool SheetIsOpen() const override;
  [[nodiscard]] bool ModalWindowIsUp() const override;
  [[nodiscard]] bool AccountsWantSaving() const override;
  bool Accounts_Save() override;
  [[nodiscard]] bool SchedulesCanBeEvaluated() const override;
  void OfferDueOccurrences(bool by_timer) override;
  void DayChanged() override;
  void StopSpeech() override;

  void PreferencesChanged() override;

  void ImportEnded() override;

 private:
  // Amounts, days and the balance as the preferences want them.
  void ShowByPreferences();

  ApplicationParts& parts_;
};

}  // namespace tallyfold
