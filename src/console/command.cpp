#include "console/command.h"

#include <algorithm>
#include <utility>

#include "console/command_error.h"
#include "console/values.h"

namespace tallyfold::console {
namespace {

const Option* FindOption(const Command& command, std::string_view name) {
  const auto found = std::find_if(command.options.begin(), command.options.end(),
                                  [&](const Option& option) { return option.name == name; });
  return found == command.options.end() ? nullptr : &*found;
}

std::string OptionNames(const Command& command) {
  std::string names;
  for (const Option& option : command.options) {
    if (!names.empty()) names += ' ';
    names += option.name;
    names += '=';
  }
  return names;
}

// What is typed is shown again in errors; a whole pasted page is not.
std::string Excerpt(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  if (text.size() <= kLongest) return Quoted(text);
  std::size_t end = kLongest;
  // Not in the middle of a character.
  while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return Quoted(text.substr(0, end)) + "...";
}

// The name with its plain words and the names of its options.
std::string Signature(const Command& command) {
  std::string signature(command.name);
  if (!command.words.empty()) {
    signature += ' ';
    signature += command.words;
  }
  if (!command.options.empty()) signature += " [" + OptionNames(command) + ']';
  return signature;
}

void CheckOption(const Command& command, const Word& word, const std::vector<Word>& earlier) {
  const std::string name(command.name);
  const Option* const option = FindOption(command, word.key);
  if (option == nullptr) {
    const std::string names = OptionNames(command);
    throw CommandError(name + " has no option " + Excerpt(word.key + '=') +
                       (names.empty() ? "; it takes none" : "; it takes " + names));
  }
  const bool is_repeated = std::any_of(earlier.begin(), earlier.end(),
                                       [&](const Word& other) { return other.key == word.key; });
  if (is_repeated && !option->is_repeatable) {
    throw CommandError(name + ": " + word.key + "= is given twice");
  }
}

// The length of the command's name in words when `words` begin with it, else 0.
std::size_t NameLength(const Command& command, std::span<const Word> words) {
  const std::string_view name = command.name;
  const std::size_t blank = name.find(' ');
  const std::size_t length = blank == std::string_view::npos ? 1 : 2;
  if (words.size() < length) return 0;
  const bool is_plain =
      std::none_of(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(length),
                   [](const Word& word) { return word.IsOption(); });
  if (!is_plain || words[0].text != name.substr(0, blank)) return 0;
  if (length == 2 && words[1].text != name.substr(blank + 1)) return 0;
  return length;
}

}  // namespace

Arguments::Arguments(const Command& command, std::span<const Word> words) {
  for (const Word& word : words) {
    if (word.IsOption()) {
      CheckOption(command, word, options_);
      options_.push_back(word);
    } else if (words_.size() == command.most_words) {
      throw CommandError(Excerpt(word.text) + " is too much; expected " + Signature(command));
    } else {
      words_.push_back(word.text);
    }
  }
  if (words_.size() < command.least_words) {
    throw CommandError("expected " + Signature(command));
  }
}

const std::string& Arguments::WordAt(std::size_t index) const noexcept {
  static const std::string kNone;
  return index < words_.size() ? words_[index] : kNone;
}

bool Arguments::Has(std::string_view option) const noexcept {
  return std::any_of(options_.begin(), options_.end(),
                     [&](const Word& word) { return word.key == option; });
}

std::optional<std::string> Arguments::Text(std::string_view option) const {
  for (const Word& word : options_) {
    if (word.key == option) return word.text;
  }
  return std::nullopt;
}

std::optional<DateNumber> Arguments::Date(std::string_view option) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  return ReadDate(*text, option);
}

std::optional<double> Arguments::Amount(std::string_view option) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  return ReadAmount(*text, option);
}

std::optional<bool> Arguments::YesNo(std::string_view option) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  return ReadYesNo(*text, option);
}

std::optional<std::int32_t> Arguments::Number(std::string_view option, std::int32_t least,
                                              std::int32_t most) const {
  const auto text = Text(option);
  if (!text) return std::nullopt;
  return ReadNumber(*text, option, least, most);
}

std::vector<std::string> Arguments::AllTexts(std::string_view option) const {
  std::vector<std::string> texts;
  for (const Word& word : options_) {
    if (word.key == option) texts.push_back(word.text);
  }
  return texts;
}

FoundCommand FindCommand(std::span<const Subject> subjects, std::span<const Word> words) {
  FoundCommand found;
  for (const Subject& subject : subjects) {
    for (const Command& command : subject.commands) {
      const std::size_t length = NameLength(command, words);
      if (length > found.name_length) found = {&command, length};
    }
  }
  return found;
}

std::string UnknownCommand(std::span<const Subject> subjects, std::span<const Word> words) {
  const std::string first = words.empty() ? std::string() : words.front().text;
  std::string choices;
  for (const Subject& subject : subjects) {
    for (const Command& command : subject.commands) {
      if (!command.name.starts_with(first + ' ')) continue;
      choices += choices.empty() ? "" : ", ";
      choices += command.name;
    }
  }
  if (choices.empty() || first.empty()) {
    return "unknown command " + Excerpt(first) + "; help lists the commands";
  }
  return "expected one of: " + choices;
}

}  // namespace tallyfold::console
