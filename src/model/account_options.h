#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/change_count.h"

namespace tallyfold {

// What an account remembers of the last statement, import, export and transfer, to propose it the
// next time. All of it is stored with the account.
class AccountOptions : public ChangeCount {
 public:
  // The last statement balance typed; stored as given.
  [[nodiscard]] double statementBalance() const noexcept { return statement_balance_; }
  void setStatementBalance(double balance) noexcept { Change(statement_balance_, balance); }

  // Choices of the last QIF import. Encodings are identifiers of platform/text_encodings.h.
  [[nodiscard]] std::int32_t GetQIFImportEncoding() const noexcept { return qif_import_encoding_; }
  void SetQIFImportEncoding(std::int32_t encoding) noexcept {
    Change(qif_import_encoding_, encoding);
  }
  [[nodiscard]] std::int32_t GetQIFImportDateFormat() const noexcept {
    return qif_import_date_format_;
  }
  void SetQIFImportDateFormat(std::int32_t format) noexcept {
    Change(qif_import_date_format_, format);
  }
  // A missing value is ignored.
  [[nodiscard]] const std::string& GetQIFImportDecimalSeparator() const noexcept {
    return qif_import_decimal_separator_;
  }
  void SetQIFImportDecimalSeparator(std::optional<std::string_view> separator);
  [[nodiscard]] const std::string& GetQIFImportThousandsSeparator() const noexcept {
    return qif_import_thousands_separator_;
  }
  void SetQIFImportThousandsSeparator(std::optional<std::string_view> separator);
  [[nodiscard]] bool GetQIFImportZeroAmountsAsDeposits() const noexcept {
    return qif_import_zero_amounts_as_deposits_;
  }
  void SetQIFImportZeroAmountsAsDeposits(bool as_deposits) noexcept {
    Change(qif_import_zero_amounts_as_deposits_, as_deposits);
  }
  [[nodiscard]] bool GetQIFImportAllTypes() const noexcept { return qif_import_all_types_; }
  void SetQIFImportAllTypes(bool all) noexcept { Change(qif_import_all_types_, all); }
  [[nodiscard]] bool GetQIFImportSplitLineItems() const noexcept {
    return qif_import_split_line_items_;
  }
  void SetQIFImportSplitLineItems(bool split) noexcept {
    Change(qif_import_split_line_items_, split);
  }
  [[nodiscard]] std::int32_t GetQIFImport_SwapOptions_ToFrom() const noexcept {
    return qif_import_swap_to_from_;
  }
  void SetQIFImport_SwapOptions_ToFrom(std::int32_t option) noexcept {
    Change(qif_import_swap_to_from_, option);
  }
  [[nodiscard]] std::int32_t GetQIFImport_SwapOptions_Type() const noexcept {
    return qif_import_swap_type_;
  }
  void SetQIFImport_SwapOptions_Type(std::int32_t option) noexcept {
    Change(qif_import_swap_type_, option);
  }
  [[nodiscard]] std::int32_t GetQIFImport_SwapOptions_Description() const noexcept {
    return qif_import_swap_description_;
  }
  void SetQIFImport_SwapOptions_Description(std::int32_t option) noexcept {
    Change(qif_import_swap_description_, option);
  }

  // Choices of the last text export.
  [[nodiscard]] std::int32_t textExport_ExportType() const noexcept {
    return text_export_export_type_;
  }
  void setTextExport_ExportType(std::int32_t type) noexcept {
    Change(text_export_export_type_, type);
  }
  [[nodiscard]] std::int32_t textExport_Encoding() const noexcept { return text_export_encoding_; }
  void setTextExport_Encoding(std::int32_t encoding) noexcept {
    Change(text_export_encoding_, encoding);
  }

  // Number of the account last used as the other side of a transfer, -1 for none, and whether that
  // transfer was made from this account.
  [[nodiscard]] std::int32_t lastTransferAccount() const noexcept { return last_transfer_account_; }
  void setLastTransferAccount(std::int32_t number) noexcept {
    Change(last_transfer_account_, number);
  }
  [[nodiscard]] bool isLastTransferOrigin() const noexcept { return is_last_transfer_origin_; }
  void setIsLastTransferOrigin(bool is_origin) noexcept {
    Change(is_last_transfer_origin_, is_origin);
  }

 protected:
  // As in a new account: separators and encodings of the user's locale.
  AccountOptions();
  ~AccountOptions() = default;

  double statement_balance_ = 0.0;
  std::int32_t qif_import_encoding_;
  std::int32_t qif_import_date_format_ = 0;
  std::string qif_import_decimal_separator_;
  std::string qif_import_thousands_separator_;
  bool qif_import_zero_amounts_as_deposits_ = true;
  bool qif_import_all_types_ = false;
  bool qif_import_split_line_items_ = true;
  std::int32_t qif_import_swap_to_from_ = 1;
  std::int32_t qif_import_swap_type_ = 0;
  std::int32_t qif_import_swap_description_ = 2;
  std::int32_t text_export_export_type_ = -5;
  std::int32_t text_export_encoding_;
  std::int32_t last_transfer_account_ = -1;
  bool is_last_transfer_origin_ = true;
};

}  // namespace tallyfold
