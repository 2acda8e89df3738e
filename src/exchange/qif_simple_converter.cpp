#include "exchange/qif_simple_converter.h"

#include <string>
#include <utility>

#include "exchange/qif_fields.h"
#include "exchange/qif_record.h"
#include "model/account.h"

namespace tallyfold {

QifSimpleConverter::QifSimpleConverter(QifOptions options, LDGRAccount& account)
    : options_(std::move(options)),
      account_(account),
      account_types_(account),
      next_type_number_(account.NextAvailableTypeNumber()) {}

QifImportEntryList QifSimpleConverter::EntryListStringToLDGREntries(std::string_view text) {
  QifImportEntryList entries;
  std::int32_t number = account_.NextAvailableNumber();
  ForEachQifRecord(text, [&](std::string_view record) {
    if (auto entry = EntryStringToLDGREntry(record)) {
      entry->SetNumber(number++);
      entries.push_back(std::move(entry));
    }
  });
  return entries;
}

std::shared_ptr<LDGRQIFImportEntry> QifSimpleConverter::EntryStringToLDGREntry(
    std::string_view text) {
  const QifRecord record(text);
  if (record.IsBlank()) return nullptr;
  auto entry = std::make_shared<LDGRQIFImportEntry>();
  if (const auto day = record.Value('D')) {
    entry->SetDate(QifDayAsWritten(*day, options_.date_format));
  }
  const auto value = record.Value('T');
  const double amount = LeadingAmount(value.value_or(""));
  const bool is_deposit = amount == 0.0 ? value && options_.zero_amounts_as_deposits : amount > 0.0;
  entry->SetAmount(amount);
  if (is_deposit) {
    entry->SetIsDeposit(true);
  } else {
    entry->SetIsDebit(true);
  }
  entry->SetToFrom(record.Value('P'));
  entry->SetDescription(record.Value('M'));
  entry->SetCleared(record.Line('C').has_value());
  if (const auto name = record.Value('L')) {
    const auto type = TypeFor(*name, is_deposit);
    entry->SetActualType(type);
    entry->SetType(type->GetNumber());
  }
  return entry;
}

EntryTypeList QifSimpleConverter::EntryTypeListStringToLDGRAccountEntryTypes(
    std::string_view text) {
  EntryTypeList types;
  ForEachQifRecord(text, [&](std::string_view record) {
    if (auto type = EntryTypeStringToLDGRAccountEntryType(record)) types.push_back(std::move(type));
  });
  return types;
}

std::shared_ptr<LDGRAccountEntryType> QifSimpleConverter::EntryTypeStringToLDGRAccountEntryType(
    std::string_view text) {
  // The first record of a category list lacks the line end by which lines are found.
  const std::string with_line_end = '\r' + std::string(text);
  const QifRecord record(with_line_end);
  const auto name = record.Value('N');
  return name ? NewType(*name, record.Line('I').has_value()) : nullptr;
}

std::shared_ptr<LDGRAccountEntryType> QifSimpleConverter::DepositTypeWithName(
    std::string_view name) const {
  return types_index_.Find(name, true);
}

std::shared_ptr<LDGRAccountEntryType> QifSimpleConverter::DebitTypeWithName(
    std::string_view name) const {
  return types_index_.Find(name, false);
}

std::shared_ptr<LDGRAccountEntryType> QifSimpleConverter::TypeFor(std::string_view name,
                                                                  bool is_deposit) {
  if (auto type = types_index_.Find(name, is_deposit)) return type;
  if (auto type = account_types_.Find(name, is_deposit)) return type;
  auto type = NewType(name, is_deposit);
  types_.push_back(type);
  types_index_.Add(type);
  return type;
}

std::shared_ptr<LDGRAccountEntryType> QifSimpleConverter::NewType(std::string_view name,
                                                                  bool is_deposit) {
  auto type = std::make_shared<LDGRAccountEntryType>();
  type->SetName(name);
  type->SetIsDeposit(is_deposit);
  type->SetNumber(next_type_number_++);
  return type;
}

}  // namespace tallyfold
