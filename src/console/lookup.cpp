#include "console/lookup.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>
#include <unordered_set>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/views/registers.h"
#include "console/command.h"
#include "console/command_error.h"
#include "console/register_order.h"
#include "console/words.h"
#include "model/account.h"
#include "model/account_schedule.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

// The number that the whole word is; none for any other text and beyond 32 bits.
template <typename Number>
std::optional<Number> NumberOf(std::string_view word) {
  Number number = 0;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

// Finds what `word` names among `rows`: by row ("#3"), or by a number that only one has.
template <typename Record>
std::shared_ptr<Record> Named(const std::vector<std::shared_ptr<Record>>& rows,
                              std::string_view word, const std::string& kind) {
  if (word.starts_with('#')) {
    const auto row = NumberOf<std::size_t>(word.substr(1));
    if (row && *row >= 1 && *row <= rows.size()) return rows[*row - 1];
    throw CommandError("there is no row " + std::string(word) + "; there are " +
                       std::to_string(rows.size()));
  }
  const auto number = NumberOf<std::int32_t>(word);
  if (!number) {
    throw CommandError("expected the number of " + kind + " or a row such as #3, not " +
                       Quoted(word));
  }
  std::shared_ptr<Record> found;
  std::string others;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (rows[row]->GetNumber() != *number) continue;
    others += (others.empty() ? "#" : ", #") + std::to_string(row + 1);
    if (found == nullptr) {
      found = rows[row];
    } else {
      // One more is enough to tell; a list of thousands helps nobody.
      throw CommandError("number " + std::string(word) + " is not unique; name the row: " + others);
    }
  }
  if (found == nullptr)
    throw CommandError("there is no " + kind.substr(kind.find(' ') + 1) + " " + std::string(word));
  return found;
}

// The only entry with that number, without sorting any rows; null where it takes them to tell.
std::shared_ptr<LDGRAccountEntry> OnlyOneNumbered(const LDGRAccount& account,
                                                  std::string_view word) {
  const auto number = NumberOf<std::int32_t>(word);
  if (!number) return nullptr;
  const EntryList alike = account.EntriesWithNumber(*number);
  return alike.size() == 1 ? alike.front() : nullptr;
}

// What words name, gathered word by word. Rows are sorted once, where a word counts them.
class EntriesOfWords {
 public:
  EntriesOfWords(const Console& console, std::shared_ptr<LDGRAccount> account)
      : console_(console), account_(std::move(account)) {}

  void Add(std::string_view word) {
    if (word == "shown") return AddShown();
    if (const auto entry = OnlyOneNumbered(*account_, word)) return Add(entry);
    // A minus in front is that of a number.
    const std::size_t dash = word.find('-', 1);
    if (dash == std::string_view::npos) return Add(Named(Rows(), word, "an entry"));
    if (word.starts_with('#')) {
      AddRows(word, dash);
    } else {
      AddNumbers(word, dash);
    }
  }

  EntryList Take() { return std::move(entries_); }

 private:
  [[noreturn]] static void Refuse(std::string_view word) {
    throw CommandError("expected a range such as 20-24 or #3-#7, not " + Quoted(word));
  }

  const EntryList& Rows() {
    if (!rows_) rows_ = RowsInWindow(console_, *account_);
    return *rows_;
  }

  void Add(const std::shared_ptr<LDGRAccountEntry>& entry) {
    if (known_.insert(entry.get()).second) entries_.push_back(entry);
  }

  void AddShown() {
    const EntryList& shown = console_.controller.registers().currentTableDataSource().GetEntries();
    if (shown.empty()) throw CommandError("the register shows no entries; see 'filter'");
    for (const auto& entry : shown) Add(entry);
  }

  void AddRows(std::string_view word, std::size_t dash) {
    const bool has_hash = word.substr(dash + 1).starts_with('#');
    const auto first = NumberOf<std::size_t>(word.substr(1, dash - 1));
    const auto last = NumberOf<std::size_t>(word.substr(dash + (has_hash ? 2 : 1)));
    if (!first || !last || *first < 1 || *first > *last) Refuse(word);
    if (*last > Rows().size()) {
      throw CommandError("there is no row #" + std::to_string(*last) + "; there are " +
                         std::to_string(Rows().size()));
    }
    for (std::size_t row = *first - 1; row < *last; ++row) Add(Rows()[row]);
  }

  void AddNumbers(std::string_view word, std::size_t dash) {
    const auto first = NumberOf<std::int32_t>(word.substr(0, dash));
    const auto last = NumberOf<std::int32_t>(word.substr(dash + 1));
    if (!first || !last || *first > *last) Refuse(word);
    bool is_any = false;
    for (const auto& entry : account_->GetEntries()) {
      if (entry->GetNumber() < *first || entry->GetNumber() > *last) continue;
      Add(entry);
      is_any = true;
    }
    if (!is_any) throw CommandError("there is no entry in " + std::string(word));
  }

  const Console& console_;
  const std::shared_ptr<LDGRAccount> account_;
  std::optional<EntryList> rows_;
  EntryList entries_;
  std::unordered_set<const LDGRAccountEntry*> known_;
};

}  // namespace

std::shared_ptr<LDGRAccount> SelectedAccount(const Console& console) {
  auto account = console.controller.desk().SelectedAccount();
  if (account == nullptr) {
    throw CommandError(console.controller.desk().accounts().empty()
                           ? "there is no account; account add makes one"
                           : "no account is selected; select NUMBER|NAME selects one");
  }
  return account;
}

std::shared_ptr<LDGRAccount> AccountNamed(const Console& console, std::string_view word) {
  if (const auto number = NumberOf<std::int32_t>(word)) {
    if (auto account = console.controller.desk().AccountWithNumber(*number)) return account;
  }
  const auto& accounts = console.controller.desk().accounts();
  std::vector<std::shared_ptr<LDGRAccount>> alike;
  for (const bool exactly : {true, false}) {
    alike.clear();
    for (const auto& account : accounts) {
      const bool is_alike =
          exactly ? account->GetName() == word : CompareIgnoringCase(account->GetName(), word) == 0;
      if (is_alike) alike.push_back(account);
    }
    if (alike.size() == 1) return alike.front();
    if (alike.size() > 1) {
      throw CommandError(std::to_string(alike.size()) + " accounts are named " + Quoted(word) +
                         "; use the number");
    }
  }
  throw CommandError("there is no account " + Quoted(word) + "; accounts lists them");
}

std::shared_ptr<LDGRAccountEntry> EntryNamed(const Console& console, std::string_view word) {
  return EntryNamed(console, *SelectedAccount(console), word);
}

std::shared_ptr<LDGRAccountEntry> EntryNamed(const Console& console, const LDGRAccount& account,
                                             std::string_view word) {
  if (auto entry = OnlyOneNumbered(account, word)) return entry;
  return Named(RowsInWindow(console, account), word, "an entry");
}

EntryList AllEntriesNamed(const Console& console, const Arguments& arguments) {
  EntriesOfWords entries(console, SelectedAccount(console));
  for (std::size_t i = 0; i < arguments.WordCount(); ++i) entries.Add(arguments.WordAt(i));
  return entries.Take();
}

std::shared_ptr<LDGRAccountEntry> SelectEntryNamed(const Console& console, std::string_view word) {
  auto entry = EntryNamed(console, word);
  SelectShownEntry(console, entry, word);
  return entry;
}

void SelectShownEntry(const Console& console, const std::shared_ptr<LDGRAccountEntry>& entry,
                      std::string_view word) {
  console.controller.desk().SelectEntry(entry);
  if (console.controller.desk().SelectedEntry() == entry) return;
  throw CommandError("the filter in force hides entry " + std::string(word) + "; see 'filter'");
}

std::shared_ptr<LDGRAccountSchedule> ScheduleNamed(const Console& console, std::string_view word) {
  return Named(SelectedAccount(console)->GetSchedules(), word, "a schedule");
}

EntryNames::EntryNames(const EntryList& rows) {
  std::unordered_map<std::int32_t, std::size_t> counts;
  counts.reserve(rows.size());
  for (const auto& entry : rows) ++counts[entry->GetNumber()];
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (counts.at(rows[row]->GetNumber()) > 1) rows_[rows[row].get()] = row;
  }
}

std::string EntryNames::NameOf(const LDGRAccountEntry* entry) const {
  const auto row = rows_.find(entry);
  return row == rows_.end() ? std::to_string(entry->GetNumber())
                            : '#' + std::to_string(row->second + 1);
}

}  // namespace tallyfold::console
