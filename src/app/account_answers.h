#pragma once

#include <memory>

#include "app/accounts/account_selection.h"

namespace tallyfold {

struct ApplicationParts;

// What a selection of another account asks of all that show an account. Asked only once all parts
// are there.
class AccountAnswers final : public AccountSelection::Host {
 public:
  explicit AccountAnswers(ApplicationParts& parts) noexcept : parts_(parts) {}

  void StopSpeech() override;
  void Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) override;
  bool Account_Add() override;
  void ShowSummary() override;
  void ShowInTables(const std::shared_ptr<LDGRAccount>& account) override;
  void FillCurrentRegister() override;
  void ClearSearch() override;
  void SettleRecovery() override;
  void ReplaceScheduleReminderTimer() override;

 private:
  ApplicationParts& parts_;
};

}  // namespace tallyfold
