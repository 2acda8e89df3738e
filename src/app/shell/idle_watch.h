#pragma once

#include <chrono>
#include <optional>

#include "model/date_number.h"
#include "platform/run_loop.h"

namespace tallyfold {

// The one timer of the application: every 15 seconds, and never within 15 seconds of the user's
// last input, it saves what has changed and looks for scheduled entries that are due. It runs from
// the launch to the end, also while the application is locked.
//
// It also keeps the day, which is compared at every tick and input: a new one is announced, since
// what is shown depends on it. How long the user has been idle does not depend on the wall clock.
class IdleWatch {
 public:
  static constexpr std::chrono::milliseconds kInterval = std::chrono::seconds(15);

  class Host {
   public:
    virtual ~Host() = default;
    // As of LDGRApplication; none before the first event.
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> TimeSinceLastEvent() const = 0;
    [[nodiscard]] virtual bool SheetIsOpen() const = 0;
    [[nodiscard]] virtual bool ModalWindowIsUp() const = 0;
    // Unlocked, with the accounts loaded and shown, and with changes that are not in the file.
    [[nodiscard]] virtual bool AccountsWantSaving() const = 0;
    virtual bool Accounts_Save() = 0;
    // Unlocked, with a selected account.
    [[nodiscard]] virtual bool SchedulesCanBeEvaluated() const = 0;
    // Offers what is due in the selected account; the timer's offers can be put off.
    virtual void OfferDueOccurrences(bool by_timer) = 0;
    // Today is another day than when anything was last computed.
    virtual void DayChanged() = 0;
    // Cancels pending speech and the reading of entries, and falls silent.
    virtual void StopSpeech() = 0;
  };

  // Both must outlive the watch.
  IdleWatch(RunLoop& loop, Host& host) noexcept
      : host_(host), timer_(loop), new_day_(loop), loop_(loop) {}
  IdleWatch(const IdleWatch&) = delete;
  IdleWatch& operator=(const IdleWatch&) = delete;

  // Starts the timer anew: the next tick is a whole interval away.
  void ReplaceScheduleReminderTimer();
  [[nodiscard]] const RepeatingTimer& scheduleReminderTimer() const noexcept { return timer_; }

  // Stops the timer while something runs that must not be interrupted. The time that was left until
  // the next tick, at least an interval, for Resume().
  [[nodiscard]] std::chrono::milliseconds Pause();
  // Starts the timer again, with its next tick after that time.
  void Resume(std::chrono::milliseconds until_next);

  // The user did something: speech ends, and the next tick is at least an interval away.
  void userInputNotification();
  // Offers what is due. Postponed by an interval while a sheet or a modal window is up.
  void Schedules_Evaluate() { Evaluate(false); }

 private:
  void Evaluate(bool by_timer);
  void AnnounceNewDay();
  [[nodiscard]] bool MustWait(bool by_timer) const;

  Host& host_;
  RepeatingTimer timer_;
  DelayedCall new_day_;
  RunLoop& loop_;
  // The day of what is shown; kNullDate before the timer is started.
  DateNumber day_ = kNullDate;
};

}  // namespace tallyfold
