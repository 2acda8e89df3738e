#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/console_host.h"
#include "console/console_log.h"
#include "console/manual.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/table.h"
#include "console/values.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

constexpr Column GoesOn(std::string_view title) {
  return {title, Column::Align::Left, Column::Long::GoesOn};
}

// Each name once, in the order of the table.
std::vector<std::string_view> SubjectNames(const Console& console) {
  std::vector<std::string_view> names;
  for (const Subject& subject : console.subjects) {
    if (std::find(names.begin(), names.end(), subject.name) == names.end()) {
      names.push_back(subject.name);
    }
  }
  return names;
}

void ListSubjects(Console& console) {
  Table table({{"subject"}, {"commands"}});
  for (const std::string_view name : SubjectNames(console)) {
    std::string commands;
    for (const Subject& subject : console.subjects) {
      if (subject.name != name) continue;
      for (const Command& command : subject.commands) {
        commands += (commands.empty() ? "" : ", ") + std::string(command.name);
      }
    }
    table.Add({std::string(name), std::move(commands)});
  }
  console.printer.Show(table);
  Table rules({{"line"}, GoesOn("means")});
  for (const LineRule& rule : LineRules()) {
    rules.Add({std::string(rule.written), std::string(rule.means)});
  }
  console.printer.Show(rules);
}

// Those of a subject, or of every one.
void ListCommands(Console& console, std::optional<std::string_view> subject_name) {
  Table table({{"subject"}, {"command"}, GoesOn("what it does")});
  for (const std::string_view name : SubjectNames(console)) {
    if (subject_name && name != subject_name) continue;
    for (const Subject& subject : console.subjects) {
      if (subject.name != name) continue;
      for (const Command& command : subject.commands) {
        table.Add({std::string(name), std::string(command.name), std::string(command.help)});
      }
    }
  }
  console.printer.Show(table);
}

void ExplainCommand(Console& console, const Command& command) {
  Table table({{"part"}, GoesOn("text")});
  std::string usage(command.name);
  if (!command.words.empty()) usage += ' ' + std::string(command.words);
  table.Add({"command", usage});
  table.Add({"does", std::string(command.help)});
  for (const Option& option : command.options) {
    table.Add(
        {std::string(option.name) + '=' + std::string(option.value),
         std::string(option.help) + (option.is_repeatable ? " (may be given several times)" : "")});
  }
  if (!command.answers.empty()) table.Add({"answers", std::string(command.answers)});
  table.Add({"example", std::string(command.example)});
  console.printer.Show(table);
}

// What `answer` may be given before.
void ListAnswers(const Console& console) {
  Table table({{"command"}, {"answers"}});
  table.Add({"the first of all", "of accounts of an older version: Quit, Update"});
  for (const Subject& subject : console.subjects) {
    for (const Command& command : subject.commands) {
      if (command.answers.empty()) continue;
      table.Add({std::string(command.name), std::string(command.answers)});
    }
  }
  console.printer.Show(table);
}

void Answer(Console& console, const Arguments& arguments) {
  console.questions.AddAnswer(arguments.WordAt(0));
}

void Help(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() == 0) return ListSubjects(console);
  const Word words[] = {{"", arguments.WordAt(0)}, {"", arguments.WordAt(1)}};
  const auto asked = std::span(words).first(arguments.WordCount());
  const FoundCommand found = FindCommand(console.subjects, asked);
  if (found.name_length != asked.size()) {
    if (asked.size() == 1 && asked[0].text == "all") return ListCommands(console, std::nullopt);
    for (const std::string_view name : SubjectNames(console)) {
      if (asked.size() == 1 && CompareIgnoringCase(name, asked[0].text) == 0) {
        return ListCommands(console, name);
      }
    }
    throw CommandError(UnknownCommand(console.subjects, asked));
  }
  ExplainCommand(console, *found.command);
  if (found.command->run == Answer) ListAnswers(console);
}

void ShowLog(Console& console, const Arguments& /*arguments*/) {
  Table table({{"line"}, {"times", Column::Align::Right}});
  for (const auto& [line, times] : console.log.Lines()) {
    table.Add({line, WriteNumber(static_cast<std::int64_t>(times))});
  }
  console.printer.Show(table);
}

void Quit(Console& console, const Arguments& /*arguments*/) {
  console.host.Terminate();
}

constexpr Command kGeneralCommands[] = {
    {.name = "help",
     .words = "[SUBJECT|COMMAND|all]",
     .most_words = 2,
     .help = "lists the subjects, the commands of one or all of them, or explains a command",
     .example = "help account add",
     .run = Help,
     .needs = Needs::Nothing},
    {.name = "answer",
     .words = "BUTTON",
     .least_words = 1,
     .most_words = 1,
     .help = "answers a question that the next command asks; each answer serves one question",
     .example = "answer OK",
     .run = Answer,
     .needs = Needs::Nothing},
    {.name = "log",
     .help = "shows the lines logged so far",
     .example = "log",
     .run = ShowLog,
     .needs = Needs::Launch},
    {.name = "quit",
     .help = "saves everything and ends",
     .example = "quit",
     .answers = "at a terminal, where not all can be saved: Try Again, Save Elsewhere, End Without "
                "Saving",
     .run = Quit,
     .needs = Needs::Launch},
};

}  // namespace

std::span<const Command> GeneralCommands() {
  return kGeneralCommands;
}

}  // namespace tallyfold::console
