#pragma once

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
  enum class Reason : std::uint8_t { CheckNumber, ToFrom, Description, NearDate };

  std::shared_ptr<LDGRAccountEntry> entry;
  Reason reason = Reason::NearDate;
  // How many entries of the account match for that reason, and how many of those to be imported
  // match the same ones: of three coffees in the file and two in the account, one is new. Both are
  // 0 for NearDate.
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

 private:
  struct Key {
    double amount;
    DateNumber date;
    std::uint8_t kind;
    QifMatch::Reason reason;
    std::int32_t check_number;
    std::string_view text;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const noexcept;
  };
  [[nodiscard]] static Key KeyOf(const LDGRAccountEntry& entry, QifMatch::Reason reason);

  struct Alike {
    std::shared_ptr<LDGRAccountEntry> first;
    std::uint32_t in_account = 0;
    std::uint32_t in_file = 0;
  };

  void AddExisting(const std::shared_ptr<LDGRAccountEntry>& entry, QifMatch::Reason reason);
  // Calls `visit` with what matches, all of one reason; not at all for none.
  template <typename Map, typename Visit>
  static void VisitMatches(Map& alike, const LDGRAccountEntry& imported, Visit visit);

  std::unordered_map<Key, Alike, Hash> alike_;
};

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
