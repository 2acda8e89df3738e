#include "app/schedules/schedule_reminder.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "app/entries/edit_sheet.h"
#include "app/schedules/reminder_sentence.h"
#include "app/schedules/schedule_values.h"
#include "model/account_entry.h"
#include "model/amounts.h"
#include "model/calendar.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

// The numbers of preferences; what they do not know is the first.
LookAheadUnit UnitOf(std::int32_t number) noexcept {
  const auto unit = static_cast<LookAheadUnit>(number);
  return unit == LookAheadUnit::Weeks || unit == LookAheadUnit::Months ? unit : LookAheadUnit::Days;
}

ReminderBalanceMode BalanceModeOf(std::int32_t number) noexcept {
  const auto mode = static_cast<ReminderBalanceMode>(number);
  return mode == ReminderBalanceMode::Today || mode == ReminderBalanceMode::AfterMarked
             ? mode
             : ReminderBalanceMode::None;
}

constexpr std::string_view kLookAheadField = "scheduleReminderSheet_LookAhead";
constexpr std::string_view kMarkButton = "scheduleReminderSheet_Mark_Button";
constexpr std::string_view kDateField = "scheduleReminderSheet_Date_Field";
constexpr std::string_view kAmountField = "scheduleReminderSheet_Amount_Field";

CivilTime Today() {
  return DateNumberToNSCalendarDate(TodaysDateNumber());
}

// The amount of a schedule as its sheet shows it.
double OwnAmount(const ReminderRow& row) {
  const double amount = row.schedule->GetAmount();
  // Adding 0.0 keeps a negative zero off the screen.
  return (row.goes_out ? -amount : amount) + 0.0;
}

}  // namespace

// --- Opening and closing ------------------------------------------------------------------------

void ScheduleReminder::OfferDueOccurrences(bool by_timer) {
  const Announcer::Operation operation(announcer_);
  if (!sheets_.IsFree()) return;
  const std::vector<Due> due = DueOccurrences();
  if (due.empty() || (by_timer && IsPutOff(due))) return;
  Show();
}

bool ScheduleReminder::Open() {
  const Announcer::Operation operation(announcer_);
  if (desk_.SelectedAccount() == nullptr || !sheets_.IsFree()) return false;
  Show();
  return true;
}

void ScheduleReminder::Show() {
  const LDGRPreferences& preferences = desk_.preferences();
  state_ = ScheduleReminderState();
  typed_rows_.Clear();
  state_.is_open = true;
  state_.typed.look_ahead = std::to_string(std::max(preferences.GetScheduleLookAhead(), 0));
  state_.typed.look_ahead_unit = UnitOf(preferences.GetScheduleLookAheadType());
  state_.typed.balance_mode = BalanceModeOf(preferences.GetScheduleReminderBalanceMode());
  const auto item = [](std::string_view title, auto tag) {
    return PopUpItem{LocalizedText(title), static_cast<std::int32_t>(tag)};
  };
  state_.unit_items = {item("Days", LookAheadUnit::Days), item("Weeks", LookAheadUnit::Weeks),
                       item("Months", LookAheadUnit::Months)};
  state_.balance_items = {item("No Balance", ReminderBalanceMode::None),
                          item("Today's Balance", ReminderBalanceMode::Today),
                          item("Balance after Committing", ReminderBalanceMode::AfterMarked)};
  sheets_.Open(Sheet::ScheduleReminder, [this] { Later(); });
  Fill();
}

void ScheduleReminder::Later() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open) return;
  Close();
  const auto account = desk_.SelectedAccount();
  std::erase_if(put_off_, [&account](const PutOff& other) {
    return other.account.expired() || other.account.lock() == account;
  });
  std::vector<Due> left = DueOccurrences();
  if (!left.empty()) put_off_.push_back({account, loop_.Now(), std::move(left)});
}

void ScheduleReminder::Dismiss() {
  const Announcer::Operation operation(announcer_);
  if (state_.is_open) Close();
}

void ScheduleReminder::Close() {
  state_ = ScheduleReminderState();
  announcer_.Changed(Area::ScheduleReminderSheet);
  sheets_.Close(Sheet::ScheduleReminder);
}

bool ScheduleReminder::IsPutOff(const std::vector<Due>& due) {
  const auto account = desk_.SelectedAccount();
  const auto found = std::ranges::find_if(
      put_off_, [&account](const PutOff& each) { return each.account.lock() == account; });
  if (found == put_off_.end()) return false;
  const std::chrono::seconds interval(desk_.preferences().GetScheduleReminderInterval());
  if (loop_.Now() - found->at >= interval) return false;
  return std::ranges::all_of(due, [&left = found->left](const Due& now) {
    const auto then = std::ranges::find(left, now.schedule, &Due::schedule);
    return then != left.end() && std::ranges::includes(then->days, now.days);
  });
}

// --- Rows ---------------------------------------------------------------------------------------

DateNumber ScheduleReminder::LookAheadDate() {
  const LDGRPreferences& preferences = desk_.preferences();
  const std::int32_t count = std::clamp(preferences.GetScheduleLookAhead(), 0, kMostLookAhead);
  switch (UnitOf(preferences.GetScheduleLookAheadType())) {
    case LookAheadUnit::Weeks:
      return NSCalendarDateToDateNumber(AddDays(Today(), std::int64_t{7} * count));
    case LookAheadUnit::Months:
      return NSCalendarDateToDateNumber(AddMonths(Today(), count));
    case LookAheadUnit::Days:
      break;
  }
  return NSCalendarDateToDateNumber(AddDays(Today(), count));
}

std::vector<ScheduleReminder::Due> ScheduleReminder::DueOccurrences() {
  std::vector<Due> due;
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return due;
  const CivilTime through = DateNumberToNSCalendarDate(LookAheadDate());
  for (const auto& schedule : account->GetSchedules()) {
    std::vector<DateNumber> days = schedule->DueDates(through);
    // A rule may name a day twice.
    days.erase(std::unique(days.begin(), days.end()), days.end());
    if (!days.empty()) due.push_back({schedule, std::move(days)});
  }
  return due;
}

void ScheduleReminder::Fill() {
  typed_rows_.Remember(state_.rows);
  // The rows are others now.
  if (state_.problem && state_.problem->row != -1) state_.problem.reset();
  state_.rows.clear();
  state_.due = state_.ahead = 0;
  if (const auto account = desk_.SelectedAccount()) {
    const DateNumber today = TodaysDateNumber();
    for (const Due& due : DueOccurrences()) {
      const auto first_ahead = std::ranges::upper_bound(due.days, today);
      const bool folds = due.days.size() > kMostRowsOfSchedule;
      AddRows(*account, {due.schedule, {due.days.begin(), first_ahead}}, false, folds);
      AddRows(*account, {due.schedule, {first_ahead, due.days.end()}}, true, folds);
    }
  }
  std::ranges::stable_sort(state_.rows, {},
                           [](const ReminderRow& row) { return row.days.front(); });
  for (ReminderRow& row : state_.rows) typed_rows_.Recall(row);
  state_.sentence = ReminderSentence(state_.due, state_.ahead);
  UpdateBalance();
}

void ScheduleReminder::AddRows(const LDGRAccount& account, const Due& due, bool is_ahead,
                               bool folds) {
  (is_ahead ? state_.ahead : state_.due) += due.days.size();
  const std::string format = RegisterDateFormat(desk_.preferences());
  const auto text = [&format](DateNumber day) {
    return FormatDate(DateNumberToNSCalendarDate(day), format);
  };
  ReminderRow row;
  row.schedule = due.schedule;
  row.is_ahead = is_ahead;
  row.amount_is_enabled = due.schedule->GetSplit() == nullptr;
  row.type = TypeTextOfEntry(&account, *due.schedule);
  row.description = due.schedule->GetDescription();
  row.to_from = due.schedule->GetToFrom();
  row.typed.is_marked = !is_ahead;
  row.goes_out = GoesOut(*due.schedule);
  row.is_transfer = due.schedule->IsTransfer();
  row.typed.amount = OwnAmount(row);
  if (folds && due.days.size() > 1) {
    row.days = due.days;
    row.typed.date = due.days.front();
    row.date_is_enabled = false;
    row.days_text = Message("{1} from {2} to {3}", {std::to_string(due.days.size()),
                                                    text(due.days.front()), text(due.days.back())});
    state_.rows.push_back(std::move(row));
    return;
  }
  for (const DateNumber day : due.days) {
    row.days = {day};
    row.typed.date = day;
    row.days_text = text(day);
    state_.rows.push_back(row);
  }
}

void ScheduleReminder::UpdateBalance() {
  state_.marked = 0;
  for (const ReminderRow& row : state_.rows) {
    if (row.typed.is_marked) state_.marked += row.days.size();
  }
  state_.balance.reset();
  state_.balance_text.clear();
  if (const auto balance = Balance()) {
    state_.balance = RoundNearZeroValue(*balance);
    state_.balance_text = RegisterAmountText(*balance, desk_.preferences());
  }
  announcer_.Changed(Area::ScheduleReminderSheet);
}

std::optional<double> ScheduleReminder::Balance() const {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || state_.typed.balance_mode == ReminderBalanceMode::None)
    return std::nullopt;
  if (state_.typed.balance_mode == ReminderBalanceMode::Today) return account->GetTodaysBalance();
  double balance = account->GetBalance();
  for (const ReminderRow& row : state_.rows) {
    const auto count = static_cast<double>(row.days.size());
    if (!row.typed.is_marked) continue;
    if (!IsTypedAmount(row.typed.amount)) return std::nullopt;
    balance += count * RoundedAmount(*row.SignedAmount());
  }
  return balance;
}

void ScheduleReminder::Read(const std::vector<ReminderRow::Typed>& rows) {
  for (std::size_t i = 0; i < std::min(rows.size(), state_.rows.size()); ++i) {
    ReminderRow& row = state_.rows[i];
    ReminderRow::Typed now = rows[i];
    if (!row.date_is_enabled) now.date = row.typed.date;
    if (!row.amount_is_enabled) now.amount = row.typed.amount;
    DropProblemOf(static_cast<std::int32_t>(i), row.typed, now);
    row.typed = now;
  }
  UpdateBalance();
}

void ScheduleReminder::DropProblemOf(std::int32_t row, const ReminderRow::Typed& before,
                                     const ReminderRow::Typed& now) {
  if (!state_.problem) return;
  const std::string_view field = state_.problem->field;
  const bool is_of_row = state_.problem->row == row;
  const bool goes = (field == kMarkButton && before.is_marked != now.is_marked) ||
                    // A row that is not marked is not committed, whatever it holds.
                    (is_of_row && before.is_marked && !now.is_marked) ||
                    (is_of_row && field == kDateField && before.date != now.date) ||
                    (is_of_row && field == kAmountField && before.amount != now.amount);
  if (goes) state_.problem.reset();
}

void ScheduleReminder::MarkAll(bool is_marked) {
  std::vector<ReminderRow::Typed> rows;
  for (const ReminderRow& row : state_.rows) rows.push_back(row.typed);
  for (ReminderRow::Typed& row : rows) row.is_marked = is_marked;
  Read(rows);
}

bool ScheduleReminder::scheduleReminderSheet_LookAhead(std::string_view text) {
  if (!state_.is_open) return false;
  state_.typed.look_ahead = text;
  std::int32_t count = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, count);
  if (error != std::errc() || rest != end || count < 0 || count > kMostLookAhead) {
    return Refuse(kLookAheadField, Message("This must be a whole number from {1} to {2}.",
                                           {"0", std::to_string(kMostLookAhead)}));
  }
  if (state_.problem && state_.problem->field == kLookAheadField) state_.problem.reset();
  desk_.preferences().SetScheduleLookAhead(count);
  Fill();
  return true;
}

void ScheduleReminder::LookAheadType(std::int32_t tag) {
  if (!state_.is_open) return;
  state_.typed.look_ahead_unit = UnitOf(tag);
  desk_.preferences().SetScheduleLookAheadType(
      static_cast<std::int32_t>(state_.typed.look_ahead_unit));
  Fill();
}

void ScheduleReminder::BalanceModeChosen(std::int32_t tag) {
  if (!state_.is_open) return;
  state_.typed.balance_mode = BalanceModeOf(tag);
  desk_.preferences().SetScheduleReminderBalanceMode(
      static_cast<std::int32_t>(state_.typed.balance_mode));
  UpdateBalance();
}

void ScheduleReminder::DayChanged() {
  if (!state_.is_open) return;
  // What is being typed is of a row that may get another place.
  static_cast<void>(announcer_.EndEditing(Sheet::ScheduleReminder));
  Fill();
}

// --- Committing and skipping --------------------------------------------------------------------

std::vector<DueOccurrence> ScheduleReminder::MarkedOccurrences(bool all) {
  std::vector<DueOccurrence> occurrences;
  for (std::size_t i = 0; i < state_.rows.size(); ++i) {
    const ReminderRow& row = state_.rows[i];
    if (!all && !row.typed.is_marked) continue;
    std::optional<DateNumber> date = row.typed.date;
    if (row.date_is_enabled && !TweakDayField(date)) {
      Refuse(kDateField, LocalizedText("The date does not exist."), static_cast<std::int32_t>(i));
      return {};
    }
    // That of a split has whatever sign its lines come to.
    const double own = row.amount_is_enabled ? OwnAmount(row) : *row.typed.amount;
    if (auto text = ProblemOfAmount(row.typed.amount, own); !text.empty()) {
      Refuse(kAmountField, std::move(text), static_cast<std::int32_t>(i));
      return {};
    }
    const double amount = *row.SignedAmount();
    const bool has_own_date = row.date_is_enabled && date != row.days.front();
    const bool has_own_amount =
        row.amount_is_enabled && RoundedAmount(amount) != row.schedule->GetAmount();
    for (const DateNumber day : row.days) {
      DueOccurrence occurrence{row.schedule, row.schedule->EntryForDate(day)};
      if (has_own_date || has_own_amount) {
        occurrence.edited = LDGRAccountEntry::entryWithEntry(occurrence.entry.get());
        if (has_own_date) occurrence.edited->SetDate(*date);
        if (has_own_amount) occurrence.edited->SetAmount(amount);
      }
      occurrences.push_back(std::move(occurrence));
    }
  }
  if (occurrences.empty()) Refuse(kMarkButton, LocalizedText("Nothing is marked."));
  std::ranges::stable_sort(
      occurrences, {}, [](const DueOccurrence& occurrence) { return occurrence.entry->GetDate(); });
  return occurrences;
}

bool ScheduleReminder::Refuse(std::string_view field, std::string text, std::int32_t row) {
  state_.problem = {std::string(field), std::move(text), row};
  announcer_.Changed(Area::ScheduleReminderSheet);
  return false;
}

bool ScheduleReminder::Commit(bool all) {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::ScheduleReminder)) return false;
  const std::vector<DueOccurrence> occurrences = MarkedOccurrences(all);
  if (occurrences.empty()) return false;
  if (!commit_.CommitAll(occurrences)) {
    Fill();
    return Refuse(
        "", LocalizedText(
                "Nothing was committed: some of it has been committed or skipped meanwhile."));
  }
  Later();
  return true;
}

bool ScheduleReminder::SkipMarked() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::ScheduleReminder)) return false;
  const std::vector<DueOccurrence> occurrences = MarkedOccurrences(false);
  if (occurrences.empty()) return false;
  const bool skipped = commit_.SkipAll(occurrences);
  Fill();
  if (!skipped) {
    return Refuse(
        "",
        LocalizedText("Nothing was skipped: some of it has been committed or skipped meanwhile."));
  }
  state_.problem.reset();
  if (state_.rows.empty()) Later();
  return true;
}

}  // namespace tallyfold
