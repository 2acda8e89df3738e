#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk.h"
#include "app/entries/entry_reveal.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

struct FoundEntry {
  std::shared_ptr<LDGRAccount> account;
  std::shared_ptr<LDGRAccountEntry> entry;
};

struct EntryFindState {
  bool is_open = false;
  // What was looked for last; "" before the first.
  std::string text;
  // Account by account in the order of the file, in each in the order of the days.
  std::vector<FoundEntry> rows;
  // So many accounts were passed over.
  std::size_t locked = 0;
};

// Finds entries in all accounts that are not locked: by any text of theirs, the name of their type
// and the lines of their split included, ignoring case; by an amount, whatever its sign; and by a
// check number.
class EntryFind {
 public:
  EntryFind(Desk& desk, EntryReveal& reveal, const SheetSlot& sheets, Announcer& announcer) noexcept
      : desk_(desk), reveal_(reveal), sheets_(sheets), announcer_(announcer) {}
  EntryFind(const EntryFind&) = delete;
  EntryFind& operator=(const EntryFind&) = delete;

  // The rows are looked for anew where the accounts have changed since.
  [[nodiscard]] const EntryFindState& State();
  // Puts it up, or to the fore. Nothing while the application is locked or a sheet is open.
  void Open();
  void Close();
  // White space around the text does not count; nothing is found by an empty one.
  void Find(std::string_view text);
  // Selects the account and in it the entry, of which is told where the filter hides it. False for
  // a row that does not exist, and while a sheet is open.
  bool Show(std::size_t row);
  void Forget();

 private:
  void Search();
  // Changes with what the rows depend on.
  [[nodiscard]] std::vector<std::uint64_t> Accounts() const;

  Desk& desk_;
  EntryReveal& reveal_;
  const SheetSlot& sheets_;
  Announcer& announcer_;
  EntryFindState state_;
  std::vector<std::uint64_t> accounts_;
};

}  // namespace tallyfold
