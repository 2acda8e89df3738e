#include "registers/register_look.h"

#include "model/amount_input.h"
#include "model/amounts.h"
#include "model/date_format.h"
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

bool SeparatesThousands(const LDGRPreferences& preferences) {
  return !preferences.GetShowCurrencySymbol() || preferences.GetAmountFormat() != 1;
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

RowLook LookOfEntry(const LDGRAccountEntry& entry, const LDGRPreferences& preferences,
                    DateNumber today) {
  return {.color = ColorOf(entry, preferences),
          .is_italic = preferences.GetItalicizeFutureEntries() && entry.GetDate() > today};
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

std::string FieldAmountText(double amount, const LDGRPreferences& preferences) {
  std::string separated = FloatToCommasAmountString(amount);
  const bool can_be_read = ParsePlainOrUsersAmount(separated) == RoundedAmount(amount);
  if (SeparatesThousands(preferences) && can_be_read) return separated;
  return FixedAmountString(amount);
}

std::string CountText(std::size_t count, const LDGRPreferences& preferences) {
  std::string text = std::to_string(count);
  if (!SeparatesThousands(preferences)) return text;
  constexpr std::size_t kGroup = 3;
  for (std::size_t place = text.size(); place > kGroup;) {
    place -= kGroup;
    text.insert(place, 1, ',');
  }
  return text;
}

TableCell DayCell(DateNumber day, const TableFormat& format) {
  return {.text = FormatDate(DateNumberToNSCalendarDate(day), format.date_format),
          .number = static_cast<double>(day)};
}

TableCell CountCell(std::int64_t count) {
  return {.text = std::to_string(count),
          .number = static_cast<double>(count),
          .alignment = TableCell::Alignment::Right};
}

TableCell AmountCell(double amount, const TableFormat& format) {
  return {.text = RegisterAmountText(amount, format.preferences),
          .number = amount,
          .alignment = TableCell::Alignment::Right};
}

TableCell MarkCell(bool is_set) {
  return {.text = is_set ? "\u2713" : "",
          .mark = is_set ? TableCell::Mark::Set : TableCell::Mark::Unset};
}

}  // namespace tallyfold
