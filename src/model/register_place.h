#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>

#include "model/account_entry.h"
#include "model/packed_sort.h"

namespace tallyfold {

// Where an entry stands in the register: its day, on that day checks before the others, the checks
// by check number and the others by entry number. Entries may share a place.
struct RegisterPlace {
  std::int64_t day_and_kind;
  std::int32_t number;

  explicit RegisterPlace(const LDGRAccountEntry& entry) noexcept
      : day_and_kind(std::int64_t{entry.GetDate()} * 2 + (entry.IsCheck() ? 0 : 1)),
        number(entry.IsCheck() ? entry.GetCheckNumber() : entry.GetNumber()) {}

  [[nodiscard]] bool IsCheck() const noexcept { return day_and_kind % 2 == 0; }
  [[nodiscard]] PackedKey Packed(std::size_t index) const noexcept {
    return {static_cast<std::uint64_t>(day_and_kind) ^ 0x8000'0000'0000'0000U, InOrder(number),
            static_cast<std::uint32_t>(index)};
  }
  // The same of a packed place, without a look at its entry.
  [[nodiscard]] static bool IsCheckPacked(const PackedKey& place) noexcept {
    return place.high % 2 == 0;
  }
  friend auto operator<=>(const RegisterPlace&, const RegisterPlace&) = default;
};

}  // namespace tallyfold
