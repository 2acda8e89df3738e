#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/qif_import_entry.h"
#include "model/account_entry.h"

namespace tallyfold {

// The entry of an account that an entry to be imported repeats, and by what.
struct QifMatch {
  enum class Reason : std::uint8_t {
    CheckNumber,
    ToFrom,
    Description,
    AmountAndDate,  // beyond these only texts that both lack
    NearDate
  };

  std::shared_ptr<LDGRAccountEntry> entry;
  Reason reason = Reason::NearDate;
  // How many entries of the account match for that reason, and how many of those to be imported
  // match the same ones for it, whatever else they match for (for AmountAndDate: for the first
  // text that both lack): of three coffees in the file and two
  // in the account, one is new. Both are 0 for NearDate, in_file also before CountImported().
  std::uint32_t in_account = 0;
  std::uint32_t in_file = 0;
};

// Finds what an account seems to hold already: an entry of the same kind, amount and day that also
// has the same check number, the same to/from or the same description. Kinds agree when both are
// debits or both not, or both deposits or both not, so that a transfer agrees with either.
//
// Refers to the texts of the account's entries, which must not change meanwhile.
class QifDuplicates {
 public:
  // Prepared for these entries to be imported alone.
  QifDuplicates(const EntryList& existing, const QifImportEntryList& imported);
  [[nodiscard]] std::optional<QifMatch> Find(const LDGRAccountEntry& imported) const;
  // From here on matches tell how many of the file there are.
  void CountImported(const QifImportEntryList& imported);

 private:
  // The entries of the account of one amount and day.
  struct Group {
    double amount = 0.0;
    DateNumber date = 0;
    std::uint32_t first = 0;  // index of members_
    std::uint32_t count = 0;
  };
  // What entries of a large group are looked up by.
  struct Key {
    std::uint32_t group;
    std::uint8_t kind;
    QifMatch::Reason reason;
    std::int32_t check_number;
    std::string_view text;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const noexcept;
  };
  struct Alike {
    std::uint32_t first = 0;  // index of members_
    std::uint32_t count = 0;
  };

  static constexpr std::uint32_t kNone = 0xFFFF'FFFF;

  [[nodiscard]] static std::uint64_t NumberOf(const Alike& alike,
                                              QifMatch::Reason reason) noexcept {
    return std::uint64_t{alike.first} * 4 + static_cast<std::uint64_t>(reason);
  }

  void MakeGroups(const QifImportEntryList& imported);
  void FillGroups(const EntryList& existing);
  void AddToKeys(const Group& group);
  // The place in slots_ where the group is, or would be.
  [[nodiscard]] std::size_t SlotOf(double amount, DateNumber date) const noexcept;
  [[nodiscard]] std::uint32_t GroupOf(const LDGRAccountEntry& entry) const noexcept;
  // The entries of the group that match for the reason; `group` may be kNone.
  [[nodiscard]] Alike FindAlike(std::uint32_t group, const LDGRAccountEntry& imported,
                                QifMatch::Reason reason) const;
  [[nodiscard]] Alike FindInGroup(const Group& group, const LDGRAccountEntry& imported,
                                  QifMatch::Reason reason) const;
  [[nodiscard]] Alike FindByKey(std::uint32_t group, const LDGRAccountEntry& imported,
                                QifMatch::Reason reason) const;
  [[nodiscard]] static Key KeyOf(std::uint32_t group, const LDGRAccountEntry& entry,
                                 QifMatch::Reason reason);

  // Open addressing over groups_; the size is a power of two.
  std::vector<std::uint32_t> slots_;
  std::vector<Group> groups_;
  std::vector<std::shared_ptr<LDGRAccountEntry>> members_;
  // Of the groups that are too large to be looked through for each entry.
  std::unordered_map<Key, Alike, Hash> keys_;
  // By the index of the matched entry in members_, and the reason.
  std::unordered_map<std::uint64_t, std::uint32_t> in_file_;
};

// Entries further apart are not taken for one payment.
inline constexpr std::int64_t kNearDays = 4;

// Finds entries of the same amount within four days. A hint, no more: it decides nothing.
class QifNearMatches {
 public:
  explicit QifNearMatches(const EntryList& existing);
  // The nearest in days; of two the earlier.
  [[nodiscard]] std::optional<QifMatch> Find(const LDGRAccountEntry& imported) const;

 private:
  struct Place {
    double amount;
    std::int64_t day;
    std::shared_ptr<LDGRAccountEntry> entry;
  };
  std::vector<Place> places_;
};

}  // namespace tallyfold
