#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_commit.h"
#include "app/schedules/schedule_reminder_state.h"
#include "app/schedules/typed_reminder_rows.h"
#include "model/account.h"
#include "platform/run_loop.h"

namespace tallyfold {

// The reminder: a sheet with the occurrences of the selected account's scheduled entries that are
// due by the look-ahead date, to be committed, skipped or left for later. Nothing is ever committed
// that was not asked for.
class ScheduleReminder {
 public:
  // More occurrences of one schedule than this, due and to come taken together, are folded: those
  // due into one row, those to come into another.
  static constexpr std::size_t kMostRowsOfSchedule = 50;

  // Everything must outlive the reminder.
  ScheduleReminder(Desk& desk, ScheduleCommit& commit, SheetSlot& sheets, const RunLoop& loop,
                   Announcer& announcer) noexcept
      : desk_(desk), commit_(commit), sheets_(sheets), loop_(loop), announcer_(announcer) {}
  ScheduleReminder(const ScheduleReminder&) = delete;
  ScheduleReminder& operator=(const ScheduleReminder&) = delete;

  [[nodiscard]] const ScheduleReminderState& State() const noexcept { return state_; }

  // Opens the sheet when anything is due by the look-ahead date. The timer's offers rest after the
  // sheet was closed with occurrences left, until the reminder interval of the preferences has
  // passed or one more falls due in that account.
  void OfferDueOccurrences(bool by_timer);
  // Opens the sheet, whether or not anything is due. False without an account and while a sheet is
  // open.
  bool Open();

  // Takes over what the user typed into the rows, as many as there are.
  void Read(const std::vector<ReminderRow::Typed>& rows);
  void MarkAll(bool is_marked);
  // The look-ahead field holds that text now. False, and the rows stay, when that is no number from
  // 0 to kMostLookAhead; else the number is remembered. What was typed into a row that goes is
  // there when it comes back.
  bool scheduleReminderSheet_LookAhead(std::string_view text);
  void LookAheadType(std::int32_t tag);
  void BalanceModeChosen(std::int32_t tag);
  // Today is another day: what is due is looked for anew, and rows that stay keep what was typed.
  void DayChanged();

  // Commits what is marked, or everything, and closes the sheet. False, and nothing is committed,
  // when nothing is marked, when a date or an amount will not do, or when something has been
  // committed or skipped meanwhile; the state then says why, and the marks are as before.
  bool CommitMarked() { return Commit(false); }
  bool CommitAll() { return Commit(true); }
  // Never offers again what is marked. The sheet stays open for the rest. False as before.
  bool SkipMarked();
  // Closes the sheet; what is left is offered again later.
  void Later();
  // Closes the sheet as if it had not been offered.
  void Dismiss();

 private:
  // What is due of a schedule.
  struct Due {
    std::shared_ptr<LDGRAccountSchedule> schedule;
    std::vector<DateNumber> days;
  };
  // What was left when the sheet was closed.
  struct PutOff {
    std::weak_ptr<LDGRAccount> account;
    std::chrono::milliseconds at{0};
    std::vector<Due> left;
  };

  [[nodiscard]] DateNumber LookAheadDate();
  [[nodiscard]] std::vector<Due> DueOccurrences();
  [[nodiscard]] bool IsPutOff(const std::vector<Due>& due);
  void Show();
  // Fills the rows; those that were there at any time keep what was typed.
  void Fill();
  void AddRows(const LDGRAccount& account, const Due& due, bool is_ahead, bool folds);
  void UpdateBalance();
  [[nodiscard]] std::optional<double> Balance() const;
  // The occurrences of the marked rows, or of all, by day, with their edited copies; none, and the
  // problem is told, when they will not do.
  [[nodiscard]] std::vector<DueOccurrence> MarkedOccurrences(bool all);
  bool Commit(bool all);
  // Always false.
  bool Refuse(std::string_view field, std::string text, std::int32_t row = -1);
  // Where a problem of that row was in a field that has another value now.
  void DropProblemOf(std::int32_t row, const ReminderRow::Typed& before,
                     const ReminderRow::Typed& now);
  void Close();

  Desk& desk_;
  ScheduleCommit& commit_;
  SheetSlot& sheets_;
  const RunLoop& loop_;
  Announcer& announcer_;
  ScheduleReminderState state_;
  TypedReminderRows typed_rows_;
  std::vector<PutOff> put_off_;
};

}  // namespace tallyfold
