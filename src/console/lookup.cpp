#include "console/lookup.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
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
  return Named(InOrderOf(account.GetEntries(), console.register_order), word, "an entry");
}

EntryList AllEntriesNamed(const Console& console, const Arguments& arguments) {
  const auto account = SelectedAccount(console);
  std::optional<EntryList> rows;
  EntryList entries;
  for (std::size_t i = 0; i < arguments.WordCount(); ++i) {
    const std::string_view word = arguments.WordAt(i);
    auto entry = OnlyOneNumbered(*account, word);
    if (entry == nullptr) {
      if (!rows) rows = InOrderOf(account->GetEntries(), console.register_order);
      entry = Named(*rows, word, "an entry");
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::shared_ptr<LDGRAccountEntry> SelectEntryNamed(const Console& console, std::string_view word) {
  auto entry = EntryNamed(console, word);
  console.controller.desk().SelectEntry(entry);
  if (console.controller.desk().SelectedEntry() == entry) return entry;
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
