#include "app/schedules/schedule_values.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "app/entries/edit_sheet.h"
#include "model/amounts.h"
#include "model/entry_split.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Repeat = RepeatInterval;
using Until = LDGRAccountSchedule::Until;

constexpr std::int32_t kNoCheckNumber = -1;

constexpr std::array kEverySoMany = {Repeat::EveryNDays, Repeat::EveryNWeeks, Repeat::EveryNMonths,
                                     Repeat::EveryNYears, Repeat::EveryNQuarters};
constexpr std::array kNeverMoved = {Repeat::Once, Repeat::Daily, Repeat::Weekly, Repeat::TwoWeeks,
                                    Repeat::EveryNWeeks};
constexpr std::array kOthers = {Repeat::Monthly, Repeat::Yearly, Repeat::EndOfMonth,
                                Repeat::ThreeMonths, Repeat::EndOfQuarter};

template <typename Intervals>
bool Has(const Intervals& intervals, std::int32_t type) noexcept {
  return std::ranges::find(intervals, static_cast<Repeat>(type)) != intervals.end();
}

bool IsInterval(std::int32_t type) noexcept {
  return Has(kEverySoMany, type) || Has(kNeverMoved, type) || Has(kOthers, type);
}

bool HasSplit(const ScheduleValues& values) {
  return values.kind != EntryKind::Transfer && values.split != SplitRows();
}

Problem In(std::string_view control, std::string_view text) {
  return {"scheduleSheet_" + std::string(control), LocalizedText(text)};
}

void StoreKind(const ScheduleValues& values, LDGRAccountSchedule& schedule) {
  // Where the lines of a split make the amount, it does not count.
  const double amount = values.amount.value_or(0.0);
  switch (values.kind) {
    case EntryKind::Debit:
      schedule.SetIsDebit(true);
      schedule.SetIsCheck(values.is_check);
      if (!values.is_check) schedule.SetCheckNumber(kNoCheckNumber);
      schedule.SetAmount(-amount);
      break;
    case EntryKind::Deposit:
      schedule.SetIsDeposit(true);
      schedule.SetAmount(amount);
      break;
    case EntryKind::Transfer:
      schedule.SetIsTransfer(true);
      schedule.SetIsTransferOrigin(values.is_transfer_origin);
      schedule.SetTransferAccount(values.transfer_account);
      schedule.SetAmount(values.is_transfer_origin ? -amount : amount);
      break;
  }
}

// As the entry sheets store a split.
void StoreSplit(const SplitRows& rows, LDGRAccountSchedule& schedule) {
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    split->SetDescription(rows[i].description, i);
    split->SetToFrom(rows[i].to, i);
    split->SetAmount(*rows[i].amount, i);
  }
  schedule.SetAmount(split->GetTotal());
  schedule.SetToFrom(LocalizedText("Split"));
  schedule.SetSplit(std::move(split));
}

std::optional<Problem> ProblemOfUntil(const ScheduleValues& values, const ScheduleValues* former,
                                      DateNumber today) {
  constexpr std::string_view kField = "Until_Field";
  std::optional<DateNumber> until = values.repeat_until;
  switch (static_cast<Until>(values.repeat_until_type)) {
    case Until::Forever:
      return std::nullopt;
    case Until::Count:
      if (until && *until >= 1) return std::nullopt;
      return In(kField, "The number of times it repeats must be at least 1.");
    case Until::Date:
      break;
    default:
      return In("UntilType_PopUp", "It is not said when it ends.");
  }
  if (!TweakDayField(until)) return In(kField, "The date on which it ends does not exist.");
  if (*until < *values.start) return In(kField, "It ends before it begins.");
  const bool was_so = former != nullptr && former->repeat_until_type == values.repeat_until_type &&
                      former->repeat_until == values.repeat_until;
  if (*until < today && !was_so) return In(kField, "The date on which it ends lies in the past.");
  return std::nullopt;
}

}  // namespace

bool GoesOut(const LDGRAccountEntry& entry) {
  return entry.IsDebit() || (entry.IsTransfer() && entry.IsTransferOrigin());
}

ScheduleValues ValuesOfEntry(const LDGRAccountEntry& entry) {
  ScheduleValues values;
  values.kind = entry.IsDebit()     ? EntryKind::Debit
                : entry.IsDeposit() ? EntryKind::Deposit
                                    : EntryKind::Transfer;
  values.start = entry.GetDate();
  // Adding 0.0 keeps a negative zero off the screen.
  values.amount = (GoesOut(entry) ? -entry.GetAmount() : entry.GetAmount()) + 0.0;
  if (const auto& split = entry.GetSplit()) {
    for (std::size_t i = 0; i < values.split.size(); ++i) {
      values.split[i] = {split->GetDescription(i), split->GetToFrom(i), split->GetAmount(i)};
    }
  }
  values.description = entry.GetDescription();
  values.to_from = entry.GetToFrom();
  values.type = entry.GetType();
  values.is_check = entry.IsCheck();
  values.tax_deductible = entry.GetTaxDeductible();
  values.notes = entry.GetNotes();
  values.transfer_account = entry.GetTransferAccount();
  values.is_transfer_origin = entry.IsTransferOrigin();
  return values;
}

ScheduleValues ValuesOf(const LDGRAccountSchedule& schedule) {
  ScheduleValues values = ValuesOfEntry(schedule);
  values.repeat_interval_type = schedule.GetRepeatIntervalType();
  values.repeat_interval = schedule.GetRepeatInterval();
  values.repeat_until_type = schedule.GetRepeatUntilType();
  values.repeat_until = schedule.GetRepeatUntil();
  values.use_preceding_friday = schedule.GetUsePrecedingFriday();
  return values;
}

void StoreValues(const ScheduleValues& values, LDGRAccountSchedule& schedule) {
  StoreKind(values, schedule);
  schedule.SetDate(*values.start);
  schedule.SetDescription(values.description);
  schedule.SetToFrom(values.to_from);
  schedule.SetTaxDeductible(values.tax_deductible);
  schedule.SetNotes(values.notes);
  if (values.kind != EntryKind::Transfer) schedule.SetType(values.type);
  if (HasSplit(values)) {
    StoreSplit(values.split, schedule);
  } else {
    schedule.SetSplit(nullptr);
  }
  schedule.SetRepeatIntervalType(values.repeat_interval_type);
  if (values.repeat_interval) schedule.SetRepeatInterval(*values.repeat_interval);
  schedule.SetRepeatUntilType(values.repeat_until_type);
  if (values.repeat_until) schedule.SetRepeatUntil(*values.repeat_until);
  schedule.SetUsePrecedingFriday(values.use_preceding_friday);
}

bool MovesOffWeekend(std::int32_t repeat_interval_type) noexcept {
  return IsInterval(repeat_interval_type) && !Has(kNeverMoved, repeat_interval_type);
}

bool RepeatsEverySoMany(std::int32_t repeat_interval_type) noexcept {
  return Has(kEverySoMany, repeat_interval_type);
}

std::optional<Problem> ProblemOf(ScheduleValues& values, const ScheduleValues* former,
                                 DateNumber today) {
  if (!TweakDayField(values.start)) return In("Start_Field", "The date does not exist.");
  if (const std::int32_t row = RowWithoutAmount(values.split); row != -1) {
    Problem problem = In("Split_Table", "The amount is not a number.");
    problem.row = row;
    return problem;
  }
  if (!HasSplit(values)) {
    const double opened =
        former != nullptr && !HasSplit(*former) ? former->amount.value_or(0.0) : 0.0;
    if (auto text = ProblemOfAmount(values.amount, opened); !text.empty()) {
      return Problem{"scheduleSheet_Amount_Field", std::move(text)};
    }
  }
  if (!IsInterval(values.repeat_interval_type)) {
    return In("Interval_PopUp", "It is not said how often it repeats.");
  }
  if (RepeatsEverySoMany(values.repeat_interval_type) && values.repeat_interval.value_or(0) < 1) {
    return In("Every_Field", "The interval must be at least 1.");
  }
  return ProblemOfUntil(values, former, today);
}

}  // namespace tallyfold
