#include "ledger/ledger.h"

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
  if (journal_ == nullptr || set.IsEmpty()) return;
  const auto make = [&](std::size_t most_bytes) {
    return RecoveryRecord::Write(accounts_.accounts(), places_, set, carried, most_bytes);
  };
  // A reference to it needs no memory.
  journal_->Write(std::ref(make));
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
