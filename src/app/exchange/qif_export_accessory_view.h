#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/exchange/encoding_menu.h"
#include "app/face/pop_up_item.h"
#include "exchange/qif_date_formats.h"
#include "model/account.h"

namespace tallyfold {

// What the panel of the QIF export shows beside the name: which account to write, in which date
// format and encoding.
class LDGRQIFExportAccessoryView {
 public:
  // Tags of the choices that are no account; those of accounts are their numbers.
  static constexpr std::int32_t kShownEntries = -1;  // those of the register in view
  static constexpr std::int32_t kAllAccounts = -10;
  // Stored for the account that is selected, whichever that is.
  static constexpr std::int32_t kCurrentAccount = -5;

  LDGRQIFExportAccessoryView() = default;
  LDGRQIFExportAccessoryView(const LDGRQIFExportAccessoryView&) = delete;
  LDGRQIFExportAccessoryView& operator=(const LDGRQIFExportAccessoryView&) = delete;

  // The date formats with their tags.
  [[nodiscard]] static std::span<const QifDateFormat> exportDateFormats() noexcept {
    return kQifDateFormats;
  }

  void populateDateFormats();
  void populateEncodingMenu(const TextEncodings& encodings) { encodings_.Populate(encodings); }
  // An item for each account, those that are locked with a padlock and disabled, between the two
  // that are no account. Null leaves the items as they are.
  void populateExportAccountsButton(const AccountList* accounts);

  [[nodiscard]] const EncodingMenu& encodings() const noexcept { return encodings_; }
  // 0 when no encoding is chosen. One that is not offered leaves none chosen.
  [[nodiscard]] std::uint32_t encoding() const noexcept {
    return static_cast<std::uint32_t>(encodings_.encoding());
  }
  void setEncoding(std::uint32_t encoding) noexcept {
    encodings_.setEncoding(static_cast<std::int32_t>(encoding));
  }

  [[nodiscard]] const std::vector<PopUpItem>& exportAccounts() const noexcept { return accounts_; }
  // The tag of the chosen item; kCurrentAccount when none is chosen.
  [[nodiscard]] std::int32_t exportAccount() const noexcept;
  // A tag that is not offered, and that of a locked account, leaves none chosen.
  void setExportAccount(std::int32_t tag) noexcept;

  [[nodiscard]] const std::vector<PopUpItem>& dateFormats() const noexcept { return formats_; }
  // In calendar-date letters.
  [[nodiscard]] std::string exportDateFormat() const {
    return std::string(QifDateFormatForTag(date_format_));
  }
  // Today in that format, as a file has it.
  [[nodiscard]] std::string exportDateExample() const;
  // A text that is none of the formats changes nothing.
  void setExportDateFormat(std::string_view format) noexcept {
    date_format_ = QifDateFormatTag(format).value_or(date_format_);
  }

 private:
  EncodingMenu encodings_;
  std::vector<PopUpItem> accounts_;
  std::int32_t account_ = kNoItem;
  std::vector<PopUpItem> formats_;
  std::int32_t date_format_ = 0;
};

}  // namespace tallyfold
