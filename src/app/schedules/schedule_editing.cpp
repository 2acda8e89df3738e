#include "app/schedules/schedule_editing.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "app/entries/edit_sheet.h"
#include "ledger/change.h"
#include "model/entry_type.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Repeat = RepeatInterval;
using Until = LDGRAccountSchedule::Until;

constexpr std::int32_t kNoType = -1;

// English keys in the order of the pop-ups.
template <typename Type>
struct Item {
  Type type;
  std::string_view title;
};

constexpr std::array kIntervals = {
    Item<Repeat>{Repeat::Once, "Once"},
    Item<Repeat>{Repeat::Daily, "Every Day"},
    Item<Repeat>{Repeat::Weekly, "Every Week"},
    Item<Repeat>{Repeat::TwoWeeks, "Every Two Weeks"},
    Item<Repeat>{Repeat::Monthly, "Every Month"},
    Item<Repeat>{Repeat::EndOfMonth, "Last Day of Every Month"},
    Item<Repeat>{Repeat::ThreeMonths, "Every Three Months"},
    Item<Repeat>{Repeat::EndOfQuarter, "End of Every Quarter"},
    Item<Repeat>{Repeat::Yearly, "Every Year"},
    Item<Repeat>{Repeat::EveryNDays, "Every ... Days"},
    Item<Repeat>{Repeat::EveryNWeeks, "Every ... Weeks"},
    Item<Repeat>{Repeat::EveryNMonths, "Every ... Months"},
    Item<Repeat>{Repeat::EveryNQuarters, "Every ... Quarters"},
    Item<Repeat>{Repeat::EveryNYears, "Every ... Years"},
};

constexpr std::array kUntils = {
    Item<Until>{Until::Forever, "Forever"},
    Item<Until>{Until::Count, "A Number of Times"},
    Item<Until>{Until::Date, "Until a Date"},
};

template <typename Items>
std::vector<PopUpItem> PopUpItems(const Items& items) {
  std::vector<PopUpItem> result;
  for (const auto& item : items) {
    result.push_back({LocalizedText(item.title), static_cast<std::int32_t>(item.type)});
  }
  return result;
}

using Typed = ScheduleSheetState::Typed;

constexpr std::string_view kAccountPopUp = "scheduleSheet_Account_PopUp";

constexpr TypedField<Typed> kFields[] = {
    {"_Start_Field", AreSame<Typed, &Typed::start>},
    {"_Amount_Field", AreSame<Typed, &Typed::amount>},
    {"_Split_Table", AreSame<Typed, &Typed::split>},
    {"_Interval_PopUp", AreSame<Typed, &Typed::repeat_interval_type>},
    // What does not count any more is no problem.
    {"_Every_Field",
     [](const Typed& a, const Typed& b) {
       return a.repeat_interval == b.repeat_interval &&
              a.repeat_interval_type == b.repeat_interval_type;
     }},
    {"_UntilType_PopUp", AreSame<Typed, &Typed::repeat_until_type>},
    {"_Until_Field",
     [](const Typed& a, const Typed& b) {
       return a.repeat_until == b.repeat_until && a.repeat_until_type == b.repeat_until_type;
     }},
    {"_Account_PopUp", AreSame<Typed, &Typed::transfer_account>},
};

bool HasTag(const std::vector<PopUpItem>& items, std::int32_t tag) {
  return std::ranges::any_of(
      items, [tag](const PopUpItem& item) { return !item.is_separator && item.tag == tag; });
}

}  // namespace

bool ScheduleEditing::New(EntryKind kind) {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || !sheets_.IsFree()) return false;
  ScheduleValues values;
  values.kind = kind;
  values.start = TodaysDateNumber();
  values.repeat_interval_type = static_cast<std::int32_t>(Repeat::Monthly);
  switch (kind) {
    case EntryKind::Debit:
      if (const auto& type = account->GetDefaultDebitType()) {
        values.type = type->GetNumber();
        values.is_check = type->GetIsCheck();
      }
      break;
    case EntryKind::Deposit:
      if (const auto& type = account->GetDefaultDepositType()) values.type = type->GetNumber();
      break;
    case EntryKind::Transfer:
      values.transfer_account = account->lastTransferAccount();
      values.is_transfer_origin = account->isLastTransferOrigin();
      break;
  }
  return Begin(account, nullptr, std::move(values));
}

bool ScheduleEditing::NewFromEntry() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  const auto entry = desk_.SelectedEntry();
  if (account == nullptr || entry == nullptr || !sheets_.IsFree()) return false;
  if (!entry->IsDebit() && !entry->IsDeposit() && !entry->IsTransfer()) return false;
  ScheduleValues values = ValuesOfEntry(*entry);
  values.repeat_interval_type = static_cast<std::int32_t>(Repeat::Monthly);
  if (!Begin(account, nullptr, std::move(values))) return false;
  day_of_entry_ = entry->GetDate();
  return true;
}

bool ScheduleEditing::Edit() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  auto schedule = desk_.SelectedSchedule();
  if (account == nullptr || schedule == nullptr || !sheets_.IsFree()) return false;
  if (!schedule->IsDebit() && !schedule->IsDeposit() && !schedule->IsTransfer()) return false;
  ScheduleValues values = ValuesOf(*schedule);
  return Begin(account, std::move(schedule), std::move(values));
}

bool ScheduleEditing::Begin(const std::shared_ptr<LDGRAccount>& account,
                            std::shared_ptr<LDGRAccountSchedule> schedule, ScheduleValues values) {
  account_ = account;
  edited_ = std::move(schedule);
  day_of_entry_.reset();
  before_split_.reset();
  former_ = values;
  state_ = ScheduleSheetState();
  state_.is_new = edited_ == nullptr;
  state_.typed = std::move(values);
  Populate(*account);
  if (state_.typed.kind == EntryKind::Transfer && state_.account_items.empty()) return false;
  if (!sheets_.Open(Sheet::Schedule, [this] { Cancel(); })) return false;
  state_.is_open = true;
  Update();
  return true;
}

void ScheduleEditing::Populate(const LDGRAccount& account) {
  state_.interval_items = PopUpItems(kIntervals);
  state_.until_items = PopUpItems(kUntils);
  switch (state_.typed.kind) {
    case EntryKind::Debit:
      state_.descriptions = {account_, &LDGRAccount::GetPreferredDebitDescriptions};
      state_.to_froms = {account_, &LDGRAccount::GetPreferredTos};
      break;
    case EntryKind::Deposit:
      state_.descriptions = {account_, &LDGRAccount::GetPreferredDepositDescriptions};
      state_.to_froms = {account_, &LDGRAccount::GetPreferredFroms};
      break;
    case EntryKind::Transfer:
      state_.descriptions = {account_, &LDGRAccount::GetPreferredTransferDescriptions};
      return PopulateAccounts(account);
  }
  PopulateTypes(account);
}

void ScheduleEditing::PopulateTypes(const LDGRAccount& account) {
  auto& items = state_.type_items;
  for (const auto& type : state_.typed.kind == EntryKind::Debit ? account.GetDebitTypes()
                                                                : account.GetDepositTypes()) {
    items.push_back({type->GetName(), type->GetNumber()});
  }
  const std::int32_t number = state_.typed.type;
  if (number != kNoType && !HasTag(items, number)) {
    if (const auto type = account.AccountEntryTypeForNumber(number)) {
      items.push_back({type->GetName(), number});
    }
  }
  if (!items.empty()) items.push_back({"", 0, true});
  items.push_back({LocalizedText("None"), kNoType});
}

void ScheduleEditing::PopulateAccounts(const LDGRAccount& account) {
  auto& items = state_.account_items;
  for (const auto& other : desk_.accounts()) {
    if (other.get() != &account) items.push_back({other->GetName(), other->GetNumber()});
  }
  auto& typed = state_.typed;
  if (HasTag(items, typed.transfer_account)) return;
  // One whose other account is gone keeps that account's name until another is chosen.
  if (!state_.is_new) items.insert(items.begin(), {typed.to_from, typed.transfer_account});
  if (!items.empty()) typed.transfer_account = items.front().tag;
}

void ScheduleEditing::Read(Typed typed) {
  if (!state_.is_open) return;
  typed.kind = state_.typed.kind;
  FollowSplit(typed);
  TakeTyped(state_.typed, std::move(typed), state_.problem, kFields);
  Update();
}

void ScheduleEditing::FollowSplit(Typed& typed) {
  const bool was_split = state_.typed.split != SplitRows();
  const std::string word = LocalizedText("Split");
  if (typed.split != SplitRows()) {
    if (!was_split) before_split_ = {typed.amount, typed.to_from};
    typed.amount = TotalOf(typed.split);
    typed.to_from = word;
  } else if (was_split && before_split_) {
    std::tie(typed.amount, typed.to_from) = *std::exchange(before_split_, std::nullopt);
  } else if (was_split && typed.to_from == word) {
    // The word that stood for the lines goes with them.
    typed.to_from.clear();
  }
}

void ScheduleEditing::Update() {
  const auto& typed = state_.typed;
  const bool is_split = typed.kind != EntryKind::Transfer && typed.split != SplitRows();
  state_.amount_is_enabled = !is_split;
  state_.to_from_is_enabled = !is_split && typed.kind != EntryKind::Transfer;
  state_.every_is_enabled = RepeatsEverySoMany(typed.repeat_interval_type);
  state_.until_is_enabled = static_cast<Until>(typed.repeat_until_type) != Until::Forever;
  state_.preceding_friday_is_enabled = MovesOffWeekend(typed.repeat_interval_type);

  state_.dates.clear();
  state_.dates_note.clear();
  ScheduleValues values = typed;
  // The days do not ask for the money.
  values.amount = 0.0;
  values.split = SplitRows();
  // What cannot be stored in the end can be shown as far as it makes sense.
  if (!ProblemOf(values, &typed, TodaysDateNumber())) {
    const auto schedule = edited_ != nullptr
                              ? std::make_shared<LDGRAccountSchedule>(edited_->asDictionary())
                              : std::make_shared<LDGRAccountSchedule>();
    StoreValues(values, *schedule);
    state_.dates = ScheduleDates(*schedule);
    state_.dates_note = SkippedMonthsNote(state_.dates, *values.start);
  }
  announcer_.Changed(Area::ScheduleSheet);
}

bool ScheduleEditing::OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::Schedule)) return false;
  state_.problem = Check();
  if (state_.problem) {
    announcer_.Changed(Area::ScheduleSheet);
    return false;
  }

  const auto account = account_.lock();
  const auto schedule = edited_ != nullptr ? edited_ : std::make_shared<LDGRAccountSchedule>();
  Change change(ledger_, edited_ != nullptr ? "Edit Schedule" : "New Schedule", account);
  if (edited_ != nullptr) change.Edit(account, edited_);
  StoreValues(state_.typed, *schedule);
  if (edited_ == nullptr) {
    schedule->SetNumber(account->NextAvailableScheduleNumber());
    if (day_of_entry_ == schedule->GetDate()) {
      for (const auto& there : schedule->EntriesFromDate(*day_of_entry_, *day_of_entry_)) {
        schedule->CommitEntry(there.get());
      }
    }
    change.Add(account, schedule);
  }
  change.Close();
  Close();
  refresh_.SchedulesChanged();
  desk_.SelectSchedule(schedule);
  return true;
}

std::optional<Problem> ScheduleEditing::Check() {
  if (std::string text = CheckTarget(); !text.empty()) return Problem{"", std::move(text)};
  auto problem = ProblemOf(state_.typed, &former_, TodaysDateNumber());
  return problem ? problem : CheckOtherAccount();
}

std::string ScheduleEditing::CheckTarget() const {
  const auto account = account_.lock();
  if (account == nullptr || account != desk_.SelectedAccount()) {
    return LocalizedText("The account is no longer selected.");
  }
  const auto& schedules = account->GetSchedules();
  if (edited_ != nullptr && std::ranges::find(schedules, edited_) == schedules.end()) {
    return LocalizedText("The scheduled entry has been removed.");
  }
  return "";
}

// Gives a transfer its other account's name.
std::optional<Problem> ScheduleEditing::CheckOtherAccount() {
  auto& typed = state_.typed;
  if (typed.kind != EntryKind::Transfer) return std::nullopt;
  const auto other = desk_.AccountWithNumber(typed.transfer_account);
  if (other != nullptr && other != desk_.SelectedAccount()) {
    typed.to_from = other->GetName();
    return std::nullopt;
  }
  const bool is_kept = !state_.is_new && typed.transfer_account == former_.transfer_account;
  if (is_kept) return std::nullopt;
  return Problem{std::string(kAccountPopUp), LocalizedText("No account is chosen.")};
}

void ScheduleEditing::Cancel() {
  const Announcer::Operation operation(announcer_);
  if (state_.is_open) Close();
}

void ScheduleEditing::Close() {
  state_.is_open = false;
  edited_ = nullptr;
  announcer_.Changed(Area::ScheduleSheet);
  sheets_.Close(Sheet::Schedule);
}

}  // namespace tallyfold
