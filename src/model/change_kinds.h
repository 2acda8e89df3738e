#pragma once

#include <cstdint>

namespace tallyfold {

// What about an account has changed, so that nobody works out again what does not depend on it.
enum class ChangeKind : std::uint8_t {
  Money = 1,       // amounts, days, kinds and places of entries; the starting balance
  Marks = 2,       // whether entries are cleared or tax-deductible
  Texts = 4,       // texts and types of entries, and which other half a transfer names
  Schedules = 8,   // scheduled entries
  Types = 16,      // entry types, active or not, and which are the default ones
  Summaries = 32,  // definitions of summaries
  Options = 64,    // name, password, check numbers, completion lists, statement, last transfer
  Settings = 128,  // filters, choices of imports and exports, the selected summary
};

// A set of them.
class ChangeKinds {
 public:
  constexpr ChangeKinds() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a kind is a set of one.
  constexpr ChangeKinds(ChangeKind kind) noexcept : bits_(static_cast<std::uint8_t>(kind)) {}
  [[nodiscard]] static constexpr ChangeKinds All() noexcept { return FromBits(0xFF); }

  [[nodiscard]] constexpr bool IsEmpty() const noexcept { return bits_ == 0; }
  [[nodiscard]] constexpr bool HasAnyOf(ChangeKinds kinds) const noexcept {
    return (bits_ & kinds.bits_) != 0;
  }
  friend constexpr ChangeKinds operator|(ChangeKinds a, ChangeKinds b) noexcept {
    return FromBits(a.bits_ | b.bits_);
  }
  constexpr ChangeKinds& operator|=(ChangeKinds kinds) noexcept { return *this = *this | kinds; }
  friend constexpr bool operator==(ChangeKinds, ChangeKinds) = default;

 private:
  static constexpr ChangeKinds FromBits(unsigned bits) noexcept {
    ChangeKinds kinds;
    kinds.bits_ = static_cast<std::uint8_t>(bits);
    return kinds;
  }
  std::uint8_t bits_ = 0;
};

constexpr ChangeKinds operator|(ChangeKind a, ChangeKind b) noexcept {
  return ChangeKinds(a) | ChangeKinds(b);
}

}  // namespace tallyfold
