#include "app/accounts/account_editing.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/accounts/account_type_rows.h"
#include "app/face/blank_text.h"
#include "ledger/change.h"
#include "model/amounts.h"
#include "model/entry_type.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/account_numbers.h"

namespace tallyfold {
namespace {

using TypeRow = AccountEditSheetState::TypeRow;

using Typed = AccountEditSheetState::Typed;

constexpr TypedField<Typed> kFields[] = {
    {"_Name_Field", AreSame<Typed, &Typed::name>},
    {"_StartingBalance_Field", AreSame<Typed, &Typed::starting_balance>},
    {"_StartingCheckNumber_Field", AreSame<Typed, &Typed::starting_check_number>},
    {"_PasswordAgain_Field",
     [](const Typed& a, const Typed& b) {
       return a.password == b.password && a.password_again == b.password_again;
     }},
    {"_Types_Table", AreSame<Typed, &Typed::types>},
    {"_DescriptionsCount_Field", AreSame<Typed, &Typed::descriptions_count>},
    {"_ToFromsCount_Field", AreSame<Typed, &Typed::to_froms_count>},
};

Problem In(std::string_view control, std::string_view text, std::int32_t row = -1) {
  return {"accountEditSheet_" + std::string(control), LocalizedText(text), row};
}

// Only the style of the latest texts counts them.
bool IsCount(std::int32_t style, std::optional<std::int32_t> count) {
  constexpr std::int32_t kLatest = 1;
  constexpr std::int32_t kMostTexts = 100000;
  return count && (style != kLatest || (*count >= 1 && *count <= kMostTexts));
}

std::optional<Problem> ProblemOf(const AccountEditSheetState& state) {
  const Typed& typed = state.typed;
  if (IsBlank(typed.name)) return In("Name_Field", "The account needs a name.");
  if (!typed.starting_balance || !IsAmount(*typed.starting_balance)) {
    return In("StartingBalance_Field", "The amount is not a number.");
  }
  if (typed.starting_check_number.value_or(-1) < 0) {
    return In("StartingCheckNumber_Field", "The check number must be a number of at least 0.");
  }
  if (typed.password != typed.password_again) {
    return In("PasswordAgain_Field", "The two passwords differ.");
  }
  const auto unnamed =
      std::ranges::find_if(typed.types, [](const TypeRow& row) { return IsBlank(row.name); });
  if (unnamed != typed.types.end()) {
    return In("Types_Table", "The type needs a name.",
              static_cast<std::int32_t>(unnamed - typed.types.begin()));
  }
  if (const std::int32_t row = RowOfDoubleType(state); row >= 0) {
    const std::string& name = typed.types[static_cast<std::size_t>(row)].name;
    return Problem{"accountEditSheet_Types_Table",
                   Message("There is already a type \"{1}\" of that kind.", {name}), row};
  }
  constexpr std::string_view kNoCount =
      "The number of texts must be a whole number from 1 to 100000.";
  if (!IsCount(typed.descriptions_style, typed.descriptions_count)) {
    return In("DescriptionsCount_Field", kNoCount);
  }
  if (!IsCount(typed.to_froms_style, typed.to_froms_count)) {
    return In("ToFromsCount_Field", kNoCount);
  }
  return std::nullopt;
}

// Numbered by their rows.
EntryTypeList TypesOfRows(const std::vector<TypeRow>& rows) {
  EntryTypeList types;
  for (const TypeRow& row : rows) {
    auto type = std::make_shared<LDGRAccountEntryType>();
    type->SetNumber(static_cast<std::int32_t>(types.size()));
    type->SetName(row.name);
    type->SetIsCheck(row.is_check);
    type->SetIsDeposit(row.is_deposit);
    types.push_back(std::move(type));
  }
  return types;
}

}  // namespace

bool AccountEditing::Account_Add() {
  const Announcer::Operation operation(announcer_);
  if (!sheets_.IsFree()) return false;
  auto account = std::make_shared<LDGRAccount>();
  account->SetName(NewAccountName());
  account->SetStartingBalance(0.0);
  account->SetNumber(FreeAccountNumbers(desk_.accounts()).Take());
  account->SetPassword("");
  return Begin(std::move(account), true);
}

bool AccountEditing::Account_Edit() {
  const Announcer::Operation operation(announcer_);
  auto account = desk_.SelectedAccount();
  return account != nullptr && sheets_.IsFree() && Begin(std::move(account), false);
}

std::string AccountEditing::NewAccountName() const {
  std::unordered_set<std::string_view> names;
  for (const auto& account : desk_.accounts()) names.insert(account->GetName());
  for (std::size_t number = desk_.accounts().size() + 1;; ++number) {
    std::string name = Message("Tallyfold {1}", {std::to_string(number)});
    if (!names.contains(name)) return name;
  }
}

bool AccountEditing::Begin(std::shared_ptr<LDGRAccount> account, bool is_new) {
  edit_account_ = std::move(account);
  AccountEditSheet_Populate();
  state_.is_new = is_new;
  if (!is_new) {
    state_.facts = FactsOf(*edit_account_);
    state_.fact_lines = LinesOf(*state_.facts, desk_.preferences());
  }
  return AccountEditSheet_Open();
}

bool AccountEditing::AccountEditSheet_Open() {
  state_.is_open = sheets_.Open(Sheet::AccountEdit, [this] { AccountEditSheet_Cancel(); });
  announcer_.Changed(Area::AccountEditSheet);
  return state_.is_open;
}

void AccountEditing::AccountEditSheet_Populate() {
  state_ = AccountEditSheetState();
  state_.security_note = LocalizedText(
      "A password hides the account from others who use this computer.  It does not encrypt the "
      "accounts file.");
  const LDGRAccount& account = *edit_account_;
  auto& typed = state_.typed;
  typed.name = account.GetName();
  typed.starting_balance = account.GetStartingBalance();
  typed.starting_check_number = account.GetStartingCheckNumber();
  typed.password = account.GetPassword();
  typed.password_again = account.GetPassword();
  PopulateTypes(state_, account);
  typed.descriptions_style = account.GetPreference_Descriptions_Style();
  typed.descriptions_count = account.GetPreference_Descriptions_SomeSelection();
  typed.to_froms_style = account.GetPreference_ToFrom_Style();
  typed.to_froms_count = account.GetPreference_ToFrom_SomeSelection();
  typed.debit_descriptions = account.DebitDescriptions_Specific();
  typed.deposit_descriptions = account.DepositDescriptions_Specific();
  typed.transfer_descriptions = account.TransferDescriptions_Specific();
  typed.tos = account.Tos_Specific();
  typed.froms = account.Froms_Specific();
  state_.ok_is_enabled = !ProblemOf(state_);
}

void AccountEditing::Read(Typed typed) {
  TakeTyped(state_.typed, std::move(typed), state_.problem, kFields);
  state_.ok_is_enabled = state_.is_open && !ProblemOf(state_);
  announcer_.Changed(Area::AccountEditSheet);
}

bool AccountEditing::ImportTypesFrom(const LDGRAccount& other) {
  if (!state_.is_open || other.IsLocked()) return false;
  auto& rows = state_.typed.types;
  LDGRAccount scratch;
  scratch.SetTypes(TypesOfRows(rows));
  const auto rows_before = static_cast<std::int32_t>(rows.size());
  scratch.importTypesFromAccount(other);
  for (const auto& type : scratch.GetTypes()) {
    if (type->GetNumber() < rows_before) continue;
    rows.push_back({-1, type->GetName(), type->GetIsCheck(), type->GetIsDeposit()});
  }
  // What is here but out of use is lacking too.
  for (TypeRow& row : rows) {
    row.is_active =
        row.is_active || std::ranges::any_of(other.GetTypes(), [&row](const auto& type) {
          return type->GetName() == row.name && type->GetIsDeposit() == row.is_deposit;
        });
  }
  announcer_.Changed(Area::AccountEditSheet);
  return true;
}

bool AccountEditing::ImportDescriptionsFrom(const LDGRAccount& other) {
  if (!state_.is_open || other.IsLocked()) return false;
  auto& typed = state_.typed;
  LDGRAccount scratch;
  scratch.SetPreferredDebitDescriptions(typed.debit_descriptions);
  scratch.SetPreferredDepositDescriptions(typed.deposit_descriptions);
  scratch.SetPreferredTransferDescriptions(typed.transfer_descriptions);
  scratch.importDescriptionsFromAccount(other);
  typed.debit_descriptions = scratch.DebitDescriptions_Specific();
  typed.deposit_descriptions = scratch.DepositDescriptions_Specific();
  typed.transfer_descriptions = scratch.TransferDescriptions_Specific();
  announcer_.Changed(Area::AccountEditSheet);
  return true;
}

bool AccountEditing::ImportToFromsFrom(const LDGRAccount& other) {
  if (!state_.is_open || other.IsLocked()) return false;
  auto& typed = state_.typed;
  LDGRAccount scratch;
  scratch.SetPreferredTos(typed.tos);
  scratch.SetPreferredFroms(typed.froms);
  scratch.importToFromsFromAccount(other);
  typed.tos = scratch.Tos_Specific();
  typed.froms = scratch.Froms_Specific();
  announcer_.Changed(Area::AccountEditSheet);
  return true;
}

bool AccountEditing::AccountEditSheet_OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::AccountEdit)) return false;
  state_.problem = ProblemOf(state_);
  if (state_.problem) {
    announcer_.Changed(Area::AccountEditSheet);
    return false;
  }
  const auto account = edit_account_;
  const bool is_new = state_.is_new;
  const bool is_renamed = account->GetName() != state_.typed.name;
  Change change(ledger_, is_new ? "New Account" : "Edit Account", account);
  if (!is_new) {
    change.EditOptions(account);
    change.EditTypes(account);
  }
  SaveValues();
  if (is_new) change.AddAccount(account);
  if (is_renamed && !is_new) {
    links_.Accounts_SyncTransfers(change);
    links_.Schedules_SyncTransfers(change);
  }
  change.Close();
  Close();
  refresh_.AccountsChanged();
  if (is_new) {
    selection_.Account_Select(account);
  } else {
    selection_.SetMainWindowTitleForAccount(account.get());
  }
  return true;
}

void AccountEditing::SaveValues() {
  LDGRAccount& account = *edit_account_;
  const auto& typed = state_.typed;
  account.SetName(typed.name);
  account.SetStartingBalance(*typed.starting_balance);
  account.SetStartingCheckNumber(*typed.starting_check_number);
  SaveTypes(state_, account);
  account.SetPreference_Descriptions_Style(typed.descriptions_style);
  account.SetPreference_Descriptions_SomeSelection(*typed.descriptions_count);
  account.SetPreference_ToFrom_Style(typed.to_froms_style);
  account.SetPreference_ToFrom_SomeSelection(*typed.to_froms_count);
  account.SetPreferredDebitDescriptions(typed.debit_descriptions);
  account.SetPreferredDepositDescriptions(typed.deposit_descriptions);
  account.SetPreferredTransferDescriptions(typed.transfer_descriptions);
  account.SetPreferredTos(typed.tos);
  account.SetPreferredFroms(typed.froms);
  if (account.GetPassword() != typed.password) {
    account.SetPassword(typed.password);
    // Whoever sets a password knows it.
    account.setAuthenticated(true);
  }
}

void AccountEditing::AccountEditSheet_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (state_.is_open) Close();
}

void AccountEditing::Close() {
  edit_account_ = nullptr;
  state_ = AccountEditSheetState();
  announcer_.Changed(Area::AccountEditSheet);
  sheets_.Close(Sheet::AccountEdit);
}

}  // namespace tallyfold
