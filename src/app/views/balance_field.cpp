#include "app/views/balance_field.h"

#include <array>
#include <string_view>

#include "model/amounts.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

// English keys, by mode.
constexpr std::array<std::string_view, 6> kTitles = {
    "Balance",          "Today's Balance",           "Resolved Balance", "Unresolved Balance",
    "Total of Entries", "Balance at Selected Entry",
};

}  // namespace

void BalanceField::AccountBalance_PopUp_Populate(std::int32_t mode) {
  const bool exists = mode >= 0 && mode < static_cast<std::int32_t>(kTitles.size());
  mode_ = exists ? static_cast<BalanceMode>(mode) : BalanceMode::Balance;
  announcer_.Changed(Area::Balance);
}

BalanceFieldState BalanceField::State() const {
  BalanceFieldState state;
  for (std::size_t i = 0; i < kTitles.size(); ++i) {
    state.mode_items.push_back({LocalizedText(kTitles[i]), static_cast<std::int32_t>(i)});
  }
  state.mode = mode_;
  state.amount = Amount();
  if (state.amount) state.text = RegisterAmountText(*state.amount, desk_.preferences());
  return state;
}

std::optional<double> BalanceField::Amount() const {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return std::nullopt;
  switch (mode_) {
    case BalanceMode::Balance:
      return RoundNearZeroValue(account->GetBalance());
    case BalanceMode::Today:
      return RoundNearZeroValue(account->GetTodaysBalance());
    case BalanceMode::Resolved:
      return RoundNearZeroValue(account->GetResolvedBalance());
    case BalanceMode::Unresolved:
      return RoundNearZeroValue(account->GetUnresolvedBalance());
    case BalanceMode::ShownEntries:
      return RoundNearZeroValue(registers_.entryDataSource().TotalOfRows());
    case BalanceMode::SelectedEntry:
      break;
  }
  const auto entry = registers_.entryDataSource().GetSelectedEntry();
  if (entry == nullptr) return std::nullopt;
  return RoundNearZeroValue(account->GetRunningBalanceAtEntry(entry.get()));
}

}  // namespace tallyfold
