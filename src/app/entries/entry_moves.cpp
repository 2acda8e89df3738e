#include <algorithm>
#include <unordered_map>
#include <utility>

#include "app/entries/entry_orders.h"
#include "ledger/change.h"
#include "model/entry_type.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kUntyped = -1;

// Finds the types of one account in another, and makes there what it has not.
class TypesElsewhere {
 public:
  TypesElsewhere(Change& change, const LDGRAccount& from, const std::shared_ptr<LDGRAccount>& to)
      : change_(change), from_(from), to_(to) {}

  // The number there of the type that is `number` here; -1 for none and for one that is unknown.
  std::int32_t NumberOf(std::int32_t number) {
    if (number == kUntyped) return kUntyped;
    const auto [known, is_new] = numbers_.try_emplace(number, kUntyped);
    if (is_new) known->second = Find(number);
    return known->second;
  }
  [[nodiscard]] const std::vector<std::string>& Made() const noexcept { return made_; }

 private:
  std::int32_t Find(std::int32_t number) {
    const auto type = from_.AccountEntryTypeForNumber(number);
    if (type == nullptr) return kUntyped;
    const auto alike = type->GetIsDeposit() ? to_->DepositEntryTypeForName(type->GetName())
                                            : to_->DebitEntryTypeForName(type->GetName());
    if (alike != nullptr) return alike->GetNumber();
    const auto copy = std::make_shared<LDGRAccountEntryType>(type->asDictionary());
    copy->SetNumber(to_->NextAvailableTypeNumber());
    change_.EditTypes(to_).AddType(copy);
    made_.push_back(copy->GetName());
    return copy->GetNumber();
  }

  Change& change_;
  const LDGRAccount& from_;
  const std::shared_ptr<LDGRAccount>& to_;
  std::unordered_map<std::int32_t, std::int32_t> numbers_;
  std::vector<std::string> made_;
};

std::string ProblemOfMove(const LDGRAccount& from, const LDGRAccount& to,
                          const EntryList& entries) {
  if (&from == &to) return LocalizedText("The entries are in that account already.");
  if (to.IsLocked()) {
    return Message("The account \"{1}\" is locked.", {to.GetName()});
  }
  const bool is_refused = std::ranges::any_of(entries, [&](const auto& entry) {
    return entry->IsTransfer() && (entry->GetTransferAccount() == to.GetNumber() ||
                                   entry->GetTransferAccount() == from.GetNumber());
  });
  if (!is_refused) return "";
  return Message(
      "A transfer cannot be moved to the account \"{1}\", which has "
      "its other half.",
      {to.GetName()});
}

}  // namespace

std::vector<PopUpItem> EntryOrders::AccountItems() const {
  std::vector<PopUpItem> items;
  if (!desk_.IsUnlocked()) return items;
  for (const auto& account : desk_.accounts()) {
    if (account == desk_.SelectedAccount() || account->IsLocked()) continue;
    items.push_back({account->GetName(), account->GetNumber()});
  }
  return items;
}

bool EntryOrders::MoveTo(const EntryList& entries, std::int32_t account_number) {
  const Announcer::Operation operation(announcer_);
  const auto target = desk_.AccountWithNumber(account_number);
  const auto account = target != nullptr ? Begin() : nullptr;
  if (account == nullptr) return false;
  const EntryList moved = ThoseOf(*account, entries);
  if (moved.empty()) return false;
  if (auto problem = ProblemOfMove(*account, *target, moved); !problem.empty()) {
    return Refuse(std::move(problem));
  }

  const auto halves = links_.FindOtherHalves(*account, moved);
  Change change(ledger_, "Move to Account", account);
  TypesElsewhere types(change, *account, target);
  EntryList copies;
  copies.reserve(moved.size());
  for (std::size_t i = 0; i < moved.size(); ++i) {
    const auto copy = LDGRAccountEntry::entryWithEntry(moved[i].get());
    copy->SetNumber(change.NextNumber(target));
    copy->SetType(types.NumberOf(moved[i]->GetType()));
    copies.push_back(copy);
    if (halves[i].is_ambiguous && state_.note.empty()) {
      state_.note = links_.NoteOnOtherHalf(*account, *moved[i]);
    }
    if (halves[i].half == nullptr) continue;
    LDGRAccountEntry& half =
        change.Edit(desk_.AccountWithNumber(moved[i]->GetTransferAccount()), halves[i].half);
    half.SetTransferAccount(target->GetNumber());
    half.SetTransferEntry(copy->GetNumber());
    half.SetToFrom(target->GetName());
  }
  change.Add(target, copies);
  change.Remove(account, moved);
  change.Close();
  if (!types.Made().empty()) {
    if (!state_.note.empty()) state_.note += ' ';
    state_.note += Message("New types of the account \"{1}\": {2}.",
                           {target->GetName(), StringsToEnglishList(types.Made())});
  }
  refresh_.EntryRemoved();
  return Done(target, std::move(copies));
}

}  // namespace tallyfold
