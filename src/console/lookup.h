#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "console/console.h"
#include "model/account_entry.h"

namespace tallyfold {
class LDGRAccount;
class LDGRAccountSchedule;
}  // namespace tallyfold

namespace tallyfold::console {

class Arguments;

// What typed words name. Each throws CommandError that says what there is instead.

[[nodiscard]] std::shared_ptr<LDGRAccount> SelectedAccount(const Console& console);
// By number, by exact name, or by a name that only one account has when case is ignored. A name of
// digits alone is taken as a number first.
[[nodiscard]] std::shared_ptr<LDGRAccount> AccountNamed(const Console& console,
                                                        std::string_view word);
// An entry of the selected account: its number, or "#3" for the third row of the register as it was
// shown last. A number that several entries have names none of them.
[[nodiscard]] std::shared_ptr<LDGRAccountEntry> EntryNamed(const Console& console,
                                                           std::string_view word);
// The same of any account, whose rows are counted in the same order.
[[nodiscard]] std::shared_ptr<LDGRAccountEntry> EntryNamed(const Console& console,
                                                           const LDGRAccount& account,
                                                           std::string_view word);
// Those that all the words of a command name, each once. Beside the words above, "20-24" names
// those whose numbers lie in between, "#3-#7" those rows, and "shown" every row of the current
// register.
[[nodiscard]] EntryList AllEntriesNamed(const Console& console, const Arguments& arguments);
// An entry of the selected account, which is then the selected one of the current register; one
// that the filter in force hides cannot be.
std::shared_ptr<LDGRAccountEntry> SelectEntryNamed(const Console& console, std::string_view word);
void SelectShownEntry(const Console& console, const std::shared_ptr<LDGRAccountEntry>& entry,
                      std::string_view word);
// A schedule of the selected account, by its number or by "#3" in the order of the list.
[[nodiscard]] std::shared_ptr<LDGRAccountSchedule> ScheduleNamed(const Console& console,
                                                                 std::string_view word);

// What EntryNamed takes for the entries of a list: the number where it is unique, else "#3".
class EntryNames {
 public:
  // All entries of an account, in the order of the window (see RowsInWindow).
  explicit EntryNames(const EntryList& rows);
  // Of one of them.
  [[nodiscard]] std::string NameOf(const LDGRAccountEntry* entry) const;

 private:
  // Of those whose number is not unique.
  std::unordered_map<const LDGRAccountEntry*, std::size_t> rows_;
};

}  // namespace tallyfold::console
