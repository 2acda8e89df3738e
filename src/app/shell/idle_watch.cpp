#include "app/shell/idle_watch.h"

#include <algorithm>

#include "app/shell/application.h"

namespace tallyfold {

void IdleWatch::ReplaceScheduleReminderTimer() {
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
}

bool IdleWatch::MustWait(bool by_timer) const {
  const double idle = SecondsSince1970() - host_.LastEventTimestamp();
  return (by_timer && idle < std::chrono::duration<double>(kInterval).count()) ||
         host_.SheetIsOpen() || host_.ModalWindowIsUp();
}

void IdleWatch::Evaluate(bool by_timer) {
  if (MustWait(by_timer)) return ReplaceScheduleReminderTimer();
  if (by_timer && host_.AccountsWantSaving()) host_.Accounts_Save();
  if (host_.SchedulesCanBeEvaluated()) host_.OfferDueOccurrences(by_timer);
}

}  // namespace tallyfold
