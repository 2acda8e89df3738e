#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "model/account_entry.h"
#include "model/entry_log.h"

namespace tallyfold {

class LDGRAccount;

// The entries of an account by their numbers, for whoever looks one up again and again, and the
// numbers of the checks among them. They stay what they are until it catches up.
class EntryNumbers {
 public:
  // Takes up what changed in the account since the last time; the account is always the same.
  void CatchUpWith(const LDGRAccount& account);

  // `kept` once it has caught up; made if it is null.
  [[nodiscard]] static const EntryNumbers& UpToDate(std::shared_ptr<EntryNumbers>& kept,
                                                    const LDGRAccount& account);

  // How many entries have that number, and one of them; null for none.
  [[nodiscard]] std::size_t CountOf(std::int32_t number) const noexcept;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> AnyWith(std::int32_t number) const noexcept;
  [[nodiscard]] bool Holds(const LDGRAccountEntry& entry) const noexcept;
  // The check of the greatest entry number; null for none, and where several have that number.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> LastCheck() const noexcept;
  // The greatest check number stored in any entry, be it a check or not; at least -1.
  [[nodiscard]] std::int32_t HighestCheckNumber() const noexcept;
  // Those of checks that are greater than `number`, ascending.
  [[nodiscard]] std::vector<std::int32_t> CheckNumbersAfter(std::int32_t number) const;

 private:
  struct Line {
    std::int32_t number;
    std::int32_t check_number;
    bool is_check;
    std::shared_ptr<LDGRAccountEntry> entry;
  };
  using Lines = std::vector<Line>;

  [[nodiscard]] static Line LineOf(const std::shared_ptr<LDGRAccountEntry>& entry);
  [[nodiscard]] Lines::const_iterator FirstWith(std::int32_t number) const noexcept;

  // By number.
  Lines lines_;
  std::uint64_t mark_ = 0;
};

}  // namespace tallyfold
