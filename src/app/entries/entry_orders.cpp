#include "app/entries/entry_orders.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "app/entries/entry_defaults.h"
#include "app/entries/entry_kinds.h"
#include "app/entries/resolved_question.h"
#include "ledger/change.h"
#include "model/entry_type.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNone = -1;

std::string Sentences(std::string first, const std::string& second) {
  if (!first.empty() && !second.empty()) first += ' ';
  return first + second;
}

}  // namespace

std::shared_ptr<LDGRAccount> EntryOrders::Begin() {
  if (desk_.SelectedAccount() == nullptr || !sheets_.IsFree()) return nullptr;
  state_ = {};
  announcer_.Changed(Area::EntryOrders);
  return desk_.SelectedAccount();
}

bool EntryOrders::Refuse(std::string problem) {
  state_.problem = std::move(problem);
  return false;
}

bool EntryOrders::Done(const std::shared_ptr<LDGRAccount>& account, EntryList entries) {
  state_.account = account;
  state_.entries = std::move(entries);
  return true;
}

EntryList EntryOrders::ThoseOf(const LDGRAccount& account, const EntryList& entries) {
  std::unordered_set<const LDGRAccountEntry*> wanted;
  for (const auto& entry : entries) wanted.insert(entry.get());
  // In the order of the account, so that what is numbered anew keeps its order.
  EntryList there;
  std::ranges::copy_if(account.GetEntries(), std::back_inserter(there),
                       [&wanted](const auto& entry) { return wanted.contains(entry.get()); });
  return there;
}

// --- Duplicate ----------------------------------------------------------------------------------

bool EntryOrders::Entry_Duplicate() {
  const Announcer::Operation operation(announcer_);
  const auto original = desk_.SelectedEntry();
  if (original == nullptr) return false;
  const auto account = Begin();
  if (account == nullptr) return false;

  const auto copy = LDGRAccountEntry::entryWithEntry(original.get());
  copy->SetDate(DateOfNewEntry(*account, desk_.preferences()));
  copy->SetCleared(false);
  copy->SetTransferEntry(kNone);
  if (copy->IsCheck()) {
    const auto number = SuggestedCheckNumber(*account, desk_.preferences());
    if (!number) return Refuse(LocalizedText("There are no check numbers left."));
    copy->SetCheckNumber(*number);
  }
  Change change(ledger_, "Duplicate Entry", account);
  copy->SetNumber(change.NextNumber(account));
  if (copy->IsTransfer()) CopyOtherHalf(change, *account, *original, *copy);
  change.Add(account, copy);
  change.Close();
  refresh_.EntrySaved(copy, true);
  return Done(account, {copy});
}

void EntryOrders::CopyOtherHalf(Change& change, LDGRAccount& account,
                                const LDGRAccountEntry& original, LDGRAccountEntry& copy) const {
  const auto other = desk_.AccountWithNumber(copy.GetTransferAccount());
  if (other == nullptr) return;
  const auto half = links_.OtherHalf(account, original);
  links_.LinkNew(change, account, copy, copy.GetTransferAccount(), other->GetName());
  const auto new_half = links_.OtherHalf(account, copy);
  if (half == nullptr || new_half == nullptr) return;
  LDGRAccountEntry& edited = change.Edit(other, new_half);
  edited.SetNotes(half->GetNotes());
  edited.SetTaxDeductible(half->GetTaxDeductible());
}

// --- Change kind --------------------------------------------------------------------------------

bool EntryOrders::CanChangeKind() const {
  const auto entry = desk_.SelectedEntry();
  return entry != nullptr && KindOf(*entry).has_value();
}

bool EntryOrders::Entry_ChangeKind() {
  const Announcer::Operation operation(announcer_);
  if (!CanChangeKind()) return false;
  const auto entry = desk_.SelectedEntry();
  if (entry->GetCleared()) {
    // The program may have gone on to something else while the user was asked.
    if (!AgreesToChangeResolved(alerts_) || entry != desk_.SelectedEntry()) return false;
  }
  const auto account = Begin();
  if (account == nullptr) return false;
  Change change(ledger_, "Change Kind", account);
  change.Edit(account, entry);
  if (entry->IsTransfer()) {
    TurnTransferOver(change, *account, *entry);
  } else {
    TurnOver(*account, *entry);
  }
  change.Close();
  refresh_.EntrySaved(entry, false);
  return Done(account, {entry});
}

void EntryOrders::TurnOver(const LDGRAccount& account, LDGRAccountEntry& entry) {
  const bool becomes_debit = entry.IsDeposit();
  // The lines of a split have the sign of neither kind.
  if (entry.GetSplit() == nullptr) entry.SetAmount(-entry.GetStoredAmount() + 0.0);
  if (becomes_debit) {
    entry.SetIsDebit(true);
  } else {
    entry.SetIsDebit(false);
    entry.SetIsDeposit(true);
    if (entry.IsCheck()) {
      state_.note = Message("It is no longer check {1}.", {std::to_string(entry.GetCheckNumber())});
      entry.SetIsCheck(false);
      entry.SetCheckNumber(kNone);
    }
  }
  const auto type = account.AccountEntryTypeForNumber(entry.GetType());
  if (type == nullptr || CanTake(entry, *type)) return;
  const auto twin = becomes_debit ? account.DebitEntryTypeForName(type->GetName())
                                  : account.DepositEntryTypeForName(type->GetName());
  entry.SetType(twin != nullptr ? twin->GetNumber() : kNone);
  if (twin != nullptr) return;
  state_.note = Sentences(
      std::move(state_.note),
      Message("It has no type any more: \"{1}\" is of the other kind.", {type->GetName()}));
}

void EntryOrders::TurnTransferOver(Change& change, LDGRAccount& account, LDGRAccountEntry& entry) {
  state_.note = links_.NoteOnOtherHalf(account, entry);
  const auto half = links_.OtherHalf(account, entry);
  const auto other = desk_.AccountWithNumber(entry.GetTransferAccount());
  entry.SetIsTransferOrigin(!entry.IsTransferOrigin());
  entry.SetAmount(-entry.GetStoredAmount() + 0.0);
  if (half == nullptr) return;
  links_.Relink(change, account, entry, half, other->GetNumber(), other->GetName());
}

// --- Marks and types of several -----------------------------------------------------------------

bool EntryOrders::SetCleared(const EntryList& entries, bool cleared) {
  const Announcer::Operation operation(announcer_);
  const auto account = Begin();
  if (account == nullptr) return false;
  EntryList marked = ThoseOf(*account, entries);
  const bool is_one = marked.size() == 1;
  std::erase_if(marked, [cleared](const auto& entry) { return entry->GetCleared() == cleared; });
  if (marked.empty()) return false;
  Change change(ledger_,
                cleared ? Plural("Resolve Entry", "Resolve Entries", is_one ? 1 : 2)
                        : Plural("Unresolve Entry", "Unresolve Entries", is_one ? 1 : 2),
                account);
  for (const auto& entry : marked) change.Edit(account, entry).SetCleared(cleared);
  change.Close();
  refresh_.EntryMarked();
  return Done(account, std::move(marked));
}

bool EntryOrders::SetType(const EntryList& entries, std::int32_t type) {
  const Announcer::Operation operation(announcer_);
  const auto account = Begin();
  if (account == nullptr) return false;
  const auto given = account->AccountEntryTypeForNumber(type);
  if (given == nullptr && type != kNone) {
    return Refuse(LocalizedText("The account has no such type."));
  }
  EntryList changed = ThoseOf(*account, entries);
  const std::size_t asked = changed.size();
  std::erase_if(changed, [&given](const auto& entry) {
    return given != nullptr ? !CanTake(*entry, *given) : entry->IsTransfer();
  });
  if (const std::size_t others = asked - changed.size(); others > 0) {
    state_.note = Message(Plural("{1} entry of another kind stays as it is.",
                                 "{1} entries of another kind stay as they are.", others),
                          {std::to_string(others)});
  }
  std::erase_if(changed, [type](const auto& entry) { return entry->GetType() == type; });
  if (changed.empty()) return false;
  Change change(ledger_, "Change Type", account);
  for (const auto& entry : changed) change.Edit(account, entry).SetType(type);
  change.Close();
  refresh_.EntryMarked();
  refresh_.entryMenu_Types_Menu_Populate();
  return Done(account, std::move(changed));
}

}  // namespace tallyfold
