#include "registers/schedule_table_view_data.h"

#include <algorithm>
#include <utility>

#include "platform/ambient.h"
#include "registers/register_order.h"
#include "registers/rows_change.h"

namespace tallyfold {
namespace {

constexpr std::string_view kDefaultOrder = "next";

bool Sorts(std::string_view identifier) {
  const std::vector<TableColumn> columns = DefaultScheduleColumns();
  const auto found = std::ranges::find(columns, identifier, &TableColumn::identifier);
  return found != columns.end() && found->sorts;
}

ScheduleList InOrderOf(ScheduleList schedules, const RegisterOrder& order) {
  ScheduleList sorted;
  sorted.reserve(schedules.size());
  const EntryList entries(schedules.begin(), schedules.end());
  for (const std::uint32_t index : OrderOfEntries(entries, order)) {
    sorted.push_back(std::move(schedules[index]));
  }
  return sorted;
}

}  // namespace

LDGRScheduleTableViewData::LDGRScheduleTableViewData(const TableHost& host, TableState& table)
    : host_(host), date_format_(CurrentLocale().ShortDateFormat()) {
  table.SetDataSource(this);
  layout_.SetTable(&table);
  layout_.SetIdentifier("schedule");
}

LDGRScheduleTableViewData::~LDGRScheduleTableViewData() {
  layout_.Table()->SetDataSource(nullptr);
}

void LDGRScheduleTableViewData::ShowAccount(std::shared_ptr<LDGRAccount> account,
                                            std::shared_ptr<LDGRAccountPreferences> preferences) {
  account_ = std::move(account);
  const ScheduleList before = TakeSchedules();
  layout_.SetPreferences(std::move(preferences));
  layout_.Apply();
  Sort();
  ShowRows(before, layout_.StoredRow());
}

void LDGRScheduleTableViewData::Reload() {
  const auto selected = SelectedSchedule();
  const ScheduleList before = TakeSchedules();
  Sort();
  ShowRows(before, RowOfRecord(schedules_, selected.get()).value_or(TableState::kNoRow));
}

ScheduleList LDGRScheduleTableViewData::TakeSchedules() {
  return std::exchange(schedules_, account_ != nullptr ? account_->GetSchedules() : ScheduleList());
}

void LDGRScheduleTableViewData::ShowRows(const ScheduleList& before, std::int32_t selected_row) {
  layout_.ShowSortColumn(SortColumn());
  const bool is_selected = RecordOfRow(schedules_, selected_row) != nullptr;
  layout_.Table()->TakeRows(ChangeOfRows(before, schedules_),
                            is_selected ? selected_row : TableState::kNoRow);
  if (is_selected) SelectRow(selected_row);
}

void LDGRScheduleTableViewData::Redraw() {
  layout_.ShowSortColumn(SortColumn());
  layout_.Table()->ReloadData();
}

std::shared_ptr<LDGRAccountSchedule> LDGRScheduleTableViewData::SelectedSchedule() const {
  return RecordOfRow(schedules_, layout_.Table()->SelectedRow());
}

void LDGRScheduleTableViewData::SelectSchedule(const LDGRAccountSchedule* schedule) {
  SelectRow(RowOfRecord(schedules_, schedule).value_or(TableState::kNoRow));
}

void LDGRScheduleTableViewData::SelectRow(std::int32_t row) {
  TableState& table = *layout_.Table();
  if (RecordOfRow(schedules_, row) == nullptr) return table.SelectRow(TableState::kNoRow);
  table.SelectRow(row);
  table.ScrollRowToVisible(row);
  layout_.StoreRow(row);
}

void LDGRScheduleTableViewData::ClickedTableColumn(std::string_view identifier) {
  if (!Sorts(identifier) || !layout_.TurnOrderOver(identifier)) return;
  Reload();
}

void LDGRScheduleTableViewData::HideTableColumnWithIdentifier(std::string_view identifier) {
  if (layout_.HideColumn(identifier)) Redraw();
}

void LDGRScheduleTableViewData::ShowTableColumnWithIdentifier(std::string_view identifier) {
  if (layout_.ShowColumn(identifier)) Redraw();
}

std::string LDGRScheduleTableViewData::SortColumn() const {
  std::string stored = layout_.SortColumn();
  return Sorts(stored) ? stored : std::string(kDefaultOrder);
}

void LDGRScheduleTableViewData::Sort() {
  const std::string column = SortColumn();
  const bool descending = layout_.SortsDescending();
  if (const auto key = SortKeyOfColumn(column)) {
    schedules_ = InOrderOf(std::move(schedules_), {key, descending});
  } else {
    SortByNextDate(schedules_, descending);
  }
}

std::size_t LDGRScheduleTableViewData::numberOfRowsInTableView() const {
  return host_.IsUnlocked() ? schedules_.size() : 0;
}

TableCell LDGRScheduleTableViewData::tableView(std::string_view column, std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  return CellOfSchedule(account_.get(), *schedules_[row], column,
                        {date_format_, host_.preferences()}, TodaysDateNumber());
}

RowLook LDGRScheduleTableViewData::LookOfRow(std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  return LookOfSchedule(*schedules_[row], host_.preferences(), TodaysDateNumber());
}

std::string LDGRScheduleTableViewData::SpeakableRow(std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  return schedules_[row]->asSpeakableString();
}

}  // namespace tallyfold
