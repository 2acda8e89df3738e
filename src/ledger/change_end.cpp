// The end of a change: made good, handed on to the one it joined, or rolled back.

#include <algorithm>
#include <iterator>
#include <utility>

#include "ledger/change.h"
#include "ledger/change_set_builder.h"
#include "ledger/image_parts.h"
#include "ledger/ledger.h"
#include "platform/ambient.h"

namespace tallyfold {

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
