// What an account keeps worked out of all its entries, and how that follows their changes.

#include <algorithm>
#include <iterator>
#include <memory>

#include "model/account.h"
#include "model/account_lists.h"
#include "model/entry_numbers.h"
#include "model/running_balances.h"

namespace tallyfold {

const EntryLog& LDGRAccount::UpToDateEntryLog() const noexcept {
  if (logged_revision_ != EntriesRevision()) {
    entry_log_.Forget();
    logged_revision_ = EntriesRevision();
  }
  return entry_log_;
}

std::uint64_t LDGRAccount::EntriesMark() const noexcept {
  return open_entry_changes_ == 0 ? UpToDateEntryLog().Mark() : 0;
}

std::optional<std::span<const EntryTouch>> LDGRAccount::EntriesTouchedSince(
    std::uint64_t mark) const noexcept {
  if (open_entry_changes_ != 0) return std::nullopt;
  return UpToDateEntryLog().Since(mark);
}

EntryList LDGRAccount::EntriesWithNumber(std::int32_t number) const {
  EntryList found;
  if (EntriesMark() != 0) {
    const EntryNumbers& numbers = EntryNumbers::UpToDate(entry_numbers_, *this);
    const std::size_t count = numbers.CountOf(number);
    if (count == 0) return found;
    if (count == 1) return {numbers.AnyWith(number)};
  }
  std::ranges::copy_if(entries_, std::back_inserter(found),
                       [number](const auto& entry) { return entry->GetNumber() == number; });
  return found;
}

double LDGRAccount::RunningBalanceOf(const LDGRAccountEntry& row) const {
  if (EntriesMark() == 0) return GetRunningBalanceAtEntry(&row);
  if (running_balances_ == nullptr) running_balances_ = std::make_shared<RunningBalanceTable>();
  running_balances_->CatchUpWith(*this);
  return running_balances_->At(row);
}

void AccountLists::NoteChange(LDGRAccount& account, ChangeKinds kinds, const EntryList& removed,
                              const EntryList& inserted, const EntryList& changed) noexcept {
  static_cast<void>(account.UpToDateEntryLog());
  account.NoteChange(kinds);
  // What types are called decides about entries that nobody touched.
  if (kinds.HasAnyOf(ChangeKind::Types)) return;
  account.entry_log_.Add(removed, false);
  account.entry_log_.Add(inserted, true);
  account.entry_log_.Add(changed, true);
  account.logged_revision_ = account.EntriesRevision();
}

}  // namespace tallyfold
