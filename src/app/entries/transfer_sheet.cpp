#include "app/entries/transfer_sheet.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "model/account_entry.h"
#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNoAccount = -1;

using Typed = TransferSheetState::Typed;

constexpr std::string_view kDateField = "transferSheet_Date_Field";
constexpr std::string_view kAmountField = "transferSheet_Amount_Field";
constexpr std::string_view kAccountPopUp = "transferSheet_Account_PopUp";

constexpr TypedField<Typed> kFields[] = {
    {kDateField, AreSame<Typed, &Typed::date>},
    {kAmountField, AreSame<Typed, &Typed::amount>},
    {kAccountPopUp, AreSame<Typed, &Typed::account>},
};

const PopUpItem* SelectedItem(const std::vector<PopUpItem>& items, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= items.size()) return nullptr;
  return &items[static_cast<std::size_t>(index)];
}

}  // namespace

void TransferSheet::Fill(const EditedEntry& edited, const LDGRAccount& account,
                         const LDGRPreferences& preferences) {
  const LDGRAccountEntry& entry = *edited.entry;
  const bool is_open = state_.is_open;
  state_ = TransferSheetState();
  state_.is_open = is_open;
  state_.is_new = edited.is_new;
  state_.first_field = FirstField(preferences, edited.is_new);
  state_.descriptions = {edited.account, &LDGRAccount::GetPreferredTransferDescriptions};
  state_.direction_items = {{LocalizedText("Transfer To"), kTransferToTag},
                            {LocalizedText("Transfer From"), kTransferFromTag}};

  auto& typed = state_.typed;
  typed.date = entry.GetDate();
  typed.direction = IndexOfItemTagged(state_.direction_items,
                                      entry.IsTransferOrigin() ? kTransferToTag : kTransferFromTag);
  // Adding 0.0 keeps a negative zero off the screen.
  typed.amount = (entry.IsTransferOrigin() ? -entry.GetAmount() : entry.GetAmount()) + 0.0;
  opened_amount_ = *typed.amount;
  typed.description = entry.GetDescription();
  typed.cleared = entry.GetCleared();
  typed.tax_deductible = entry.GetTaxDeductible();
  typed.notes = entry.GetNotes();
  PopulateAccounts(edited, account);
  account_ = edited.account;
  opened_here_ = opened_there_ = 0.0;
  opened_other_ = entry.GetTransferAccount();
  if (!edited.is_new) {
    state_.note = links_.NoteOnOtherHalf(account, entry);
    opened_here_ = entry.GetAmount();
    if (const auto half = links_.OtherHalf(account, entry)) opened_there_ = half->GetAmount();
  }
  Forecast();
  announcer_.Changed(StateArea());
}

void TransferSheet::PopulateAccounts(const EditedEntry& edited, const LDGRAccount& account) {
  auto& items = state_.account_items;
  for (const auto& other : desk_.accounts()) {
    if (other.get() != &account) items.push_back({other->GetName(), other->GetNumber()});
  }
  const std::int32_t number = edited.entry->GetTransferAccount();
  state_.typed.account = IndexOfItemTagged(items, number);
  if (state_.typed.account != kNoItem) return;
  // An old transfer whose other account is gone keeps that account's name through the sheet.
  if (!edited.is_new) items.insert(items.begin(), {edited.entry->GetToFrom(), number});
  if (!items.empty()) state_.typed.account = 0;
}

void TransferSheet::Read(Typed typed) {
  TakeTyped(state_.typed, std::move(typed), state_.problem, kFields);
  Forecast();
}

void TransferSheet::Forecast() {
  const auto account = account_.lock();
  const auto* chosen = SelectedItem(state_.account_items, state_.typed.account);
  const auto* direction = SelectedItem(state_.direction_items, state_.typed.direction);
  state_.balances.clear();
  state_.sentence.clear();
  if (account == nullptr || chosen == nullptr || direction == nullptr) return;
  const bool is_origin = direction->tag == kTransferToTag;
  const double amount =
      IsTypedAmount(state_.typed.amount) ? RoundedAmount(*state_.typed.amount) : 0.0;
  state_.moves_money = amount != 0.0;
  const std::string from = is_origin ? account->GetName() : chosen->title;
  const std::string to = is_origin ? chosen->title : account->GetName();
  state_.sentence = state_.moves_money
                        ? Message("{1} goes from {2} to {3}.",
                                  {RegisterAmountText(amount, desk_.preferences()), from, to})
                        : Message("Nothing goes from {1} to {2} yet.", {from, to});
  const auto forecast = [this](const LDGRAccount& of, double opened, double change) {
    TransferSheetState::Balance balance{of.GetName(), of.IsLocked()};
    if (!balance.is_locked) {
      balance.now = RoundedAmount(of.GetBalance() - opened);
      balance.after = RoundedAmount(balance.now + change);
    }
    state_.balances.push_back(std::move(balance));
  };
  forecast(*account, opened_here_, is_origin ? -amount : amount);
  if (const auto other = desk_.AccountWithNumber(chosen->tag)) {
    forecast(*other, chosen->tag == opened_other_ ? opened_there_ : 0.0,
             is_origin ? amount : -amount);
  }
}

std::optional<Problem> TransferSheet::CheckTyped() {
  auto& typed = state_.typed;
  if (!TweakDayField(typed.date)) {
    return Problem{std::string(kDateField), LocalizedText("The date does not exist.")};
  }
  if (auto problem = ProblemOfAmount(typed.amount, opened_amount_); !problem.empty()) {
    return Problem{std::string(kAmountField), std::move(problem)};
  }
  if (!state_.account_items.empty() &&
      SelectedItem(state_.account_items, typed.account) == nullptr) {
    return Problem{std::string(kAccountPopUp), LocalizedText("No account is chosen.")};
  }
  return std::nullopt;
}

bool TransferSheet::ChangesAmountOrDay(const LDGRAccountEntry& entry) const {
  const auto& typed = state_.typed;
  const auto* direction = SelectedItem(state_.direction_items, typed.direction);
  if (typed.date != entry.GetDate()) return true;
  if (direction == nullptr) return false;
  const double amount = direction->tag == kTransferToTag ? -*typed.amount : *typed.amount;
  return RoundedAmount(amount) != RoundedAmount(entry.GetAmount());
}

void TransferSheet::Store(const EditedEntry& edited, LDGRAccount& /*account*/) {
  const auto& typed = state_.typed;
  LDGRAccountEntry& entry = *edited.entry;
  entry.SetDate(*typed.date);
  if (const auto* direction = SelectedItem(state_.direction_items, typed.direction)) {
    const bool is_origin = direction->tag == kTransferToTag;
    entry.SetIsTransferOrigin(is_origin);
    entry.SetAmount(is_origin ? -*typed.amount : *typed.amount);
  }
  entry.SetDescription(typed.description);
  entry.SetCleared(typed.cleared);
  entry.SetTaxDeductible(typed.tax_deductible);
  entry.SetNotes(typed.notes);
}

void TransferSheet::StoreIn(Change& change, const EditedEntry& edited, LDGRAccount& account) {
  LDGRAccountEntry& entry = *edited.entry;
  const auto half = edited.is_new ? nullptr : links_.OtherHalf(account, entry);
  Store(edited, account);
  const auto* chosen = SelectedItem(state_.account_items, state_.typed.account);
  const std::int32_t other = chosen != nullptr ? chosen->tag : kNoAccount;
  const auto name = chosen != nullptr ? std::string_view(chosen->title) : std::string_view();
  if (edited.is_new) {
    links_.LinkNew(change, account, entry, other, name);
  } else {
    links_.Relink(change, account, entry, half, other, name);
  }
}

}  // namespace tallyfold
