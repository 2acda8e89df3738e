#include "model/account_schedule.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

#include "model/calendar.h"
#include "model/field_table.h"
#include "model/stored_numbers.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMissingInSchedule = "No %@ found for schedule.";
constexpr std::string_view kWrongInSchedule = "%@ is in the wrong format for schedule.";

// How many days of the weekend ahead are already due on `day` when they move to its Friday.
std::int64_t WeekendDaysAhead(std::int64_t day) noexcept {
  switch (DayOfWeekOfDayCount(day)) {
    case 5:
      return 2;
    case 6:
      return 1;
    default:
      return 0;
  }
}

}  // namespace

struct LDGRAccountSchedule::Keys {
  using Schedule = LDGRAccountSchedule;

  static constexpr std::array<Field<Schedule>, 5> kFields{{
      {"repeatIntervalType", &Schedule::interval_type_, kMissingInSchedule, kWrongInSchedule},
      {"repeatInterval", &Schedule::interval_, kMissingInSchedule, kWrongInSchedule},
      {"repeatUntilType", &Schedule::until_type_, kMissingInSchedule, kWrongInSchedule},
      {"repeatUntil", &Schedule::until_, kMissingInSchedule, kWrongInSchedule},
      {"usePrecedingFriday", &Schedule::use_preceding_friday_, kMissingInSchedule,
       kWrongInSchedule},
  }};
  static constexpr std::string_view kCommittedDates = "committedDates";
  static constexpr auto kNames = [] {
    std::array<std::string_view, kFields.size() + 1> names{};
    for (std::size_t i = 0; i < kFields.size(); ++i) names[i] = kFields[i].key;
    names.back() = kCommittedDates;
    return names;
  }();

  static std::vector<DateNumber> ReadCommittedDates(const plist::Dictionary& dictionary) {
    std::vector<DateNumber> days;
    const plist::Value& value = dictionary.Get(kCommittedDates);
    if (value.IsNone()) {
      LogForKey(kMissingInSchedule, kCommittedDates);
      return days;
    }
    if (!value.IsArray()) {
      RefuseForKey(kWrongInSchedule, kCommittedDates);
      return days;
    }
    const plist::Array elements = value.ArrayValue();
    days.reserve(elements.size());
    for (const plist::Value& element : elements) {
      if (element.IsNumber()) {
        days.push_back(StoredInteger(element, kCommittedDates));
      } else {
        RefuseForKey(kWrongInSchedule, kCommittedDates);
      }
    }
    return days;
  }
};

LDGRAccountSchedule::LDGRAccountSchedule(const std::optional<plist::Dictionary>& dictionary)
    : LDGRAccountEntry(dictionary, Keys::kNames) {
  if (!dictionary) return;
  for (const auto& field : Keys::kFields) ReadField(*this, field, *dictionary);
  committed_dates_ = CommittedDates(Keys::ReadCommittedDates(*dictionary));
}

std::shared_ptr<LDGRAccountSchedule> LDGRAccountSchedule::Image() const {
  auto image = std::make_shared<LDGRAccountSchedule>();
  CopyTo(*image);
  for (const auto& field : Keys::kFields) CopyField(*this, *image, field);
  image->committed_dates_ = committed_dates_;
  return image;
}

void LDGRAccountSchedule::ExchangeWith(LDGRAccountSchedule& image) noexcept {
  LDGRAccountEntry::ExchangeWith(image);
  for (const auto& field : Keys::kFields) ExchangeField(*this, image, field);
  std::swap(committed_dates_, image.committed_dates_);
  first_uncommitted_.reset();
  image.first_uncommitted_.reset();
}

bool LDGRAccountSchedule::DiffersFrom(const LDGRAccountSchedule& image) const noexcept {
  return !DifferenceFrom(image).IsEmpty() ||
         std::any_of(Keys::kFields.begin(), Keys::kFields.end(),
                     [&](const auto& field) { return FieldDiffers(*this, image, field); }) ||
         committed_dates_.days() != image.committed_dates_.days();
}

std::size_t LDGRAccountSchedule::MemorySize() const noexcept {
  return LDGRAccountEntry::MemorySize() + sizeof(*this) - sizeof(LDGRAccountEntry) +
         committed_dates_.size() * sizeof(DateNumber);
}

void LDGRAccountSchedule::WriteOwnKeys(plist::Output& output) const {
  for (const auto& field : Keys::kFields) WriteField(*this, field, output);
  output.Key(Keys::kCommittedDates);
  output.BeginArray();
  for (const DateNumber day : committed_dates_.days()) output.Integer(day);
  output.EndArray();
}

Recurrence LDGRAccountSchedule::GetRecurrence() const noexcept {
  return {static_cast<RepeatInterval>(interval_type_), interval_, GetDate(), use_preceding_friday_};
}

std::size_t LDGRAccountSchedule::OccurrencesLeft() const noexcept {
  const auto committed = static_cast<std::int64_t>(committed_dates_.size());
  return static_cast<std::size_t>(std::max<std::int64_t>(until_ - committed, 0));
}

DateNumber LDGRAccountSchedule::GetLastCommittedDate() const noexcept {
  return committed_dates_.empty() ? 0 : committed_dates_.days().back();
}

std::shared_ptr<LDGRAccountEntry> LDGRAccountSchedule::EntryForDate(DateNumber date) const {
  auto entry = entryWithEntry(this);
  entry->SetDate(date);
  return entry;
}

EntryList LDGRAccountSchedule::EntriesForDates(const std::vector<DateNumber>& dates) const {
  EntryList entries;
  entries.reserve(dates.size());
  for (const DateNumber date : dates) entries.push_back(EntryForDate(date));
  return entries;
}

CivilTime LDGRAccountSchedule::AdjustDateForUsePrecedingFriday(
    const CivilTime& date) const noexcept {
  if (!use_preceding_friday_) return date;
  const std::int64_t day = DayCount(date.year, date.month, date.day);
  const std::int64_t moved = MovedToPrecedingFriday(day);
  return moved == day ? date : AddDays(date, moved - day);
}

EntryList LDGRAccountSchedule::EntriesFromDate(DateNumber from, DateNumber to) const {
  return EntriesForDates(UncommittedOccurrences(GetRecurrence(), committed_dates_, from, to));
}

EntryList LDGRAccountSchedule::EvaluateForDate(const CivilTime& date) const {
  return EntriesForDates(DueDates(date));
}

std::vector<DateNumber> LDGRAccountSchedule::DueDates(const CivilTime& date) const {
  const std::int64_t day = DayCount(date.year, date.month, date.day);
  const std::int64_t ahead = use_preceding_friday_ ? WeekendDaysAhead(day) : 0;
  std::int64_t last = day + ahead;
  std::size_t limit = std::numeric_limits<std::size_t>::max();
  switch (static_cast<Until>(until_type_)) {
    case Until::Forever:
      break;
    case Until::Count:
      limit = OccurrencesLeft();
      break;
    case Until::Date: {
      const std::int64_t until = DayCountOf(until_);
      const bool over = day >= until && day >= DayCountOf(GetDate());
      last = over ? until : day + std::clamp<std::int64_t>(until - day, 0, ahead);
      break;
    }
    default:
      return {};
  }
  return UncommittedOccurrences(GetRecurrence(), committed_dates_, GetDate(),
                                DateNumberOfDayCount(last), limit);
}

std::vector<OccurrenceAhead> LDGRAccountSchedule::NextOccurrences(std::size_t count) const {
  DateNumber last = std::numeric_limits<DateNumber>::max();
  switch (static_cast<Until>(until_type_)) {
    case Until::Forever:
      break;
    case Until::Count:
      count = std::min(count, OccurrencesLeft());
      break;
    case Until::Date:
      last = until_;
      break;
    default:
      return {};
  }
  return OccurrencesAhead(GetRecurrence(), committed_dates_, last, count);
}

DateNumber LDGRAccountSchedule::NextEntryDate() const {
  const Recurrence recurrence = GetRecurrence();
  if (!first_uncommitted_ || first_uncommitted_->recurrence != recurrence) {
    first_uncommitted_ = {recurrence, FirstUncommittedOccurrence(recurrence, committed_dates_)};
  }
  const DateNumber next = first_uncommitted_->date;
  if (next == -1) return -1;
  switch (static_cast<Until>(until_type_)) {
    case Until::Forever:
      return next;
    case Until::Count:
      return OccurrencesLeft() > 0 ? next : -1;
    case Until::Date: {
      const std::int64_t until = DayCountOf(until_);
      return DayCountOf(next) > until || until < DayCountOf(GetDate()) ? -1 : next;
    }
  }
  return -1;
}

void LDGRAccountSchedule::AddCommittedDate(DateNumber date) {
  committed_dates_.Add(date);
  first_uncommitted_.reset();
}

void LDGRAccountSchedule::CommitEntry(const LDGRAccountEntry* entry) {
  if (entry != nullptr) AddCommittedDate(entry->GetDate());
}

int LDGRAccountSchedule::NextEntryDateIsGreaterThan(const LDGRAccountSchedule& other) const {
  const auto sorted_last = [](DateNumber date) {
    return date == -1 ? std::numeric_limits<DateNumber>::max() : date;
  };
  const DateNumber mine = sorted_last(NextEntryDate());
  const DateNumber others = sorted_last(other.NextEntryDate());
  if (mine != others) return mine > others ? 1 : -1;
  return NumberIsGreaterThan(other);
}

int LDGRAccountSchedule::NextEntryDateIsGreaterThan_Reversed(
    const LDGRAccountSchedule& other) const {
  return -NextEntryDateIsGreaterThan(other);
}

}  // namespace tallyfold
