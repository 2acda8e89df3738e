#include "ledger/change.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <optional>
#include <type_traits>
#include <utility>

#include "ledger/change_set_builder.h"
#include "ledger/image_parts.h"
#include "ledger/ledger.h"
#include "ledger/list_part.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using AccountPointer = std::shared_ptr<LDGRAccount>;

// Room for one more, at a cost that does not grow with what is there.
template <typename List>
void MakeRoomForOne(List& list) {
  if (list.size() == list.capacity()) list.reserve(list.size() * 2 + 4);
}

}  // namespace

Change::Change(Ledger& ledger, std::string_view name, AccountPointer ordered_in)
    : Change(ledger, name, std::move(ordered_in), Undoable::Yes) {}

Change::Change(Ledger& ledger) : Change(ledger, {}, nullptr, Undoable::No) {}

Change::Change(Ledger& ledger, std::string_view name, AccountPointer ordered_in, Undoable undoable)
    : ledger_(ledger),
      outer_(ledger.open_),
      undoable_(undoable),
      name_(name),
      list_revisions_(ledger.accounts().ListRevisions()) {
  assert(!ledger.is_announcing_);
  if (ordered_in) ordered_in_.push_back(std::move(ordered_in));
  ledger_.open_ = this;
}

Change::~Change() {
  if (!is_open_) return;
  RollBack();
  End();
}

void Change::End() noexcept {
  assert(ledger_.open_ == this);
  for (const Touched& each : touched_) {
    if (each.has_entries) AccountLists::EndEntryChange(*each.account);
  }
  ledger_.open_ = outer_;
  is_open_ = false;
}

// --- Records ------------------------------------------------------------------------------------

Change::Touched& Change::Touch(const AccountPointer& account) {
  for (auto each = touched_.rbegin(); each != touched_.rend(); ++each) {
    if (each->account == account) return *each;
  }
  touched_.push_back({account, AccountLists::BearingsOf(*account)});
  return touched_.back();
}

void Change::TouchEntries(const AccountPointer& account) {
  Touched& touched = Touch(account);
  if (std::exchange(touched.has_entries, true)) return;
  AccountLists::BeginEntryChange(*account);
}

template <typename Record>
void Change::TouchFor(const AccountPointer& account) {
  if constexpr (std::is_same_v<Record, LDGRAccountEntry>) {
    TouchEntries(account);
  } else {
    Touch(account);
  }
}

void Change::CarryOut(std::unique_ptr<StepPart> part) {
  MakeRoomForOne(parts_);
  part->MakeRoom(Way::Forward);
  parts_.push_back(std::move(part));
  parts_.back()->Exchange(Way::Forward);
}

void Change::AlsoOrderedIn(const AccountPointer& account) {
  if (std::find(ordered_in_.begin(), ordered_in_.end(), account) == ordered_in_.end()) {
    ordered_in_.push_back(account);
  }
}

bool Change::WasRemoved(const void* record) const noexcept {
  for (const Change* change = this; change != nullptr; change = change->outer_) {
    if (change->removed_.contains(record)) return true;
  }
  return false;
}

template <typename Record>
void Change::AddRecord(const AccountPointer& account, std::shared_ptr<Record> record) {
  if (!account || !record) return;
  TouchFor<Record>(account);
  using Part = ListPart<Record>;
  auto& list = RecordTraits<Record>::ListOf(*account);
  MakeRoomForOne(list);
  // Records that come one after the other come back together.
  auto* part = parts_.empty() ? nullptr : dynamic_cast<Part*>(parts_.back().get());
  if (part == nullptr || !part->Inserts() || part->account() != account) {
    parts_.push_back(std::make_unique<Part>(account, true));
    part = static_cast<Part*>(parts_.back().get());
  }
  MakeRoomForOne(part->rows());
  // What is new needs no image; what only moves does.
  if (!WasRemoved(record.get())) known_.insert(SubjectOf(record.get()));
  part->rows().push_back({list.size(), record});
  list.push_back(record);
  RecordTraits<Record>::SetOwner(*record, account.get());
}

template <typename Record>
bool Change::RemoveRecord(const AccountPointer& account, const Record* record) {
  if (!account || record == nullptr) return false;
  const auto& list = RecordTraits<Record>::ListOf(*account);
  std::optional<std::size_t> place;
  if constexpr (std::is_same_v<Record, LDGRAccountEntry>) {
    place = ledger_.places_.Of(*account, record);
  } else {
    const auto found = std::find_if(list.begin(), list.end(),
                                    [record](const auto& held) { return held.get() == record; });
    if (found != list.end()) place = static_cast<std::size_t>(found - list.begin());
  }
  if (!place) return false;
  TouchFor<Record>(account);
  auto part = std::make_unique<ListPart<Record>>(account, false);
  part->rows().push_back({*place, list[*place]});
  removed_.insert(record);
  CarryOut(std::move(part));
  return true;
}

bool Change::Remove(const AccountPointer& account, const EntryList& entries) {
  if (!account || entries.empty()) return entries.empty();
  if (entries.size() == 1) return RemoveRecord(account, entries.front().get());
  TouchEntries(account);
  std::unordered_set<const LDGRAccountEntry*> wanted;
  for (const auto& entry : entries) wanted.insert(entry.get());
  auto part = std::make_unique<ListPart<LDGRAccountEntry>>(account, false);
  const EntryList& list = account->GetEntries();
  for (std::size_t place = 0; place < list.size(); ++place) {
    if (wanted.contains(list[place].get())) part->rows().push_back({place, list[place]});
  }
  const bool all_there = part->rows().size() == wanted.size();
  removed_.insert(wanted.begin(), wanted.end());
  CarryOut(std::move(part));
  return all_there;
}

template <typename Part, typename... Arguments>
void Change::EditOnce(std::uintptr_t subject, Arguments&&... arguments) {
  if (known_.contains(subject)) return;
  auto part = std::make_unique<Part>(std::forward<Arguments>(arguments)...);
  MakeRoomForOne(parts_);
  known_.insert(subject);
  parts_.push_back(std::move(part));
}

template <typename Record>
Record& Change::EditRecord(const AccountPointer& account, const std::shared_ptr<Record>& record) {
  TouchFor<Record>(account);
  EditOnce<EditPart<Record>>(SubjectOf(record.get()), account, record);
  return *record;
}

void Change::Add(const AccountPointer& account, std::shared_ptr<LDGRAccountEntry> entry) {
  AddRecord(account, std::move(entry));
}

void Change::Add(const AccountPointer& account, const EntryList& entries) {
  if (!account) return;
  EntryList& list = AccountLists::Entries(*account);
  const std::size_t needed = list.size() + entries.size();
  if (needed > list.capacity()) list.reserve(std::max(needed, list.capacity() * 2));
  for (const auto& entry : entries) AddRecord(account, entry);
}

void Change::Add(const AccountPointer& account, std::shared_ptr<LDGRAccountSchedule> schedule) {
  AddRecord(account, std::move(schedule));
}

void Change::Add(const AccountPointer& account, std::shared_ptr<LDGRAccountSummary> summary) {
  AddRecord(account, std::move(summary));
}

bool Change::Remove(const AccountPointer& account, const LDGRAccountEntry* entry) {
  return RemoveRecord(account, entry);
}

bool Change::Remove(const AccountPointer& account, const LDGRAccountSchedule* schedule) {
  return RemoveRecord(account, schedule);
}

bool Change::Remove(const AccountPointer& account, const LDGRAccountSummary* summary) {
  return RemoveRecord(account, summary);
}

LDGRAccountEntry& Change::Edit(const AccountPointer& account,
                               const std::shared_ptr<LDGRAccountEntry>& entry) {
  return EditRecord(account, entry);
}

LDGRAccountSchedule& Change::Edit(const AccountPointer& account,
                                  const std::shared_ptr<LDGRAccountSchedule>& schedule) {
  return EditRecord(account, schedule);
}

LDGRAccountSummary& Change::Edit(const AccountPointer& account,
                                 const std::shared_ptr<LDGRAccountSummary>& summary) {
  return EditRecord(account, summary);
}

// --- Accounts -----------------------------------------------------------------------------------

LDGRAccount& Change::EditTypes(const AccountPointer& account) {
  Touch(account);
  EditOnce<TypesEdit>(SubjectOf(account.get(), AccountPart::Types), account);
  return *account;
}

LDGRAccount& Change::EditOptions(const AccountPointer& account) {
  Touch(account);
  constexpr auto part = AccountPart::Options;
  EditOnce<AccountPartEdit>(SubjectOf(account.get(), part), account, part);
  return *account;
}

LDGRAccount& Change::EditSettings(const AccountPointer& account) {
  Touch(account);
  constexpr auto part = AccountPart::Settings;
  EditOnce<AccountPartEdit>(SubjectOf(account.get(), part), account, part);
  return *account;
}

std::int32_t Change::NextNumber(const AccountPointer& account) {
  Touch(account);
  return account->NextAvailableNumber();
}

void Change::AddAccount(const AccountPointer& account) {
  if (!account) return;
  AccountsStore& store = ledger_.accounts();
  Touch(account);
  CarryOut(std::make_unique<AccountListPart>(store, account, store.accounts().size(), true));
}

bool Change::RemoveAccount(const AccountPointer& account) {
  AccountsStore& store = ledger_.accounts();
  const AccountList& list = store.accounts();
  const auto found = std::find(list.begin(), list.end(), account);
  if (!account || found == list.end()) return false;
  Touch(account);
  const auto place = static_cast<std::size_t>(found - list.begin());
  CarryOut(std::make_unique<AccountListPart>(store, account, place, false));
  return true;
}

void Change::EditPassword() {
  EditOnce<PasswordEdit>(SubjectOf(&ledger_.accounts()), ledger_.accounts());
}

void Change::Attach(std::unique_ptr<StepCompanion> companion) {
  if (companion) companions_.push_back(std::move(companion));
}

// --- The end ------------------------------------------------------------------------------------

ChangeSet Change::Close() {
  if (!is_open_) return {};
  if (outer_ != nullptr) {
    HandOn();
    End();
    return {};
  }
  TidyEdits();
  ThrowIfRefused();
  ChangeSet named;
  if (undoable_ == Undoable::Yes) {
    named.name = name_;
    named.ordered_in = ordered_in_;
  }
  ChangeSetBuilder builder(std::move(named));
  for (const auto& part : parts_) part->Tell(builder, Way::Forward);
  for (const Touched& each : touched_) {
    if (each.account->GetNumberCount() != each.bearings.number_count) builder.Counted(each.account);
  }
  ChangeSet set = builder.Take();

  auto step = std::make_unique<Step>();
  StepParts& parts = step->parts;
  parts.reserve(parts_.size());
  for (const auto& part : parts_) {
    if (!part->IsSetting()) step->memory_size += part->MemorySize();
  }
  step->name = name_;
  step->ordered_in = ordered_in_;
  step->when = CurrentClock().Now();
  History& history = ledger_.history();
  history.MakeRoom(parts_.size(), companions_.size(), undoable_ == Undoable::Yes);

  std::vector<RecoveryRecord::Carried> carried;
  if (ledger_.journal_ != nullptr) {
    for (const auto& part : parts_) carried.push_back({part.get(), Way::Forward});
  }

  const bool waits = WaitsForNext();
  if (waits) ledger_.unwritten_.reserve(ledger_.unwritten_.size() + parts_.size());

  // From here on nothing fails.
  for (auto& part : parts_) {
    if (!part->IsSetting()) parts.push_back(std::move(part));
  }
  step->companions = std::move(companions_);
  Ledger::Note(set);
  // While the parts are still there, which the history may forget.
  if (waits) {
    ledger_.WriteLater(parts_);
  } else {
    ledger_.Record(set, carried);
  }
  if (!parts.empty() && !set.IsEmpty()) history.Take(std::move(step), undoable_ == Undoable::Yes);
  End();
  if (!set.IsEmpty()) ledger_.Announce(set);
  return set;
}

void Change::ThrowIfRefused() const {
  const auto may_pass = [](const auto& part) {
    return part->IsSetting() && dynamic_cast<const PasswordEdit*>(part.get()) == nullptr;
  };
  if (ledger_.refusal_.empty() || std::all_of(parts_.begin(), parts_.end(), may_pass)) return;
  throw ChangeRefused(ledger_.refusal_);
}

bool Change::WaitsForNext() const noexcept {
  if (!may_wait_ || ledger_.journal_ == nullptr) return false;
  const auto is_setting = [](const auto& part) { return part->IsSetting(); };
  const auto has_counted = [](const Touched& each) {
    return each.account->GetNumberCount() != each.bearings.number_count;
  };
  return std::all_of(parts_.begin(), parts_.end(), is_setting) &&
         std::none_of(touched_.begin(), touched_.end(), has_counted);
}

void Change::HandOn() {
  Change& outer = *outer_;
  TidyEdits();
  // All that can fail comes first. What it leaves with the outer change is true in any case.
  const std::size_t parts = outer.parts_.size() + parts_.size();
  if (parts > outer.parts_.capacity()) outer.parts_.reserve(std::max(parts, parts * 2));
  outer.companions_.reserve(outer.companions_.size() + companions_.size());
  for (const Touched& each : touched_) {
    const auto is_it = [&each](const Touched& other) { return other.account == each.account; };
    if (std::none_of(outer.touched_.begin(), outer.touched_.end(), is_it)) {
      outer.touched_.push_back({each.account, each.bearings});
    }
    if (each.has_entries) outer.TouchEntries(each.account);
  }
  outer.removed_.insert(removed_.begin(), removed_.end());
  // Of two images of one subject the outer change needs its own, the older one.
  const auto is_kept = [&outer](const auto& part) {
    return part->Subject() != 0 && outer.known_.contains(part->Subject());
  };
  const auto needed = std::stable_partition(parts_.begin(), parts_.end(),
                                            [&](const auto& part) { return !is_kept(part); });
  const std::size_t subjects = outer.known_.size() + known_.size();
  const auto room = static_cast<float>(outer.known_.bucket_count());
  if (static_cast<float>(subjects) > room * outer.known_.max_load_factor()) {
    outer.known_.reserve(subjects * 2);
  }

  outer.known_.merge(known_);
  std::move(parts_.begin(), needed, std::back_inserter(outer.parts_));
  std::move(companions_.begin(), companions_.end(), std::back_inserter(outer.companions_));
  if (outer.undoable_ == Undoable::No && undoable_ == Undoable::Yes) {
    outer.undoable_ = Undoable::Yes;
    outer.ordered_in_.swap(ordered_in_);
    outer.name_.swap(name_);
  }
}

void Change::TidyEdits() noexcept {
  for (const auto& part : parts_) part->Tidy();
  std::erase_if(parts_, [](const auto& part) { return part->ChangedNothing(); });
}

void Change::RollBack() noexcept {
  for (auto part = parts_.rbegin(); part != parts_.rend(); ++part) (*part)->Exchange(Way::Back);
  for (auto each = companions_.rbegin(); each != companions_.rend(); ++each) {
    (*each)->Follow(Way::Back);
  }
  for (auto each = touched_.rbegin(); each != touched_.rend(); ++each) {
    AccountLists::ReturnTo(*each->account, each->bearings);
  }
  ledger_.accounts().ReturnTo(list_revisions_);
}

}  // namespace tallyfold
