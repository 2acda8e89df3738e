#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_schedule.h"
#include "registers/schedule_list.h"
#include "registers/table_data_source.h"
#include "registers/table_layout.h"
#include "registers/table_state.h"
#include "storage/account_preferences.h"

namespace tallyfold {

// The rows behind the schedule list: the scheduled entries of an account in the order of the column
// the user clicked. As in the registers (see account_table_view_data.h), rows follow their
// schedules, and columns, order and selected row are kept with the account's view preferences, as
// the table "schedule".
class LDGRScheduleTableViewData final : public TableDataSource {
 public:
  // Both must outlive this, which becomes the table's data source.
  LDGRScheduleTableViewData(const TableHost& host, TableState& table);
  LDGRScheduleTableViewData(const LDGRScheduleTableViewData&) = delete;
  LDGRScheduleTableViewData& operator=(const LDGRScheduleTableViewData&) = delete;
  ~LDGRScheduleTableViewData() override;

  // Shows the account's schedules as its view preferences tell. Null for none.
  void ShowAccount(std::shared_ptr<LDGRAccount> account,
                   std::shared_ptr<LDGRAccountPreferences> preferences);
  // In calendar-date conversion letters.
  void SetDateFormat(std::string format) { date_format_ = std::move(format); }
  // Takes the account's schedules again, in the order in force, with the same one selected.
  void Reload();
  void Redraw();

  // Null when no row is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountSchedule> SelectedSchedule() const;
  // Null, and a schedule that is not shown, selects none.
  void SelectSchedule(const LDGRAccountSchedule* schedule);
  void SelectRow(std::int32_t row);
  [[nodiscard]] const ScheduleList& Schedules() const noexcept { return schedules_; }

  // The header of a column was clicked: turns the stored order over, by that column. A column that
  // does not sort ("repeats", "until", "overdue") does nothing.
  void ClickedTableColumn(std::string_view identifier);
  void HideTableColumnWithIdentifier(std::string_view identifier);
  void ShowTableColumnWithIdentifier(std::string_view identifier);

  [[nodiscard]] std::size_t numberOfRowsInTableView() const override;
  // A row that does not exist shows nothing.
  [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;
  [[nodiscard]] RowLook LookOfRow(std::size_t row) const override;
  [[nodiscard]] std::string SpeakableRow(std::size_t row) const override;

 private:
  [[nodiscard]] std::string SortColumn() const;
  // Those of the account, in its order; the former rows come back.
  ScheduleList TakeSchedules();
  void Sort();
  // Tells what became of the rows since they were `before`, and selects one of them.
  void ShowRows(const ScheduleList& before, std::int32_t selected_row);

  const TableHost& host_;
  std::shared_ptr<LDGRAccount> account_;
  ScheduleList schedules_;
  TableLayout layout_;
  std::string date_format_;
};

}  // namespace tallyfold
