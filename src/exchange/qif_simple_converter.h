#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "exchange/entry_type_index.h"
#include "exchange/qif_import.h"
#include "exchange/qif_import_entry.h"

namespace tallyfold {

class LDGRAccount;

// The parser's simple way: entries made straight from the records, days and amounts read as they
// stand (see QifDayAsWritten), P to to/from and M to description whatever the swap options say,
// types looked up or made on the way.
class QifSimpleConverter {
 public:
  // New types are numbered and looked up in `account`, which must outlive the converter.
  QifSimpleConverter(QifOptions options, LDGRAccount& account);

  // The records before each "^", numbered on from the account's next number.
  [[nodiscard]] QifImportEntryList EntryListStringToLDGREntries(std::string_view text);
  // Null for a record of nothing but line ends.
  [[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> EntryStringToLDGREntry(std::string_view record);

  // The types of a category list, which are not added to types().
  [[nodiscard]] EntryTypeList EntryTypeListStringToLDGRAccountEntryTypes(std::string_view text);
  // Null for a record without a name. An I line makes it a type of deposits.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> EntryTypeStringToLDGRAccountEntryType(
      std::string_view record);

  // Among the types made so far, by exact name; null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> DepositTypeWithName(
      std::string_view name) const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> DebitTypeWithName(
      std::string_view name) const;
  // The types that entries needed and the account does not have, in order of making.
  [[nodiscard]] const EntryTypeList& types() const noexcept { return types_; }

 private:
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> TypeFor(std::string_view name,
                                                              bool is_deposit);
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> NewType(std::string_view name,
                                                              bool is_deposit);

  QifOptions options_;
  LDGRAccount& account_;
  EntryTypeList types_;
  EntryTypeIndex types_index_;
  EntryTypeIndex account_types_;
  std::int32_t next_type_number_;
};

}  // namespace tallyfold
