#include "model/account.h"

#include <algorithm>

#include "model/account_lists.h"
#include "model/entry_numbers.h"
#include "model/entry_walk.h"
#include "platform/ambient.h"
#include "platform/clock.h"

namespace tallyfold {
namespace {

constexpr ChangeKinds kEntryKinds = ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts;

// Removes the element that is `record`; false when there is none.
template <typename List, typename Record>
bool RemoveRecord(List& list, const Record* record) {
  const auto found = std::find_if(list.begin(), list.end(),
                                  [record](const auto& held) { return held.get() == record; });
  if (found == list.end()) return false;
  list.erase(found);
  return true;
}

template <typename List>
typename List::value_type RecordWithNumber(const List& list, std::int32_t number) {
  const auto found = std::find_if(
      list.begin(), list.end(), [number](const auto& held) { return held->GetNumber() == number; });
  return found != list.end() ? *found : nullptr;
}

EntryList EntriesOfKind(const EntryList& entries,
                        bool (LDGRAccountEntry::*is_kind)() const noexcept) {
  EntryList result;
  std::size_t index = 0;
  WalkEntries(entries, [&](const LDGRAccountEntry& entry) {
    if ((entry.*is_kind)()) result.push_back(entries[index]);
    ++index;
  });
  return result;
}

}  // namespace

LDGRAccount::LDGRAccount() = default;

LDGRAccount::~LDGRAccount() {
  TakeAccountSummaries({});
}

void LDGRAccount::SetName(std::optional<std::string_view> name) {
  if (name) Change(name_, std::string(*name));
}

void LDGRAccount::SetEntries(EntryList entries) {
  std::erase(entries, nullptr);
  entries_ = std::move(entries);
  NoteChange(kEntryKinds);
}

void LDGRAccount::AddEntry(std::shared_ptr<LDGRAccountEntry> entry) {
  if (!entry) return;
  entries_.push_back(std::move(entry));
  NoteChange(kEntryKinds);
}

void LDGRAccount::RemoveEntry(const LDGRAccountEntry* entry) {
  if (RemoveRecord(entries_, entry)) NoteChange(kEntryKinds);
}

std::shared_ptr<LDGRAccountEntry> LDGRAccount::GetEntryWithNumber(std::int32_t number) const {
  return RecordWithNumber(entries_, number);
}

void LDGRAccount::SetSchedules(ScheduleList schedules) {
  std::erase(schedules, nullptr);
  schedules_ = std::move(schedules);
  NoteChange(ChangeKind::Schedules);
}

void LDGRAccount::AddSchedule(std::shared_ptr<LDGRAccountSchedule> schedule) {
  if (!schedule) return;
  schedules_.push_back(std::move(schedule));
  NoteChange(ChangeKind::Schedules);
}

void LDGRAccount::RemoveSchedule(const LDGRAccountSchedule* schedule) {
  if (RemoveRecord(schedules_, schedule)) NoteChange(ChangeKind::Schedules);
}

std::shared_ptr<LDGRAccountSchedule> LDGRAccount::ScheduleForNumber(std::int32_t number) const {
  return RecordWithNumber(schedules_, number);
}

bool LDGRAccount::HasPendingScheduledEntries() const {
  const CivilTime now = CurrentClock().LocalNow();
  return std::any_of(schedules_.begin(), schedules_.end(),
                     [&now](const auto& schedule) { return !schedule->DueDates(now).empty(); });
}

std::shared_ptr<LDGRAccountEntry> LDGRAccount::GetFirstEntry() const {
  const auto first =
      std::min_element(entries_.begin(), entries_.end(),
                       [](const auto& a, const auto& b) { return a->DateIsGreaterThan(*b) < 0; });
  return first != entries_.end() ? *first : nullptr;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccount::GetLastEntry() const {
  const auto last =
      std::max_element(entries_.begin(), entries_.end(),
                       [](const auto& a, const auto& b) { return a->DateIsGreaterThan(*b) < 0; });
  return last != entries_.end() ? *last : nullptr;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccount::GetLastEnteredEntry() const {
  const auto last = std::max_element(
      entries_.begin(), entries_.end(),
      [](const auto& a, const auto& b) { return a->GetNumber() < b->GetNumber(); });
  return last != entries_.end() ? *last : nullptr;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccount::GetLastEnteredCheck() const {
  auto last = EntryNumbers::UpToDate(entry_numbers_, *this).LastCheck();
  if (last != nullptr) return last;
  for (const auto& entry : entries_) {
    if (entry->IsCheck() && (!last || entry->GetNumber() > last->GetNumber())) last = entry;
  }
  return last;
}

EntryList LDGRAccount::GetDebits() const {
  return EntriesOfKind(entries_, &LDGRAccountEntry::IsDebit);
}

EntryList LDGRAccount::GetDeposits() const {
  return EntriesOfKind(entries_, &LDGRAccountEntry::IsDeposit);
}

EntryList LDGRAccount::GetTransfers() const {
  return EntriesOfKind(entries_, &LDGRAccountEntry::IsTransfer);
}

void LDGRAccount::SetPassword(std::optional<std::string_view> password) {
  if (!password) return;
  Change(password_, std::string(*password));
  if (password_.empty()) authenticated_ = true;
}

bool LDGRAccount::Authenticate(std::string_view password) noexcept {
  if (password == password_) authenticated_ = true;
  return authenticated_;
}

void LDGRAccount::setAuthenticated(bool authenticated) noexcept {
  if (HasPassword()) authenticated_ = authenticated;
}

void LDGRAccount::setEntryFilterData(const plist::Value& data) {
  if (data == entry_filter_data_) return;
  entry_filter_data_ = data.DeepCopy();
  NoteSetting();
}

void LDGRAccount::setReconcileFilterData(const plist::Value& data) {
  if (data == reconcile_filter_data_) return;
  reconcile_filter_data_ = data.DeepCopy();
  NoteSetting();
}

void AccountLists::SelectSummaryOfList(LDGRAccount& account) noexcept {
  const AccountSummaryList& list = account.account_summaries_;
  auto& selected = account.selected_account_summary_;
  if (std::find(list.begin(), list.end(), selected) != list.end()) return;
  selected = list.empty() ? nullptr : list.front();
}

}  // namespace tallyfold
