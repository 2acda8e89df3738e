#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/problem.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_commit.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "registers/schedule_table_view_data.h"
#include "registers/table_state.h"

namespace tallyfold {

class LDGRPreferences;

// The question before a scheduled entry is removed, answered with OK or Cancel. Nothing is typed;
// the problem has no field: what is asked about has gone meanwhile.
struct ScheduleRemoveSheetState {
  // Decided by the program.
  bool is_open = false;
  std::string question;
  std::optional<Problem> problem;
};

// The schedule list, and what is done with its selected schedule. Each operation does nothing, and
// those that tell return false, without a selected schedule and while a sheet is open.
class SchedulesTab final : private TableState::Observer {
 public:
  SchedulesTab(Desk& desk, Ledger& ledger, ScheduleCommit& commit, SheetSlot& sheets,
               Refresh& refresh, Announcer& announcer);
  SchedulesTab(const SchedulesTab&) = delete;
  SchedulesTab& operator=(const SchedulesTab&) = delete;
  ~SchedulesTab() override;

  [[nodiscard]] LDGRScheduleTableViewData& Rows() noexcept { return rows_; }
  [[nodiscard]] const LDGRScheduleTableViewData& Rows() const noexcept { return rows_; }
  [[nodiscard]] TableState& Table() noexcept { return table_; }
  [[nodiscard]] const TableState& Table() const noexcept { return table_; }
  // Shows that account's schedules as its view preferences tell; null shows none.
  void ShowAccount(const std::shared_ptr<LDGRAccount>& account);
  // Writes dates as the preferences want them now.
  void UpdateDateFormat();

  // Asks whether the selected schedule is to be removed, or removes it at once where the user wants
  // no question.
  void ScheduleRemoveConfirm_Begin();
  [[nodiscard]] const ScheduleRemoveSheetState& Confirm() const noexcept { return confirm_; }
  // Removes what was asked about, whatever is selected by then. False when the question is not
  // open, or stays open because the schedule is gone.
  bool ScheduleRemoveConfirm_OK();
  void ScheduleRemoveConfirm_Cancel();
  // Removes the selected schedule without a question. What was committed of it stays.
  void Schedule_Delete();

  // Adds a copy, which is then selected. What is committed of the schedule counts as committed of
  // the copy, so that nothing is offered twice; only what recurs once falls due again.
  bool Schedule_Duplicate();
  // Commits, or skips, the next occurrence, whether or not it is due. False when there is none.
  bool Schedule_CommitNext();
  bool Schedule_SkipNext();

 private:
  void TableChanged(const TableState& table, TableState::Change change) override;
  void RowsChanged(const TableState& table, const RowsChange& change) override;
  [[nodiscard]] bool IsReady() const;
  // Its schedule is null when there is none.
  [[nodiscard]] DueOccurrence NextOfSelected() const;
  void CloseConfirm();
  void Delete(const std::shared_ptr<LDGRAccount>& account,
              const std::shared_ptr<LDGRAccountSchedule>& schedule);

  Desk& desk_;
  Ledger& ledger_;
  ScheduleCommit& commit_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  TableState table_;
  LDGRScheduleTableViewData rows_;
  ScheduleRemoveSheetState confirm_;
  // What the question asks about.
  std::shared_ptr<LDGRAccount> asked_account_;
  std::shared_ptr<LDGRAccountSchedule> asked_schedule_;
};

}  // namespace tallyfold
