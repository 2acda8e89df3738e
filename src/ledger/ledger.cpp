#include "ledger/ledger.h"

#include <algorithm>
#include <utility>

#include "model/account_lists.h"

namespace tallyfold {

void Ledger::RemoveListener(const LedgerListener& listener) noexcept {
  std::erase(listeners_, &listener);
}

void Ledger::Note(const ChangeSet& set) noexcept {
  for (const AccountChanges& changes : set.accounts) {
    AccountLists::NoteChange(*changes.account, changes.kinds, changes.entries.removed,
                             changes.entries.inserted, changes.entries.changed);
  }
}

void Ledger::Record(const ChangeSet& set,
                    const std::vector<RecoveryRecord::Carried>& carried) noexcept {
  if (journal_ == nullptr || (set.IsEmpty() && unwritten_.empty())) return;
  const auto make = [&](std::size_t most_bytes) {
    std::vector<RecoveryRecord::Carried> all;
    for (const auto& part : unwritten_) all.push_back({part.get(), Way::Forward});
    if (!set.IsEmpty()) all.insert(all.end(), carried.begin(), carried.end());
    return RecoveryRecord::Write(accounts_.accounts(), places_, set, all, most_bytes);
  };
  // A reference to it needs no memory.
  journal_->Write(std::ref(make));
  unwritten_.clear();
}

void Ledger::WriteLater(StepParts& parts) noexcept {
  for (auto& part : parts) {
    const auto is_same = [&part](const auto& each) { return each->Subject() == part->Subject(); };
    if (std::none_of(unwritten_.begin(), unwritten_.end(), is_same)) {
      unwritten_.push_back(std::move(part));
    }
  }
}

void Ledger::Announce(const ChangeSet& set) {
  struct Announcing {
    explicit Announcing(bool& flag) : is_announcing(flag) { is_announcing = true; }
    ~Announcing() { is_announcing = false; }
    bool& is_announcing;
  } announcing(is_announcing_);
  // A listener that goes meanwhile is not called.
  for (std::size_t i = 0; i < listeners_.size(); ++i) listeners_[i]->LedgerChanged(set);
}

}  // namespace tallyfold
