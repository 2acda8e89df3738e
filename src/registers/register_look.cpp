#include "registers/register_look.h"

#include "model/amounts.h"
#include "model/entry_type.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

std::optional<RegisterColor> ColorOf(const LDGRAccountEntry& entry, const LDGRPreferences& p) {
  if (entry.IsDebit()) {
    return RegisterColor{p.GetDebitColor_Red(), p.GetDebitColor_Green(), p.GetDebitColor_Blue(),
                         p.GetDebitColor_Alpha()};
  }
  if (entry.IsDeposit()) {
    return RegisterColor{p.GetDepositColor_Red(), p.GetDepositColor_Green(),
                         p.GetDepositColor_Blue(), p.GetDepositColor_Alpha()};
  }
  if (entry.IsTransfer()) {
    return RegisterColor{p.GetTransferColor_Red(), p.GetTransferColor_Green(),
                         p.GetTransferColor_Blue(), p.GetTransferColor_Alpha()};
  }
  return std::nullopt;
}

}  // namespace

std::string TypeTextOfEntry(const LDGRAccount* account, const LDGRAccountEntry& entry) {
  if (entry.IsTransfer()) {
    return LocalizedText(entry.IsTransferOrigin() ? "Transfer To" : "Transfer From");
  }
  if (account == nullptr) return "";
  const auto type = account->AccountEntryTypeForNumber(entry.GetType());
  return type != nullptr ? type->GetName() : "";
}

RegisterRowLook LookOfRow(const LDGRAccountEntry& entry, const LDGRPreferences& preferences,
                          DateNumber today) {
  return {ColorOf(entry, preferences),
          preferences.GetItalicizeFutureEntries() && entry.GetDate() > today};
}

std::string RegisterDateFormat(const LDGRPreferences& preferences) {
  switch (preferences.GetDateFormat()) {
    case 1:
      return "%Y-%m-%d";
    case 2:
      return "%B %e, %Y";
    default:
      return CurrentLocale().ShortDateFormat();
  }
}

std::string RegisterAmountText(double amount, const LDGRPreferences& preferences) {
  amount = RoundNearZeroValue(amount);
  if (!preferences.GetShowCurrencySymbol()) return FloatToCommasAmountString(amount);
  return preferences.GetAmountFormat() == 1 ? FloatToDollarAmountString(amount)
                                            : FloatToDollarCommasAmountString(amount);
}

}  // namespace tallyfold
