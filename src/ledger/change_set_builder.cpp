#include "ledger/change_set_builder.h"

#include <algorithm>
#include <utility>

namespace tallyfold {
namespace {

bool Contains(const AccountList& accounts, const std::shared_ptr<LDGRAccount>& account) {
  return std::find(accounts.begin(), accounts.end(), account) != accounts.end();
}

}  // namespace

ChangeSetBuilder::Account& ChangeSetBuilder::Of(const std::shared_ptr<LDGRAccount>& account) {
  // There are a handful of accounts, and mostly the last one is asked for.
  for (auto each = accounts_.rbegin(); each != accounts_.rend(); ++each) {
    if ((*each)->changes.account == account) return **each;
  }
  accounts_.push_back(std::make_unique<Account>());
  accounts_.back()->changes.account = account;
  return *accounts_.back();
}

void ChangeSetBuilder::AccountCame(const std::shared_ptr<LDGRAccount>& account) {
  set_.accounts_added.push_back(account);
}

void ChangeSetBuilder::AccountWent(const std::shared_ptr<LDGRAccount>& account) {
  const bool was_there = std::erase(set_.accounts_added, account) == 0;
  if (was_there) {
    set_.accounts_removed.push_back(account);
  } else if (!Contains(set_.accounts_removed, account)) {
    never_there_.push_back(account);
  }
}

ChangeSet ChangeSetBuilder::Take() {
  for (const auto& account : accounts_) {
    AccountChanges& changes = account->changes;
    account->entries.MoveTo(changes.entries, changes.kinds);
    account->schedules.MoveTo(changes.schedules, changes.kinds);
    account->summaries.MoveTo(changes.summaries, changes.kinds);
    if (changes.counted) changes.kinds |= ChangeKind::Settings;
    if (changes.kinds.IsEmpty()) continue;
    // Of accounts that are not there any more nothing is told.
    const bool is_gone =
        Contains(set_.accounts_removed, changes.account) || Contains(never_there_, changes.account);
    if (is_gone && !Contains(set_.accounts_added, changes.account)) continue;
    set_.accounts.push_back(std::move(changes));
  }
  return std::move(set_);
}

}  // namespace tallyfold
