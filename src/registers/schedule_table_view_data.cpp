#include "registers/schedule_table_view_data.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/ambient.h"
#include "registers/register_look.h"
#include "registers/register_order.h"
#include "registers/schedule_list.h"

namespace tallyfold {
namespace {

constexpr std::string_view kNext = "next";
constexpr std::string_view kRepeats = "repeats";
constexpr std::string_view kUntil = "until";
constexpr std::string_view kOverdue = "overdue";
constexpr std::string_view kType = "type";
constexpr std::string_view kDescription = "description";
constexpr std::string_view kToFrom = "toFrom";
constexpr std::string_view kAmount = "amount";

struct ScheduleColumn {
  std::string_view identifier;
  std::string_view title;  // English key
  double width;
  bool sorts;
};

constexpr std::array kColumns = {
    ScheduleColumn{kNext, "Next Date", 80, true},
    ScheduleColumn{kRepeats, "Repeats", 140, false},
    ScheduleColumn{kUntil, "Until", 110, false},
    ScheduleColumn{kOverdue, "Overdue", 60, false},
    ScheduleColumn{kType, "Type", 110, true},
    ScheduleColumn{kDescription, "Description", 200, true},
    ScheduleColumn{kToFrom, "To/From", 150, true},
    ScheduleColumn{kAmount, "Amount", 90, true},
};

const ScheduleColumn* ColumnOf(std::string_view identifier) noexcept {
  const auto* const found = std::ranges::find(kColumns, identifier, &ScheduleColumn::identifier);
  return found != kColumns.end() ? found : nullptr;
}

bool Sorts(std::string_view identifier) noexcept {
  const ScheduleColumn* column = ColumnOf(identifier);
  return column != nullptr && column->sorts;
}

ScheduleList InOrderOf(ScheduleList schedules, RegisterSortKey key, bool descending) {
  ScheduleList sorted;
  sorted.reserve(schedules.size());
  const EntryList entries(schedules.begin(), schedules.end());
  for (const std::uint32_t index : OrderOfEntries(entries, key, descending)) {
    sorted.push_back(std::move(schedules[index]));
  }
  return sorted;
}

}  // namespace

std::vector<TableColumn> DefaultScheduleColumns() {
  std::vector<TableColumn> columns;
  for (const ScheduleColumn& column : kColumns) {
    columns.push_back({std::string(column.identifier), column.width});
  }
  return columns;
}

std::string_view TitleOfScheduleColumn(std::string_view identifier) noexcept {
  const ScheduleColumn* column = ColumnOf(identifier);
  return column != nullptr ? column->title : "";
}

LDGRScheduleTableViewData::LDGRScheduleTableViewData(const Host& host, TableState& table)
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
  schedules_ = account_ != nullptr ? account_->GetSchedules() : ScheduleList();
  layout_.SetPreferences(std::move(preferences));
  layout_.Apply();
  Sort();
  SelectRow(layout_.StoredRow());
  Redraw();
}

void LDGRScheduleTableViewData::Reload() {
  const auto selected = SelectedSchedule();
  schedules_ = account_ != nullptr ? account_->GetSchedules() : ScheduleList();
  Sort();
  SelectSchedule(selected.get());
  Redraw();
}

void LDGRScheduleTableViewData::Redraw() {
  layout_.ShowSortColumn(SortColumn());
}

std::shared_ptr<LDGRAccountSchedule> LDGRScheduleTableViewData::SelectedSchedule() const {
  const std::int32_t row = layout_.Table()->SelectedRow();
  const bool exists = row >= 0 && static_cast<std::size_t>(row) < schedules_.size();
  return exists ? schedules_[static_cast<std::size_t>(row)] : nullptr;
}

void LDGRScheduleTableViewData::SelectSchedule(const LDGRAccountSchedule* schedule) {
  const auto found =
      std::ranges::find(schedules_, schedule, [](const auto& other) { return other.get(); });
  SelectRow(found == schedules_.end() ? TableState::kNoRow
                                      : static_cast<std::int32_t>(found - schedules_.begin()));
}

void LDGRScheduleTableViewData::SelectRow(std::int32_t row) {
  TableState& table = *layout_.Table();
  if (row < 0 || static_cast<std::size_t>(row) >= schedules_.size()) {
    return table.SelectRow(TableState::kNoRow);
  }
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
  return Sorts(stored) ? stored : std::string(kNext);
}

void LDGRScheduleTableViewData::Sort() {
  const std::string column = SortColumn();
  const bool descending = layout_.SortsDescending();
  if (const auto key = SortKeyOfColumn(column)) {
    schedules_ = InOrderOf(std::move(schedules_), *key, descending);
    return;
  }
  std::ranges::stable_sort(schedules_, [descending](const auto& a, const auto& b) {
    return (descending ? a->NextEntryDateIsGreaterThan_Reversed(*b)
                       : a->NextEntryDateIsGreaterThan(*b)) < 0;
  });
}

std::size_t LDGRScheduleTableViewData::numberOfRowsInTableView() const {
  return host_.IsUnlocked() ? schedules_.size() : 0;
}

TableCell LDGRScheduleTableViewData::tableView(std::string_view column, std::size_t row) const {
  if (row >= numberOfRowsInTableView()) return {};
  const LDGRAccountSchedule& schedule = *schedules_[row];
  if (column == kNext) return {NextDateText(schedule, date_format_)};
  if (column == kRepeats) return {RepeatsInWords(schedule)};
  if (column == kUntil) return {UntilInWords(schedule, date_format_)};
  if (column == kOverdue) {
    const std::size_t overdue = OverdueCount(schedule, TodaysDateNumber());
    return {overdue == 0 ? "" : std::to_string(overdue), TableCell::Alignment::Right};
  }
  if (column == kType) return {TypeTextOfEntry(account_.get(), schedule)};
  if (column == kDescription) return {schedule.GetDescription()};
  if (column == kToFrom) return {schedule.GetToFrom()};
  if (column == kAmount) return {schedule.GetAmount(), TableCell::Alignment::Right};
  return {};
}

}  // namespace tallyfold
