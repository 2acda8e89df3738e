#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/words.h"
#include "model/date_number.h"

namespace tallyfold::console {

struct Console;
class Arguments;

// An option that a command takes, written name=VALUE.
struct Option {
  std::string_view name = {};
  // What stands behind "=", as help shows it: "DATE", "yes|no".
  std::string_view value = {};
  std::string_view help = {};
  bool is_repeatable = false;
};

// What a command needs before it can run.
enum class Needs : std::uint8_t {
  Nothing,       // runs before the launch too
  Launch,        // the launch; runs while the application is locked
  Unlocked,      // also the password; an open sheet for a new account is cancelled
  AccountSheet,  // the same, but fills the sheet for a new account where one is open
  Reminder,      // as Unlocked, but the reminder of scheduled entries stays open
};

// One command: what help tells of it, what it takes and what it does. Each subject keeps its
// commands in a table of its own (see all_commands.h).
struct Command {
  // One or two words: "debit", "account add".
  std::string_view name = {};
  // The plain words behind the name as help shows them ("NUMBER|NAME"), and how many there may be.
  std::string_view words = {};
  std::size_t least_words = 0;
  std::size_t most_words = 0;
  std::span<const Option> options = {};
  // One line without a full stop.
  std::string_view help = {};
  std::string_view example = {};
  // The answers to what it may ask, question by question ("OK, Cancel; Yes, No, Cancel"); "" where
  // it asks nothing.
  std::string_view answers = {};
  // Throws CommandError when it cannot do what was asked; it then has changed nothing.
  void (*run)(Console& console, const Arguments& arguments) = nullptr;
  Needs needs = Needs::Unlocked;
  // Also runs while an import is under review, which changes nothing of the accounts.
  bool works_in_review = false;
  // Writes the program's files, or changes what only they hold: refused while another copy has
  // them. What changes the accounts needs no mark; the ledger refuses that itself.
  bool writes_own_files = false;
};

// Commands of a subject, in the order in which help lists them. Those of one subject may come from
// several tables, one behind the other.
struct Subject {
  std::string_view name = {};
  std::span<const Command> commands = {};
};

// What was typed behind a command's name, checked against what it takes.
class Arguments {
 public:
  // Throws CommandError for too few or too many words and for options that are unknown or given
  // twice. `words` are those behind the name.
  Arguments(const Command& command, std::span<const Word> words);

  [[nodiscard]] std::size_t WordCount() const noexcept { return words_.size(); }
  // "" when there are fewer.
  [[nodiscard]] const std::string& WordAt(std::size_t index) const noexcept;
  // Whether its words name all rows of what the command works on.
  [[nodiscard]] bool NamesAllRows() const noexcept {
    return WordCount() == 1 && WordAt(0) == "all";
  }

  // Options by name; none when not given. Those that read a value throw CommandError for a bad one.
  [[nodiscard]] bool Has(std::string_view option) const noexcept;
  [[nodiscard]] std::optional<std::string> Text(std::string_view option) const;
  [[nodiscard]] std::optional<DateNumber> Date(std::string_view option) const;
  [[nodiscard]] std::optional<double> Amount(std::string_view option) const;
  [[nodiscard]] std::optional<bool> YesNo(std::string_view option) const;
  [[nodiscard]] std::optional<std::int32_t> Number(std::string_view option, std::int32_t least,
                                                   std::int32_t most) const;
  // Every value of a repeatable option, in the order typed.
  [[nodiscard]] std::vector<std::string> AllTexts(std::string_view option) const;

 private:
  std::vector<std::string> words_;
  std::vector<Word> options_;
};

// The command that the first words name, and how many words its name takes; null for none.
struct FoundCommand {
  const Command* command = nullptr;
  std::size_t name_length = 0;
};
[[nodiscard]] FoundCommand FindCommand(std::span<const Subject> subjects,
                                       std::span<const Word> words);

// Why FindCommand found none, for the user: an unknown name, or the second words that would do.
[[nodiscard]] std::string UnknownCommand(std::span<const Subject> subjects,
                                         std::span<const Word> words);

}  // namespace tallyfold::console
