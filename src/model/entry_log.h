#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "model/account_entry.h"

namespace tallyfold {

// An entry that came, went or changed.
struct EntryTouch {
  std::shared_ptr<LDGRAccountEntry> entry;
  bool is_there = false;  // among the entries after that
};

// Which entries the latest changes touched, one behind the other, so that whoever worked something
// out of all entries catches up with the few that are others.
class EntryLog {
 public:
  // After more touches than that, catching up is no gain.
  static constexpr std::size_t kMost = 4096;
  // What more touches than that cost one by one, all entries cost together.
  static constexpr std::size_t kFew = 64;

  // Where the log stands; never 0.
  [[nodiscard]] std::uint64_t Mark() const noexcept { return forgotten_ + touches_.size(); }
  // What was touched since the log stood there; none when nobody knows. Good until the next change.
  [[nodiscard]] std::optional<std::span<const EntryTouch>> Since(
      std::uint64_t mark) const noexcept {
    if (mark < forgotten_ || mark > Mark()) return std::nullopt;
    return std::span(touches_).subspan(mark - forgotten_);
  }

  void Add(const EntryList& entries, bool are_there) noexcept;
  // Any entry may be another one.
  void Forget() noexcept {
    forgotten_ = Mark() + 1;
    touches_.clear();
  }

 private:
  std::uint64_t forgotten_ = 1;
  std::vector<EntryTouch> touches_;
};

// The last touch of each entry, in no order.
[[nodiscard]] std::vector<EntryTouch> LastTouches(std::span<const EntryTouch> touches);

}  // namespace tallyfold
