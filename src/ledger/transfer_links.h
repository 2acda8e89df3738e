#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/account.h"
#include "model/account_entry.h"
#include "storage/accounts_store.h"

namespace tallyfold {

class Change;

// Stands where a half would name the other one, for none.
inline constexpr std::int32_t kNotLinked = -1;

// Keeps the two halves of each transfer together. A half names the other by the numbers of its
// account and of its entry there. Both need not be unique or exist: old files repeat entry numbers,
// a half that moved to another account has none (-1), and accounts go.
class TransferLinks {
 public:
  // The store must outlive the links.
  explicit TransferLinks(const AccountsStore& store) noexcept : store_(store) {}
  TransferLinks(const TransferLinks&) = delete;
  TransferLinks& operator=(const TransferLinks&) = delete;

  // What is known of a transfer's other half.
  struct Search {
    // Null where the account or the entry that the transfer names is missing, or cannot be told.
    std::shared_ptr<LDGRAccountEntry> half;
    // Several entries point back and none of them mirrors the amount.
    bool is_ambiguous = false;
  };

  // The other half of a transfer of the selected account; null for null, for an entry that is no
  // transfer, and where it is missing or cannot be told.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Transfer_LinkedEntry(
      const LDGRAccountEntry* entry) const;
  // Looks for the other half of an entry of `account`, which must still hold the values that the
  // other half was last brought in line with. Of the entries with the wanted number the one that
  // points back is meant, whatever it holds. Several are narrowed by the mirrored amount, then by
  // date and description, and of equals the first is meant. Where none points back it is the first
  // of that number; of entries without a number only one that points back.
  [[nodiscard]] Search FindOtherHalf(const LDGRAccount& account,
                                     const LDGRAccountEntry& entry) const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> OtherHalf(const LDGRAccount& account,
                                                            const LDGRAccountEntry& entry) const {
    return FindOtherHalf(account, entry).half;
  }
  // FindOtherHalf() of each of the entries, which are of `account`, for one walk through each
  // account that they name.
  [[nodiscard]] std::vector<Search> FindOtherHalves(const LDGRAccount& account,
                                                    const EntryList& entries) const;
  // What the user is told where the other half cannot be told from others; "" where it can.
  [[nodiscard]] std::string NoteOnOtherHalf(const LDGRAccount& account,
                                            const LDGRAccountEntry& entry) const;

  // Both make `entry`, a transfer of `account` whose own values are final, a transfer with the
  // account numbered `other`, which the user knows as `name`. An account that does not exist has no
  // other half.
  // For a new entry, whose other half is made.
  void LinkNew(Change& change, LDGRAccount& account, LDGRAccountEntry& entry, std::int32_t other,
               std::string_view name) const;
  // For the new entry of a schedule, which names that account and may name an other half that never
  // was. One that names its own account, as only a file can, becomes a transfer with none: both
  // halves would be booked there.
  void LinkScheduled(Change& change, LDGRAccount& account, LDGRAccountEntry& entry) const;
  // For one that was changed; `half` is what OtherHalf() gave before. It is kept and brought in
  // line where the account stays the same, and replaced by a new one, which gets no number, where
  // the account changes.
  void Relink(Change& change, LDGRAccount& account, LDGRAccountEntry& entry,
              const std::shared_ptr<LDGRAccountEntry>& half, std::int32_t other,
              std::string_view name) const;

  // Makes the other halves of entries of `account` ordinary entries that stay where they are.
  void UnlinkOtherHalves(Change& change, const LDGRAccount& account,
                         const EntryList& entries) const;
  // Removes the other halves of entries of `account` from their accounts.
  void RemoveOtherHalves(Change& change, const LDGRAccount& account,
                         const EntryList& entries) const;

  // Cuts every link of the other accounts to this one, which goes: their entries and schedules stay
  // as ordinary ones, and none of them transfers to it by default.
  void CutLinksTo(Change& change, const LDGRAccount& account) const;
  // How many entries of other accounts are linked to it.
  [[nodiscard]] std::size_t EntriesLinkedTo(const LDGRAccount& account) const;

  // Gives every transfer of the account the present name of the account it names.
  void Account_SyncTransfers(Change& change, const std::shared_ptr<LDGRAccount>& account) const;
  void Accounts_SyncTransfers(Change& change) const;
  // The same for the scheduled transfers of every account.
  void Schedules_SyncTransfers(Change& change) const;

 private:
  // Of the entries with the wanted number: which of those that point back is meant, or else
  // `first`.
  [[nodiscard]] static Search Choose(const LDGRAccountEntry& entry, EntryList pointing_back,
                                     const std::shared_ptr<LDGRAccountEntry>& first);
  // The present name of the account that `entry` names; null when it has it or names none.
  [[nodiscard]] const std::string* NewName(const LDGRAccountEntry& entry) const;
  // Null stands for an other half that is not there.
  void Remove(Change& change, std::int32_t account, const LDGRAccountEntry* half) const;

  const AccountsStore& store_;
};

}  // namespace tallyfold
