#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plist/output.h"
#include "plist/value.h"

namespace tallyfold {

// A category of entries that the user names: checks, deposits, bills and the like. Entries refer
// to it by number. Whether it is the transfer type and whether it is active are not stored.
class LDGRAccountEntryType {
 public:
  LDGRAccountEntryType() = default;
  // Missing keys read as "", 0 and false; nothing is logged.
  explicit LDGRAccountEntryType(const std::optional<plist::Dictionary>& dictionary);
  LDGRAccountEntryType(const LDGRAccountEntryType&) = delete;
  LDGRAccountEntryType& operator=(const LDGRAccountEntryType&) = delete;

  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary asDictionary() const;

  // A missing value is ignored.
  void SetName(std::optional<std::string_view> name);
  [[nodiscard]] const std::string& GetName() const noexcept { return name_; }
  void SetIsCheck(bool is_check) noexcept { is_check_ = is_check; }
  [[nodiscard]] bool GetIsCheck() const noexcept { return is_check_; }
  void SetIsDeposit(bool is_deposit) noexcept { is_deposit_ = is_deposit; }
  [[nodiscard]] bool GetIsDeposit() const noexcept { return is_deposit_; }
  void SetIsTransfer(bool is_transfer) noexcept { is_transfer_ = is_transfer; }
  [[nodiscard]] bool GetIsTransfer() const noexcept { return is_transfer_; }
  void SetNumber(std::int32_t number) noexcept { number_ = number; }
  [[nodiscard]] std::int32_t GetNumber() const noexcept { return number_; }

  // Images: what the type holds, kept aside and put back into the very same object.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> Image() const;
  // The type gets what `image` holds, and `image` what the type held.
  void ExchangeWith(LDGRAccountEntryType& image) noexcept;
  // Whether the two are equal in everything, stored or not.
  [[nodiscard]] bool EqualsImage(const LDGRAccountEntryType& image) const noexcept;

  // 1, 0 or -1, ignoring case.
  [[nodiscard]] int NameIsGreaterThan(const LDGRAccountEntryType& other) const noexcept;

 private:
  std::string name_;
  std::int32_t number_ = 0;
  bool is_check_ = false;
  bool is_deposit_ = false;
  bool is_transfer_ = false;
};

using EntryTypeList = std::vector<std::shared_ptr<LDGRAccountEntryType>>;

}  // namespace tallyfold
