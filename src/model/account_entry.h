#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/change_kinds.h"
#include "model/date_number.h"
#include "model/entry_split.h"
#include "plist/output.h"
#include "plist/value.h"

namespace tallyfold {

// One line of an account's register: a debit, a deposit or a transfer.
class LDGRAccountEntry {
 public:
  // Bits of the stored flag word; 32 is not used, others are kept as read.
  enum Flag : std::int32_t {
    kDebit = 1,
    kDeposit = 2,
    kTransfer = 4,
    kTransferOrigin = 8,  // this side started the transfer
    kCheck = 16,
    kTaxDeductible = 64,
  };

  LDGRAccountEntry() = default;
  // Each missing key or value of a wrong kind is logged and keeps its default.
  explicit LDGRAccountEntry(const std::optional<plist::Dictionary>& dictionary)
      : LDGRAccountEntry(dictionary, {}) {}
  LDGRAccountEntry(const LDGRAccountEntry&) = delete;
  LDGRAccountEntry& operator=(const LDGRAccountEntry&) = delete;
  virtual ~LDGRAccountEntry() = default;

  // A deep copy (the copy has a split of its own). For null an entry whose every number is 0 rather
  // than -1. Of a subclass the copy has what an entry has.
  [[nodiscard]] static std::shared_ptr<LDGRAccountEntry> entryWithEntry(
      const LDGRAccountEntry* entry);

  // Images: what the entry holds, kept aside and put back into the very same object, because rows
  // and links hold the object. Unlike the dictionary form an image leaves nothing out. Of a
  // subclass it holds what an entry has; the subclass has images of its own.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Image() const;
  // The entry gets what `image` holds, and `image` what the entry held.
  void ExchangeWith(LDGRAccountEntry& image) noexcept;
  // In what the two would be stored differently.
  [[nodiscard]] ChangeKinds DifferenceFrom(const LDGRAccountEntry& image) const noexcept;
  // How much memory it takes, in bytes, roughly.
  [[nodiscard]] std::size_t MemorySize() const noexcept;

  // The whole dictionary, Begin and End included; a subclass adds its keys at the end.
  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary asDictionary() const;

  void SetNumber(std::int32_t number) noexcept { number_ = number; }
  [[nodiscard]] std::int32_t GetNumber() const noexcept { return number_; }
  void SetCheckNumber(std::int32_t number) noexcept { check_number_ = number; }
  [[nodiscard]] std::int32_t GetCheckNumber() const noexcept { return check_number_; }
  // Number of an entry type of the account; -1 for none.
  void SetType(std::int32_t type) noexcept { type_ = type; }
  [[nodiscard]] std::int32_t GetType() const noexcept { return type_; }
  // A negative day is ignored.
  void SetDate(DateNumber date) noexcept;
  [[nodiscard]] DateNumber GetDate() const noexcept { return date_; }
  // Stores the amount rounded to cents.
  void SetAmount(double amount) noexcept;
  // The signed amount that balances and reports use: the split's total for a deposit with a split,
  // minus it for a debit with one, else the stored amount.
  [[nodiscard]] double GetAmount() const noexcept;
  // The amount as stored, whatever the split.
  [[nodiscard]] double GetStoredAmount() const noexcept { return amount_; }
  // A missing value is ignored.
  void SetDescription(std::optional<std::string_view> description);
  [[nodiscard]] const std::string& GetDescription() const noexcept { return description_; }
  // Payee of a debit, source of a deposit, the other account's name of a transfer.
  void SetToFrom(std::optional<std::string_view> to_from);
  [[nodiscard]] const std::string& GetToFrom() const noexcept { return to_from_; }
  void SetCleared(bool cleared) noexcept { cleared_ = cleared; }
  [[nodiscard]] bool GetCleared() const noexcept { return cleared_; }
  // None stores "".
  void SetNotes(std::optional<std::string_view> notes);
  [[nodiscard]] const std::string& GetNotes() const noexcept { return notes_; }
  // Number of the other half in the other account; -1 for none.
  void SetTransferEntry(std::int32_t number) noexcept { transfer_entry_ = number; }
  [[nodiscard]] std::int32_t GetTransferEntry() const noexcept { return transfer_entry_; }
  // Number of the other account; -1 for none.
  void SetTransferAccount(std::int32_t number) noexcept { transfer_account_ = number; }
  [[nodiscard]] std::int32_t GetTransferAccount() const noexcept { return transfer_account_; }
  // The split is shared with the caller; null drops it.
  void SetSplit(std::shared_ptr<LDGRAccountEntrySplit> split) noexcept {
    split_ = std::move(split);
  }
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntrySplit>& GetSplit() const noexcept {
    return split_;
  }

  // Setting debit clears deposit, transfer and transfer origin; every other setter changes its own
  // bit alone, so an entry may be of several kinds.
  void SetIsDebit(bool is_debit) noexcept;
  [[nodiscard]] bool IsDebit() const noexcept { return (entry_flags_ & kDebit) != 0; }
  void SetIsDeposit(bool is_deposit) noexcept { SetFlag(kDeposit, is_deposit); }
  [[nodiscard]] bool IsDeposit() const noexcept { return (entry_flags_ & kDeposit) != 0; }
  void SetIsTransfer(bool is_transfer) noexcept { SetFlag(kTransfer, is_transfer); }
  [[nodiscard]] bool IsTransfer() const noexcept { return (entry_flags_ & kTransfer) != 0; }
  void SetIsTransferOrigin(bool is_origin) noexcept { SetFlag(kTransferOrigin, is_origin); }
  [[nodiscard]] bool IsTransferOrigin() const noexcept {
    return (entry_flags_ & kTransferOrigin) != 0;
  }
  void SetIsCheck(bool is_check) noexcept { SetFlag(kCheck, is_check); }
  [[nodiscard]] bool IsCheck() const noexcept { return (entry_flags_ & kCheck) != 0; }
  void SetTaxDeductible(bool deductible) noexcept { SetFlag(kTaxDeductible, deductible); }
  [[nodiscard]] bool GetTaxDeductible() const noexcept {
    return (entry_flags_ & kTaxDeductible) != 0;
  }

  // Register orders: 1, 0 or -1. The first difference of the named keys decides, the entry number
  // last. Each reversed form is the exact mirror, ties included. Texts compare ignoring case, types
  // by name, looked up in the current account (see model/current_account.h); not-a-number comes
  // before all amounts.
  [[nodiscard]] int NumberIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int NumberIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DateIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DateIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  // Checks come before other entries.
  [[nodiscard]] int CheckNumberIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int CheckNumberIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DatePrimaryCheckSecondaryIsGreaterThan(
      const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DatePrimaryCheckSecondaryIsGreaterThan_Reversed(
      const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DescriptionIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int DescriptionIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int ToFromIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int ToFromIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int TypePrimaryDateSecondaryIsGreaterThan(const LDGRAccountEntry& other) const;
  [[nodiscard]] int TypePrimaryDateSecondaryIsGreaterThan_Reversed(
      const LDGRAccountEntry& other) const;
  [[nodiscard]] int AmountIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int AmountIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;
  // Not cleared before cleared.
  [[nodiscard]] int ClearedIsGreaterThan(const LDGRAccountEntry& other) const noexcept;
  [[nodiscard]] int ClearedIsGreaterThan_Reversed(const LDGRAccountEntry& other) const noexcept;

  // The name of the type in the current account; of a transfer without a type there "Transfer" in
  // the user's language, of any other entry "".
  [[nodiscard]] std::string TypeNameInCurrentAccount() const;

  // The sentences in which the entry is read aloud.
  [[nodiscard]] std::string asSpeakableString() const;

 protected:
  // `image` becomes an image of this.
  void CopyTo(LDGRAccountEntry& image) const;

  // The sentences with the name of a type that is found elsewhere; none speaks no type.
  [[nodiscard]] std::string SpeakableString(const std::optional<std::string>& type_name) const;

  // For a subclass with keys of its own, which it reads itself.
  LDGRAccountEntry(const std::optional<plist::Dictionary>& dictionary,
                   std::span<const std::string_view> own_keys);
  // Keys that a subclass adds to the dictionary form.
  virtual void WriteOwnKeys(plist::Output& output) const;

 private:
  struct Keys;

  // What an entry itself stores, without what a subclass adds.
  void WriteEntryKeys(plist::Output& output) const;

  void SetFlag(Flag flag, bool on) noexcept {
    entry_flags_ = on ? (entry_flags_ | flag) : (entry_flags_ & ~flag);
  }

  // What filters, orders and balances read of every entry comes first: a walk through 100,000
  // entries waits for memory, and so waits once for each.
  std::int32_t number_ = -1;
  std::int32_t check_number_ = -1;
  std::int32_t type_ = -1;
  DateNumber date_ = 0;
  double amount_ = 0.0;
  std::shared_ptr<LDGRAccountEntrySplit> split_;
  std::int32_t entry_flags_ = 0;
  bool cleared_ = false;
  std::string description_;
  std::string to_from_;
  std::string notes_;
  std::int32_t transfer_entry_ = -1;
  std::int32_t transfer_account_ = -1;
};

using EntryList = std::vector<std::shared_ptr<LDGRAccountEntry>>;

}  // namespace tallyfold
