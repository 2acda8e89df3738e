#include "app/entries/entry_sheet.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <system_error>
#include <utility>

#include "app/face/blank_text.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "model/amounts.h"
#include "model/entry_type.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kNoType = -1;
constexpr std::int32_t kNoCheckNumber = -1;

constexpr std::string_view kDateField = "_Date_Field";
constexpr std::string_view kAmountField = "_Amount_Field";
constexpr std::string_view kCheckNumberField = "_CheckNumber_Field";
constexpr std::string_view kSplitTable = "_Split_Table";

using Typed = EntrySheetState::Typed;

constexpr TypedField<Typed> kFields[] = {
    {kDateField, AreSame<Typed, &Typed::date>},
    {kAmountField, AreSame<Typed, &Typed::amount>},
    // Without its tick the number does not count.
    {kCheckNumberField,
     [](const Typed& a, const Typed& b) {
       return a.check == b.check && a.check_number == b.check_number;
     }},
    {kSplitTable, AreSame<Typed, &Typed::split>},
};

// None where the text is no number of 32 bits; 0 for an empty one.
std::optional<std::int32_t> CheckNumberOf(std::string_view text) {
  if (IsBlank(text)) return 0;
  const std::size_t first = text.find_first_not_of(' ');
  const std::size_t last = text.find_last_not_of(' ');
  const char* const end = text.data() + last + 1;
  std::int32_t number = 0;
  const auto [rest, error] = std::from_chars(text.data() + first, end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

bool IsUsed(const SplitRow& row) {
  return !row.description.empty() || !row.to.empty() || row.amount != 0.0;
}

}  // namespace

void EntrySheet::Fill(const EditedEntry& edited, const LDGRAccount& account,
                      const LDGRPreferences& preferences) {
  const LDGRAccountEntry& entry = *edited.entry;
  const bool is_debit = kind_ == Kind::Debit;
  const bool is_open = state_.is_open;
  state_ = EntrySheetState();
  former_.reset();
  state_.is_open = is_open;
  state_.is_new = edited.is_new;
  state_.first_field = FirstField(preferences, edited.is_new);
  state_.descriptions = {edited.account, is_debit ? &LDGRAccount::GetPreferredDebitDescriptions
                                                  : &LDGRAccount::GetPreferredDepositDescriptions};
  state_.to_froms = {edited.account,
                     is_debit ? &LDGRAccount::GetPreferredTos : &LDGRAccount::GetPreferredFroms};

  auto& typed = state_.typed;
  typed.date = entry.GetDate();
  // Adding 0.0 keeps a negative zero off the screen.
  typed.amount = (is_debit ? -entry.GetAmount() : entry.GetAmount()) + 0.0;
  typed.check = is_debit && entry.IsCheck();
  if (typed.check) typed.check_number = std::to_string(entry.GetCheckNumber());
  state_.check_number_is_enabled = typed.check;
  typed.description = entry.GetDescription();
  typed.to_from = entry.GetToFrom();
  typed.cleared = entry.GetCleared();
  typed.tax_deductible = entry.GetTaxDeductible();
  typed.notes = entry.GetNotes();
  PopulateTypes(edited, account);
  PopulateSplit(edited);
  opened_amount_ = IsSplit() ? 0.0 : *typed.amount;
  amount_before_split_ = 0.0;
  announcer_.Changed(StateArea());
}

void EntrySheet::PopulateTypes(const EditedEntry& edited, const LDGRAccount& account) {
  auto& items = state_.type_items;
  for (const auto& type :
       kind_ == Kind::Debit ? account.GetDebitTypes() : account.GetDepositTypes()) {
    items.push_back({type->GetName(), type->GetNumber()});
  }
  for (const auto& type : edited.more_types) {
    if (type->GetIsDeposit() == (kind_ == Kind::Deposit)) {
      items.push_back({type->GetName(), type->GetNumber()});
    }
  }
  type_count_ = static_cast<std::int32_t>(items.size());

  const std::int32_t number = edited.entry->GetType();
  const auto has_number = [number](const PopUpItem& item) { return item.tag == number; };
  if (number != kNoType && std::none_of(items.begin(), items.end(), has_number)) {
    if (const auto type = account.AccountEntryTypeForNumber(number)) {
      items.push_back({type->GetName(), number});
    }
  }
  if (!items.empty()) items.push_back({"", 0, true});
  items.push_back({LocalizedText("None"), kNoType});

  const auto selected = std::find_if(items.begin(), items.end(), [number](const PopUpItem& item) {
    return !item.is_separator && item.tag == number;
  });
  state_.typed.type =
      selected == items.end() ? kNoItem : static_cast<std::int32_t>(selected - items.begin());
}

void EntrySheet::PopulateSplit(const EditedEntry& edited) {
  if (const auto& split = edited.entry->GetSplit()) {
    for (std::size_t i = 0; i < LDGRAccountEntrySplit::kLines; ++i) {
      state_.typed.split[i] = {split->GetDescription(i), split->GetToFrom(i), split->GetAmount(i)};
    }
  }
  SumSplit();
  EnableFieldsForSplit(IsSplit());
}

void EntrySheet::Read(Typed typed) {
  TakeTyped(state_.typed, std::move(typed), state_.problem, kFields);
}

Problem EntrySheet::ProblemOf(std::string_view control, std::string text, std::int32_t row) const {
  std::string field = kind_ == Kind::Debit ? "debitSheet" : "depositSheet";
  field += control;
  return {std::move(field), std::move(text), row};
}

std::optional<Problem> EntrySheet::CheckTyped() {
  auto& typed = state_.typed;
  if (!TweakDayField(typed.date))
    return ProblemOf(kDateField, LocalizedText("The date does not exist."));
  if (const std::int32_t row = RowWithoutAmount(typed.split); row != -1) {
    return ProblemOf(kSplitTable, LocalizedText("The amount is not a number."), row);
  }
  // The sum of a split's lines takes the field's place, with whatever sign.
  if (!IsSplit()) {
    if (auto problem = ProblemOfAmount(typed.amount, opened_amount_); !problem.empty()) {
      return ProblemOf(kAmountField, std::move(problem));
    }
  }
  if (kind_ == Kind::Deposit || !typed.check) return std::nullopt;
  const auto number = CheckNumberOf(typed.check_number);
  if (!number) {
    return ProblemOf(kCheckNumberField, LocalizedText("The check number is not a number."));
  }
  if (*number < 0) {
    return ProblemOf(kCheckNumberField, LocalizedText("The check number must not be negative."));
  }
  return std::nullopt;
}

bool EntrySheet::ChangesAmountOrDay(const LDGRAccountEntry& entry) const {
  const auto& typed = state_.typed;
  const double amount = IsSplit() ? TotalOf(typed.split) : *typed.amount;
  const double former = kind_ == Kind::Debit ? -entry.GetAmount() : entry.GetAmount();
  return typed.date != entry.GetDate() || RoundedAmount(amount) != RoundedAmount(former);
}

void EntrySheet::Store(const EditedEntry& edited, LDGRAccount& /*account*/) {
  const auto& typed = state_.typed;
  LDGRAccountEntry& entry = *edited.entry;
  entry.SetDate(*typed.date);
  SaveType(edited);
  SaveCheck(edited);
  // That of a split follows below.
  const double amount = typed.amount.value_or(0.0);
  entry.SetAmount(kind_ == Kind::Debit ? -amount : amount);
  entry.SetDescription(typed.description);
  entry.SetToFrom(typed.to_from);
  entry.SetCleared(typed.cleared);
  entry.SetTaxDeductible(typed.tax_deductible);
  entry.SetNotes(typed.notes);
  SaveSplit(edited);
}

void EntrySheet::SaveType(const EditedEntry& edited) const {
  const std::int32_t index = state_.typed.type;
  const auto count = static_cast<std::int32_t>(state_.type_items.size());
  if (index < 0) return;
  if (index < type_count_) {
    edited.entry->SetType(state_.type_items[static_cast<std::size_t>(index)].tag);
  } else if (index == count - 1) {
    edited.entry->SetType(kNoType);
  }
}

void EntrySheet::SaveCheck(const EditedEntry& edited) const {
  if (kind_ == Kind::Deposit) return edited.entry->SetIsCheck(false);
  const auto& typed = state_.typed;
  edited.entry->SetIsCheck(typed.check);
  edited.entry->SetCheckNumber(typed.check ? CheckNumberOf(typed.check_number).value_or(0)
                                           : kNoCheckNumber);
}

void EntrySheet::SaveSplit(const EditedEntry& edited) const {
  if (!IsSplit()) return edited.entry->SetSplit(nullptr);
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  for (std::size_t i = 0; i < LDGRAccountEntrySplit::kLines; ++i) {
    const SplitRow& row = state_.typed.split[i];
    split->SetDescription(row.description, i);
    split->SetToFrom(row.to, i);
    split->SetAmount(*row.amount, i);
  }
  // The total goes in with its own sign also for a debit: with a split, the entry's amount comes
  // from the split.
  edited.entry->SetAmount(split->GetTotal());
  edited.entry->SetToFrom(LocalizedText("Split"));
  edited.entry->SetSplit(std::move(split));
}

void EntrySheet::CheckNumber_Button(std::optional<std::int32_t> suggested) {
  auto& typed = state_.typed;
  state_.check_number_is_enabled = typed.check;
  if (typed.check && typed.check_number.empty()) {
    if (suggested) {
      typed.check_number = std::to_string(*suggested);
    } else {
      state_.problem =
          ProblemOf(kCheckNumberField, LocalizedText("There are no check numbers left."));
    }
  }
  announcer_.Changed(StateArea());
}

void EntrySheet::SuggestForDescription(const EditedEntry& edited, const LDGRAccount& account) {
  GatherFormer(edited, account);
  state_.suggestion = former_->SuggestionFor(state_.typed.description);
  announcer_.Changed(StateArea());
}

void EntrySheet::Gather(const EditedEntry& edited, const LDGRAccount& account) {
  static_cast<void>(state_.descriptions.Texts());
  static_cast<void>(state_.to_froms.Texts());
  GatherFormer(edited, account);
}

void EntrySheet::GatherFormer(const EditedEntry& edited, const LDGRAccount& account) {
  if (former_ && former_mark_ != 0 && former_mark_ == account.EntriesMark()) return;
  former_mark_ = account.EntriesMark();
  former_.emplace(account, kind_ == Kind::Debit, edited.entry.get());
}

void EntrySheet::DropSuggestion() {
  state_.suggestion.reset();
  announcer_.Changed(StateArea());
}

void EntrySheet::TakeSuggestion() {
  if (!state_.suggestion) return;
  auto& typed = state_.typed;
  const auto& items = state_.type_items;
  const bool has_no_type =
      typed.type == kNoItem || typed.type == static_cast<std::int32_t>(items.size()) - 1;
  for (std::int32_t i = 0; has_no_type && i < type_count_; ++i) {
    if (items[static_cast<std::size_t>(i)].tag == state_.suggestion->type) typed.type = i;
  }
  if (typed.to_from.empty() && state_.to_from_is_enabled) {
    typed.to_from = state_.suggestion->to_from;
  }
  if (typed.amount == 0.0 && state_.amount_is_enabled) typed.amount = state_.suggestion->amount;
  DropSuggestion();
}

bool EntrySheet::IsSplit() const noexcept {
  return std::any_of(state_.typed.split.begin(), state_.typed.split.end(), IsUsed);
}

void EntrySheet::ClearSplit() {
  if (!state_.is_open) return;
  amount_before_split_ = 0.0;
  Typed typed = state_.typed;
  typed.amount = 0.0;
  Read(std::move(typed));
  Split_ClearSplit();
}

void EntrySheet::Split_ClearSplit() {
  if (!state_.is_open) return;
  Typed typed = state_.typed;
  typed.split = SplitRows();
  typed.selected_split_row = 0;
  Read(std::move(typed));
  EndSplit();
  EnableFieldsForSplit(false);
  SumSplit();
  announcer_.Changed(StateArea());
}

void EntrySheet::EndSplit() {
  auto& typed = state_.typed;
  typed.to_from.clear();
  // What was typed before the lines took its place; their sum where there was nothing.
  if (amount_before_split_ != 0.0) typed.amount = amount_before_split_;
  amount_before_split_ = 0.0;
  state_.split_target.reset();
}

void EntrySheet::Split_UpdateTotal() {
  if (!state_.is_open) return;
  SumSplit();
  announcer_.Changed(StateArea());
}

void EntrySheet::SumSplit() noexcept {
  const double total = TotalOf(state_.typed.split);
  state_.split_total = total;
  state_.split_rest = state_.split_target ? RoundedAmount(*state_.split_target - total) : 0.0;
}

void EntrySheet::Split_Table_Field() {
  if (!state_.is_open) return;
  const bool was_split = !state_.to_from_is_enabled;
  const bool is_split = IsSplit();
  auto& typed = state_.typed;
  if (is_split && !was_split) {
    amount_before_split_ = typed.amount;
    if (IsTypedAmount(typed.amount) && *typed.amount != 0.0) state_.split_target = typed.amount;
  }
  SumSplit();
  if (is_split) {
    typed.amount = state_.split_total;
    typed.to_from = LocalizedText("Split");
  } else if (was_split) {
    EndSplit();
    SumSplit();
  }
  EnableFieldsForSplit(is_split);
  announcer_.Changed(StateArea());
}

void EntrySheet::Split_FillWithRest() {
  auto& typed = state_.typed;
  const auto row = static_cast<std::size_t>(typed.selected_split_row);
  if (!state_.is_open || state_.split_rest == 0.0 || row >= typed.split.size()) return;
  auto& amount = typed.split[row].amount;
  amount = RoundedAmount((IsTypedAmount(amount) ? *amount : 0.0) + state_.split_rest);
  Split_Table_Field();
}

void EntrySheet::EnableFieldsForSplit(bool is_split) noexcept {
  state_.amount_is_enabled = !is_split;
  state_.to_from_is_enabled = !is_split;
}

}  // namespace tallyfold
