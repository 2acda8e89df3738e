#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "model/account_entry.h"

namespace tallyfold {

// Hands out entries of an account to rows of a file that stand for the same payments, each entry
// once: of three coffees of one price, three rows get three.
class MatchChoice {
 public:
  explicit MatchChoice(const EntryList& existing);

  // `wanted` where it is free, else the nearest in days that is, of the row's amount and at most
  // four days away; of two as near the earlier. Null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Find(
      const LDGRAccountEntry& row, const std::shared_ptr<LDGRAccountEntry>& wanted) const;
  // All that Find() may give for the row when others are taken, the nearest first, no more than so
  // many.
  [[nodiscard]] EntryList AllFor(const LDGRAccountEntry& row, std::size_t most) const;
  // The entry is one of the account and free.
  void Take(const LDGRAccountEntry* entry);
  // The first look-up after it looks at all entries.
  void Release(const LDGRAccountEntry* entry);

 private:
  struct Place {
    double amount;
    std::int64_t day;
    std::shared_ptr<LDGRAccountEntry> entry;
    bool is_taken = false;
  };

  // Where in `places_` those of the row's amount and day begin, from 0 on.
  [[nodiscard]] std::size_t StartFor(double amount, std::int64_t day) const;
  // The first free place from `place` on, or the last up to it; one behind the last, or the first,
  // where there is none. Places count from 1.
  [[nodiscard]] static std::size_t Follow(std::vector<std::size_t>& links, std::size_t place);
  void Link() const;

  std::vector<Place> places_;
  std::unordered_map<const LDGRAccountEntry*, std::size_t> place_of_;
  // Of each place the next one that may be free, itself at first; shortened as they are followed.
  mutable std::vector<std::size_t> after_;
  mutable std::vector<std::size_t> before_;
  mutable bool is_linked_ = false;
};

}  // namespace tallyfold
