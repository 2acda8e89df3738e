#include "console/command_aids.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include "app/accounts/account_passwords.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/shell/application_lock.h"
#include "app/views/account_summary_tab.h"
#include "console/command.h"
#include "console/console.h"
#include "console/line_history.h"
#include "console/table.h"
#include "console/words.h"
#include "filters/filter_types.h"
#include "model/account.h"
#include "model/text.h"
#include "plist/utf8.h"

namespace tallyfold::console {
namespace {

constexpr std::string_view kAccountNames = "accounts";
constexpr std::string_view kTypeNames = "types";
constexpr std::string_view kFilterNames = "filters";
constexpr std::string_view kSummaryNames = "summaries";

// The line before the cursor: its whole words, and the one that is being typed.
struct Begun {
  std::vector<Word> words;
  std::string key;  // of an option, with its "="
  std::string text;
  // Where `text` begins in the line, with its quotation mark.
  std::size_t from = 0;
};

bool PartsWords(char c) {
  return c == ' ' || c == '\t';
}

// None where no word can go on, as in a comment.
std::optional<Begun> ReadBegun(std::string_view before) {
  bool is_quoted = false;
  std::size_t word = 0;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (is_quoted && before[i] == '\\') {
      ++i;
    } else if (before[i] == '"') {
      is_quoted = !is_quoted;
    } else if (!is_quoted && PartsWords(before[i])) {
      word = i + 1;
    }
  }
  std::string_view last = before.substr(word);
  Line line = ReadWords(before.substr(0, word));
  // A "-" in front may touch its command.
  if (line.words.empty() && !line.may_fail && last.starts_with('-')) {
    ++word;
    last.remove_prefix(1);
  }
  // What follows decides whether it is a comment.
  if (!line.error.empty() || (last.starts_with('#') && line.words.empty())) return std::nullopt;
  Line typed = ReadWords(std::string(last) + (is_quoted ? "\"" : ""));
  if (!typed.error.empty() || typed.words.size() > 1) return std::nullopt;
  Begun begun{std::move(line.words), "", "", word};
  if (typed.words.empty()) return begun;
  Word& only = typed.words.front();
  if (only.IsOption()) {
    begun.key = std::move(only.key);
    begun.from += begun.key.size() + 1;
  }
  begun.text = std::move(only.text);
  return begun;
}

// A word as it is typed: in quotation marks where it must be.
bool NeedsQuotes(std::string_view word) {
  return word.empty() || word.find_first_of(" \t\"\\=#") != std::string_view::npos;
}

// What a word may become: a name or word, or an option's name with "=" behind it.
struct Candidate {
  std::string text;
  bool is_option = false;

  friend bool operator==(const Candidate&, const Candidate&) = default;
};
using Candidates = std::vector<Candidate>;

// The longest beginning that all have, whole characters alone.
std::string CommonBeginning(const Candidates& candidates) {
  std::string_view common = candidates.front().text;
  for (const Candidate& each : candidates) {
    const auto differ =
        std::mismatch(common.begin(), common.end(), each.text.begin(), each.text.end());
    common = common.substr(0, static_cast<std::size_t>(differ.first - common.begin()));
  }
  return std::string(common.substr(0, plist::ValidUtf8Prefix(common)));
}

// The completion of what was typed by those that begin with it, in any case where none does as
// it stands.
LineCompletion CompletionOf(const Begun& begun, std::string_view before, Candidates candidates) {
  LineCompletion completion;
  completion.from = begun.from;
  const std::string_view there = before.substr(begun.from);
  completion.text = there;
  const std::string typed = FoldCase(begun.text);
  const auto is_exact = [&](const Candidate& each) { return each.text.starts_with(begun.text); };
  const bool any_exact = std::any_of(candidates.begin(), candidates.end(), is_exact);
  std::erase_if(candidates, [&](const Candidate& each) {
    return any_exact ? !is_exact(each) : !FoldCase(each.text).starts_with(typed);
  });
  std::sort(candidates.begin(), candidates.end(),
            [](const Candidate& a, const Candidate& b) { return a.text < b.text; });
  candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
  if (candidates.empty()) return completion;
  const bool is_quoted =
      there.find('"') != std::string_view::npos ||
      std::any_of(candidates.begin(), candidates.end(),
                  [](const Candidate& each) { return !each.is_option && NeedsQuotes(each.text); });
  if (candidates.size() == 1) {
    const Candidate& only = candidates.front();
    if (only.is_option) {
      completion.text = only.text;
    } else {
      completion.text = (is_quoted ? Quoted(only.text) : only.text) + ' ';
    }
    return completion;
  }
  const std::string common = CommonBeginning(candidates);
  if (common.size() > begun.text.size()) {
    completion.text = is_quoted ? Quoted(common) : common;
    // More is still to come.
    if (is_quoted) completion.text.pop_back();
  } else {
    for (const Candidate& each : candidates) completion.choices.push_back(Printable(each.text));
  }
  return completion;
}

// The words in small letters of "debit|deposit [landscape]", which are typed as they stand.
void AddLiteralWords(Candidates& words, std::string_view described) {
  constexpr std::string_view kBetween = "|[] .";
  while (!described.empty()) {
    const std::size_t end = std::min(described.find_first_of(kBetween), described.size());
    const std::string_view word = described.substr(0, end);
    const bool is_literal = !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
      return (c >= 'a' && c <= 'z') || c == '-';
    });
    if (is_literal) words.push_back({std::string(word)});
    described.remove_prefix(std::min(end + 1, described.size()));
  }
}

// Which names a plain word behind the command stands for; "" for none.
std::string_view NamesFor(const Subject& subject, const Command& command) {
  const bool takes_name = command.words.find("NAME") != std::string_view::npos;
  if (!takes_name || command.name.ends_with(" add")) return "";
  const std::pair<std::string_view, std::string_view> kinds[] = {{"Accounts", kAccountNames},
                                                                 {"Types", kTypeNames},
                                                                 {"Filters", kFilterNames},
                                                                 {"Summaries", kSummaryNames}};
  for (const auto& [name, kind] : kinds) {
    if (subject.name == name) return kind;
  }
  return "";
}

std::string_view NamesFor(const Option& option) {
  if (option.value.find("ACCOUNT") != std::string_view::npos || option.name == "account") {
    return kAccountNames;
  }
  const bool takes_name = option.value.find("NAME") != std::string_view::npos;
  if (takes_name && option.name == "type") return kTypeNames;
  if (takes_name && option.name == "filter") return kFilterNames;
  return "";
}

void AddNames(Candidates& to, std::vector<std::string> names) {
  for (std::string& name : names) to.push_back({std::move(name)});
}

}  // namespace

std::vector<std::string> CommandAids::Earlier() const {
  if (is_launched_ && !console_.controller.applicationLock().authenticated()) return {};
  return history_.Lines();
}

std::vector<std::string> CommandAids::Names(std::string_view what) const {
  std::vector<std::string> names;
  LDGRController& controller = console_.controller;
  if (what == kFilterNames) {
    for (const FilterType& type : FilterTypes()) names.emplace_back(type.name);
    return names;
  }
  if (what.empty() || !is_launched_ || !controller.applicationLock().authenticated()) return names;
  if (what == kAccountNames) {
    for (const auto& account : controller.desk().accounts()) names.push_back(account->GetName());
    return names;
  }
  const auto account = controller.desk().SelectedAccount();
  if (account == nullptr || account->IsLocked()) return names;
  if (what == kTypeNames) {
    for (const auto& type : account->GetTypes()) names.push_back(type->GetName());
  } else if (what == kSummaryNames) {
    for (const auto& summary : controller.summaries().State().summaries) {
      names.push_back(summary->name());
    }
  }
  return names;
}

LineCompletion CommandAids::Complete(std::string_view before) const {
  const auto begun = ReadBegun(before);
  if (!begun) return {before.size(), "", {}};
  Candidates candidates;
  const auto& words = begun->words;
  const bool is_help = !words.empty() && words.front().text == "help";
  const std::span<const Word> named = std::span(words).subspan(is_help ? 1 : 0);

  // A word of a command's name.
  if (named.size() < 2 && begun->key.empty()) {
    for (const Subject& subject : console_.subjects) {
      if (is_help && named.empty()) candidates.push_back({std::string(subject.name)});
      for (const Command& command : subject.commands) {
        const std::string_view name = command.name;
        const std::size_t blank = std::min(name.find(' '), name.size());
        if (named.empty()) {
          candidates.push_back({std::string(name.substr(0, blank))});
        } else if (blank < name.size() && named.front().text == name.substr(0, blank)) {
          candidates.push_back({std::string(name.substr(blank + 1))});
        }
      }
    }
  }
  const FoundCommand found = FindCommand(console_.subjects, words);
  if (found.command == nullptr || is_help)
    return CompletionOf(*begun, before, std::move(candidates));
  const Command& command = *found.command;
  if (begun->key.empty()) {
    for (const Option& option : command.options) {
      candidates.push_back({std::string(option.name) + '=', true});
    }
    const auto behind = std::span(words).subspan(found.name_length);
    const auto plain = static_cast<std::size_t>(std::count_if(
        behind.begin(), behind.end(), [](const Word& word) { return !word.IsOption(); }));
    const bool takes_word = plain < command.most_words;
    if (takes_word) AddLiteralWords(candidates, command.words);
    for (const Subject& subject : console_.subjects) {
      if (!takes_word) break;
      const bool is_of_it = std::any_of(subject.commands.begin(), subject.commands.end(),
                                        [&](const Command& each) { return &each == &command; });
      if (is_of_it) AddNames(candidates, Names(NamesFor(subject, command)));
    }
  }
  for (const Option& option : command.options) {
    if (option.name != begun->key) continue;
    AddLiteralWords(candidates, option.value);
    AddNames(candidates, Names(NamesFor(option)));
  }
  return CompletionOf(*begun, before, std::move(candidates));
}

}  // namespace tallyfold::console
