#include "app/shell/idle_watch.h"

#include <algorithm>

namespace tallyfold {

void IdleWatch::ReplaceScheduleReminderTimer() {
  if (day_ == kNullDate) day_ = TodaysDateNumber();
  timer_.Start(kInterval, [this] { Evaluate(true); });
}

std::chrono::milliseconds IdleWatch::Pause() {
  const auto next = timer_.NextFiring();
  timer_.Stop();
  return std::max<std::chrono::milliseconds>(next ? *next - loop_.Now() : kInterval, kInterval);
}

void IdleWatch::Resume(std::chrono::milliseconds until_next) {
  ReplaceScheduleReminderTimer();
  timer_.SetNextFiring(loop_.Now() + until_next);
}

void IdleWatch::userInputNotification() {
  host_.StopSpeech();
  const auto earliest = loop_.Now() + kInterval;
  const auto next = timer_.NextFiring();
  if (next && *next < earliest) timer_.SetNextFiring(earliest);
  // The input still belongs to what is shown; rows must not move under it.
  if (TodaysDateNumber() != day_) {
    new_day_.Start(std::chrono::milliseconds(0), [this] { AnnounceNewDay(); });
  }
}

void IdleWatch::AnnounceNewDay() {
  const DateNumber today = TodaysDateNumber();
  if (day_ == kNullDate || today == day_) return;
  day_ = today;
  host_.DayChanged();
}

bool IdleWatch::MustWait(bool by_timer) const {
  const auto idle = host_.TimeSinceLastEvent();
  return (by_timer && idle && *idle < kInterval) || host_.SheetIsOpen() || host_.ModalWindowIsUp();
}

void IdleWatch::Evaluate(bool by_timer) {
  AnnounceNewDay();
  if (MustWait(by_timer)) return ReplaceScheduleReminderTimer();
  if (by_timer && host_.AccountsWantSaving()) host_.Accounts_Save();
  if (host_.SchedulesCanBeEvaluated()) host_.OfferDueOccurrences(by_timer);
}

}  // namespace tallyfold
