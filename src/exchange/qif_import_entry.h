#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "exchange/unmarked_reason.h"
#include "model/account_entry.h"
#include "model/entry_type.h"

namespace tallyfold {

// An entry under review before it is imported.
class LDGRQIFImportEntry final : public LDGRAccountEntry {
 public:
  // The type the entry will get, which may be one that no account has yet; null for none.
  void SetActualType(std::shared_ptr<LDGRAccountEntryType> type) noexcept {
    actual_type_ = std::move(type);
  }
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntryType>& GetActualType() const noexcept {
    return actual_type_;
  }
  void SetImport(bool import) noexcept { import_ = import; }
  [[nodiscard]] bool GetImport() const noexcept { return import_; }
  // When it was marked for import, beside the others; kept by the review.
  void SetImportOrder(std::size_t order) noexcept { import_order_ = order; }
  [[nodiscard]] std::size_t GetImportOrder() const noexcept { return import_order_; }
  // The entry of the account that gets the cleared mark in its place; null where it is not matched.
  // Kept by the review.
  void SetMatched(std::shared_ptr<LDGRAccountEntry> entry) noexcept { matched_ = std::move(entry); }
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntry>& GetMatched() const noexcept {
    return matched_;
  }
  // Whether it was marked for import before it was matched. Kept by the review.
  void SetWasMarked(bool was_marked) noexcept { was_marked_ = was_marked; }
  [[nodiscard]] bool WasMarked() const noexcept { return was_marked_; }
  // Why its file left it unmarked.
  void SetUnmarkedReason(UnmarkedReason reason) noexcept { unmarked_reason_ = reason; }
  [[nodiscard]] UnmarkedReason GetUnmarkedReason() const noexcept { return unmarked_reason_; }

  // As any entry, with the name of the actual type.
  [[nodiscard]] std::string asSpeakableString() const;

  // Orders of the review: 1, 0 or -1, ties by number, the reversed forms exact mirrors. Type orders
  // go by the actual type's name, "" for none, then by date; entries not to be imported come before
  // those to be imported.
  [[nodiscard]] int TypePrimaryDateSecondaryIsGreaterThan(const LDGRQIFImportEntry& other) const;
  [[nodiscard]] int TypePrimaryDateSecondaryIsGreaterThan_Reversed(
      const LDGRQIFImportEntry& other) const;
  [[nodiscard]] int ImportIsGreaterThan(const LDGRQIFImportEntry& other) const noexcept;
  [[nodiscard]] int ImportIsGreaterThan_Reversed(const LDGRQIFImportEntry& other) const noexcept;

 private:
  std::shared_ptr<LDGRAccountEntryType> actual_type_;
  std::shared_ptr<LDGRAccountEntry> matched_;
  bool import_ = true;
  bool was_marked_ = false;
  UnmarkedReason unmarked_reason_ = UnmarkedReason::None;
  std::size_t import_order_ = 0;
};

using QifImportEntryList = std::vector<std::shared_ptr<LDGRQIFImportEntry>>;

}  // namespace tallyfold
