#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "app/desk.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

// Keeps the two halves of each transfer together. A half names the other by the numbers of its
// account and of its entry there. Both need not be unique or exist: old files repeat entry numbers,
// a half that moved to another account has none (-1), and accounts go.
class TransferLinks {
 public:
  explicit TransferLinks(const Desk& desk) noexcept : desk_(desk) {}
  TransferLinks(const TransferLinks&) = delete;
  TransferLinks& operator=(const TransferLinks&) = delete;

  // The other half of a transfer of the selected account; null for null, for an entry that is no
  // transfer, and where the account or the entry that it names is missing.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Transfer_LinkedEntry(
      const LDGRAccountEntry* entry) const;
  // The same for an entry of `account`. Among several entries of the wanted number the one that
  // points back is meant, else the first; of entries without a number only one that points back.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> OtherHalf(const LDGRAccount& account,
                                                            const LDGRAccountEntry& entry) const;

  // Makes `entry`, a transfer of `account` whose own values are final, a transfer with the account
  // numbered `other`, which the user knows as `name`, and brings the other half in line: it is made
  // for a new entry, kept where the account stays the same, and replaced by a new one, which gets
  // no number, where the account changes. An account that does not exist has no other half.
  void Link(LDGRAccount& account, LDGRAccountEntry& entry, bool is_new, std::int32_t other,
            std::string_view name) const;

  // Makes the other half of an entry of `account` an ordinary entry that stays where it is.
  void UnlinkOtherHalf(const LDGRAccount& account, const LDGRAccountEntry& entry) const;
  // Removes the other half of an entry of `account` from its account.
  void RemoveOtherHalf(const LDGRAccount& account, const LDGRAccountEntry& entry) const;

  // Gives every transfer of the account the present name of the account it names.
  void Account_SyncTransfers(LDGRAccount& account) const;
  void Accounts_SyncTransfers() const;

 private:
  const Desk& desk_;
};

}  // namespace tallyfold
