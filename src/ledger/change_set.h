#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/account.h"
#include "model/change_kinds.h"

namespace tallyfold {

// What became of the records of one list: each record is in one of the three at most. One that was
// both added and removed is in none; one that only changed its place counts as changed.
template <typename List>
struct RecordChanges {
  List inserted;
  List removed;
  // Those that were there before and are there now, and store something else.
  List changed;

  [[nodiscard]] bool IsEmpty() const noexcept {
    return inserted.empty() && removed.empty() && changed.empty();
  }
};

// What changed in one account.
struct AccountChanges {
  std::shared_ptr<LDGRAccount> account;
  ChangeKinds kinds;
  RecordChanges<EntryList> entries;
  RecordChanges<ScheduleList> schedules;
  RecordChanges<AccountSummaryList> summaries;
  // A new entry number was given.
  bool counted = false;
};

// What one change, undo or redo changed in all: what registers, balances, menus and the recovery
// log need to know, whichever of the three it was.
struct ChangeSet {
  enum class Cause : std::uint8_t { Change, Undo, Redo };

  Cause cause = Cause::Change;
  // The English key of the step's name; that of the step undone or redone. "" for a change that is
  // no step.
  std::string name;
  // The accounts in which the step was ordered; mostly one.
  AccountList ordered_in;
  // Those that were in the list before and after, in the order in which they were first touched,
  // and those that were added: with all that happened to their records.
  std::vector<AccountChanges> accounts;
  // An account that was removed and added again, to another place, is in both.
  AccountList accounts_removed;
  AccountList accounts_added;
  // The application password.
  bool password = false;

  [[nodiscard]] bool IsEmpty() const noexcept {
    return accounts.empty() && accounts_added.empty() && accounts_removed.empty() && !password;
  }
  // Null when nothing changed in it.
  [[nodiscard]] const AccountChanges* Of(const LDGRAccount* account) const noexcept {
    for (const AccountChanges& changes : accounts) {
      if (changes.account.get() == account) return &changes;
    }
    return nullptr;
  }
};

}  // namespace tallyfold
