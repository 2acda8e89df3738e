#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "plist/value.h"

namespace tallyfold::plist {

// What became of a stored value that was not taken in as it stands.
enum class NotTaken : std::uint8_t {
  UnknownKey,   // no reader knows its key
  RepeatedKey,  // a later value of the same key took its place
  WrongKind,    // its reader takes values of another kind; not-a-number and infinities are of none
  Skipped,      // an element of a list that was left out
  OutOfRange,   // it is beyond what its reader can hold or count on
  NotUpgraded,  // an upgrade of its record could not use it
};

// Collects, for its own lifetime, what the readers of files and records do not take in as it
// stands. A key that is merely missing is nothing of that kind: nothing is lost by it. Where a
// record is read while no report is in force, as for a copy, nobody is told.
class ReadReport {
 public:
  ReadReport() noexcept;
  ~ReadReport();
  ReadReport(const ReadReport&) = delete;
  ReadReport& operator=(const ReadReport&) = delete;

  // True when everything was taken in.
  [[nodiscard]] bool IsEmpty() const noexcept { return Total() == 0; }
  [[nodiscard]] std::size_t Total() const noexcept { return total_; }
  [[nodiscard]] std::size_t Count(NotTaken what) const noexcept {
    return counts_[static_cast<std::size_t>(what)];
  }
  // The first of all, with its key: valid UTF-8 of at most 40 bytes. For an empty report of no
  // meaning.
  [[nodiscard]] NotTaken First() const noexcept { return first_; }
  [[nodiscard]] const std::string& FirstKey() const noexcept { return first_key_; }

 private:
  friend void ReportNotTaken(NotTaken what, std::string_view key);

  static constexpr std::size_t kKinds = 6;

  std::array<std::size_t, kKinds> counts_{};
  std::size_t total_ = 0;
  NotTaken first_ = NotTaken::UnknownKey;
  std::string first_key_;
  ReadReport* former_;
};

// Tells the report in force, the one made last. `key` is that of the value, or of the list that
// held it.
void ReportNotTaken(NotTaken what, std::string_view key);

// Tells the report of the keys in `dictionary` that `is_known` does not know. A reader that has met
// as many keys as there are (`met`) spares the search.
template <typename IsKnown>
void ReportUnknownKeys(const Dictionary& dictionary, std::size_t met, const IsKnown& is_known) {
  if (met == dictionary.size()) return;
  for (const DictionaryItem& item : dictionary) {
    if (!is_known(item.key())) ReportNotTaken(NotTaken::UnknownKey, item.key());
  }
}

}  // namespace tallyfold::plist
