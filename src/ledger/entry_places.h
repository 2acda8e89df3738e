#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>

#include "model/account.h"

namespace tallyfold {

// Where entries stand in the lists of their accounts, found without a walk over the account for
// each: places seen once are looked at first, and lists mostly grow at their ends. A place that is
// found is always right, whatever happened to the list meanwhile.
class EntryPlaces {
 public:
  // None when the entry is not one of the account.
  [[nodiscard]] std::optional<std::size_t> Of(const LDGRAccount& account,
                                              const LDGRAccountEntry* entry);
  void Forget() noexcept { seen_.clear(); }

 private:
  using Seen = std::unordered_map<const LDGRAccountEntry*, std::size_t>;
  // By account; the places were right when they were seen.
  std::unordered_map<const LDGRAccount*, Seen> seen_;
};

}  // namespace tallyfold
