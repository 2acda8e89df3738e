#include "app/account_answers.h"

#include "app/parts.h"

namespace tallyfold {

void AccountAnswers::StopSpeech() {
  parts_.speaker.StopSpeech();
}

void AccountAnswers::Account_Authenticate(const std::shared_ptr<LDGRAccount>& account) {
  parts_.account_passwords.Account_Authenticate(account);
}

bool AccountAnswers::Account_Add() {
  return parts_.account_editing.Account_Add();
}

void AccountAnswers::ShowSummary() {
  parts_.summary_tab.Show();
}

void AccountAnswers::ShowInTables(const std::shared_ptr<LDGRAccount>& account) {
  parts_.reveal.Forget();
  parts_.registers.ShowAccount(account);
  parts_.schedules.ShowAccount(account);
  parts_.announcer.Changed(Area::Schedules);
  parts_.refresh.ReconcileTab_UpdateBalances();
}

void AccountAnswers::FillCurrentRegister() {
  parts_.tabs.FillCurrentRegister();
  if (parts_.registers.CurrentKind() == RegisterKind::Reconcile) {
    parts_.refresh.ReconcileTab_UpdateBalances();
  } else {
    parts_.refresh.AccountBalance_Field_Update();
  }
}

void AccountAnswers::ClearSearch() {
  parts_.search.Clear();
}

void AccountAnswers::SettleRecovery() {
  parts_.recovery.Settle();
}

void AccountAnswers::ReplaceScheduleReminderTimer() {
  parts_.idle.ReplaceScheduleReminderTimer();
}

}  // namespace tallyfold
