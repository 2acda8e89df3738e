#include "ledger/history.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "ledger/change_set_builder.h"
#include "ledger/ledger.h"

namespace tallyfold {
namespace {

// Calls `use` with each in the order of that way.
template <typename List, typename Use>
void InOrderOf(Way way, const List& list, const Use& use) {
  if (way == Way::Forward) {
    std::for_each(list.begin(), list.end(), use);
  } else {
    std::for_each(list.rbegin(), list.rend(), use);
  }
}

ChangeSet WhatComesOf(const Step& step, Way way) {
  ChangeSet set;
  set.cause = way == Way::Back ? ChangeSet::Cause::Undo : ChangeSet::Cause::Redo;
  set.name = step.name;
  set.ordered_in = step.ordered_in;
  ChangeSetBuilder builder(std::move(set));
  InOrderOf(way, step.parts, [&](const auto& part) { part->Tell(builder, way); });
  return builder.Take();
}

}  // namespace

History::Refusal History::WhyNotUndo() const {
  return WhyNot(done_);
}

History::Refusal History::WhyNotRedo() const {
  return WhyNot(undone_);
}

History::Refusal History::WhyNot(const Steps& steps) const {
  if (ledger_.IsBusy()) return Refusal::ChangeOpen;
  if (steps.empty()) return Refusal::NothingThere;
  return IsRefused(*steps.back()) ? Refusal::Locked : Refusal::None;
}

bool History::IsRefused(const Step& step) const {
  const AccountList& present = ledger_.accounts().accounts();
  return std::any_of(step.ordered_in.begin(), step.ordered_in.end(), [&](const auto& account) {
    // A removed account hides nothing that undoing its removal would show.
    return account->IsLocked() &&
           std::find(present.begin(), present.end(), account) != present.end();
  });
}

std::vector<History::Line> History::Lines(const Steps& steps) const {
  std::vector<Line> lines;
  bool can_be_reached = true;
  for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
    if (IsRefused(**step)) {
      can_be_reached = false;
    } else {
      lines.push_back({(*step)->name, (*step)->ordered_in, (*step)->when, can_be_reached});
    }
  }
  return lines;
}

bool History::Undo() {
  return Carry(done_, undone_, Way::Back);
}

bool History::Redo() {
  return Carry(undone_, done_, Way::Forward);
}

bool History::Carry(Steps& from, Steps& to, Way way) {
  if (WhyNot(from) != Refusal::None) return false;
  Step& step = *from.back();
  // All that can fail comes first.
  ChangeSet set = WhatComesOf(step, way);
  InOrderOf(way, step.parts, [way](const auto& part) { part->MakeRoom(way); });
  if (to.size() == to.capacity()) to.reserve(to.size() * 2 + 8);
  std::vector<RecoveryRecord::Carried> carried;
  if (ledger_.journal_ != nullptr) {
    InOrderOf(way, step.parts, [&](const auto& part) { carried.push_back({part.get(), way}); });
  }

  InOrderOf(way, step.parts, [way](const auto& part) { part->Exchange(way); });
  InOrderOf(way, step.companions, [way](const auto& companion) { companion->Follow(way); });
  to.push_back(std::move(from.back()));
  from.pop_back();
  ledger_.Note(set);
  ledger_.Record(set, carried);
  ledger_.Announce(set);
  return true;
}

void History::Clear() noexcept {
  done_.clear();
  undone_.clear();
  ledger_.places_.Forget();
}

void History::MakeRoom(std::size_t parts, std::size_t companions, bool is_undoable) {
  if (is_undoable) {
    if (done_.size() == done_.capacity()) done_.reserve(done_.size() * 2 + 8);
  } else if (!done_.empty()) {
    Step& newest = *done_.back();
    newest.parts.reserve(newest.parts.size() + parts);
    newest.companions.reserve(newest.companions.size() + companions);
  }
}

void History::Take(std::unique_ptr<Step> step, bool is_undoable) noexcept {
  undone_.clear();
  if (is_undoable) {
    done_.push_back(std::move(step));
  } else if (!done_.empty()) {
    Step& newest = *done_.back();
    newest.memory_size += step->memory_size;
    std::move(step->parts.begin(), step->parts.end(), std::back_inserter(newest.parts));
    std::move(step->companions.begin(), step->companions.end(),
              std::back_inserter(newest.companions));
  }
  ForgetOldest();
}

void History::ForgetOldest() noexcept {
  std::size_t held = 0;
  auto step = done_.end();
  while (step != done_.begin()) {
    held += (*std::prev(step))->memory_size;
    if (held > kMostMemory && step != done_.end()) break;
    --step;
  }
  done_.erase(done_.begin(), step);
}

}  // namespace tallyfold
