#include "console/manual.h"

#include <algorithm>
#include <vector>

#include "app/help/manual_page.h"

namespace tallyfold::console {
namespace {

constexpr LineRule kLineRules[] = {
    {"help SUBJECT|COMMAND", "lists a subject's commands, or explains a command"},
    {"help all", "lists every command"},
    {"- COMMAND", "may fail: a run of a file or pipe then goes on"},
    {"# TEXT", "is a comment, also behind a command (where #3 is a row)"},
    {R"("TWO WORDS")", "is one word"},
};

struct Told {
  std::string_view name = {};
  std::string_view text = {};
};

constexpr Told kArguments[] = {
    {"--help", "tells this in short and ends."},
    {"--version", "tells the version and ends."},
};

constexpr Told kStatuses[] = {
    {"0",
     "All is done and saved; also after the alert that the accounts were written by another "
     "version, when the answer was not to go on."},
    {"1",
     "A command failed in a run of a file or pipe, and nothing further was saved; or a save "
     "failed, what had changed was lost at the end, an import was left uncommitted, or "
     "standard output could not be written."},
    {"2", "Not started: an argument is not known."},
    {"128 + N", "Ended by the signal of number N. What was done until then is saved, as by quit."},
};

constexpr Told kFiles[] = {
    {"~/Library/Tallyfold/Accounts.plist", "the accounts."},
    {"~/Library/Tallyfold/Accounts.plist.recovery",
     "changes that are not saved yet, to be recovered after an interruption."},
    {"~/Library/Tallyfold/Backups/", "dated backups of the accounts."},
    {"~/Library/Tallyfold/Console History",
     "lines typed at a terminal, without those that take passwords. The owner alone can read it; "
     "it is removed when the application gets a password, and none is kept while it has one."},
    {"~/Library/Preferences/Quorva/Tallyfold Preferences", "the preferences."},
};

constexpr Told kEnvironment[] = {
    {"HOME", "the folder in which the files are."},
    {"LC_ALL, LC_TIME, LC_NUMERIC, LC_CTYPE, LANG",
     "the short form of dates, what separates cents and thousands, and the encoding of exports. "
     "The console speaks English and its lines are UTF-8, whatever they say. Pages have the width "
     "and length that print is told."},
    {"TERM", "the kind of terminal, for editing lines."},
    {"TZ", "the time zone, which says what day it is."},
};

void AppendSection(std::string& page, std::string_view title, std::span<const Told> told) {
  page += ".SH " + std::string(title) + '\n';
  for (const Told& each : told) page += RoffTagged(each.name, each.text);
}

void AppendCommand(std::string& page, const Command& command) {
  std::string usage(command.name);
  if (!command.words.empty()) usage += ' ' + std::string(command.words);
  page += RoffTagged(usage, command.help);
  if (!command.options.empty() || !command.answers.empty()) {
    page += ".RS\n";
    for (const Option& option : command.options) {
      std::string text(option.help);
      if (option.is_repeatable) text += " (may be given several times)";
      page += RoffTagged(std::string(option.name) + '=' + std::string(option.value), text);
    }
    if (!command.answers.empty()) page += RoffTagged("answers", command.answers);
    page += ".RE\n";
  }
}

}  // namespace

std::span<const LineRule> LineRules() {
  return kLineRules;
}

std::string UsageText() {
  std::string text =
      "Usage: tallyfold-console [--help | --version]\n"
      "Keeps bank accounts by commands, which are read from standard input, one a line.\n\n";
  for (const LineRule& rule : kLineRules) {
    text += "  " + std::string(rule.written);
    text.append(rule.written.size() < 22 ? 22 - rule.written.size() : 1, ' ');
    text += std::string(rule.means) + '\n';
  }
  return text + "\nman tallyfold-console tells all of it.\n";
}

std::string ManualPage(std::span<const Subject> subjects, std::string_view version) {
  std::string page = ".TH TALLYFOLD\\-CONSOLE 1 \"\" \"Tallyfold " + std::string(version) +
                     "\" \"User Commands\"\n"
                     ".SH NAME\ntallyfold\\-console \\- personal bank accounts, kept by commands\n"
                     ".SH SYNOPSIS\n.B tallyfold\\-console\n[\n.B \\-\\-help\n|\n"
                     ".B \\-\\-version\n]\n"
                     ".SH DESCRIPTION\n";
  page +=
      "Reads commands from standard input, one a line. At a terminal lines can be edited, recalled "
      "and completed where the program was built for that; answers are tables that fit the "
      "screen, an interrupt drops the line, and the end of input on an empty line ends the "
      "program. From a file or pipe answers are cells separated by tabs below a line of titles, "
      "and the first command that fails ends the run.\n.PP\n"
      "While another copy of Tallyfold has the accounts open, this one shows what was saved last, "
      "and changes and saves nothing: commands that would change anything fail.\n.PP\n"
      "Lines are UTF\\-8; one that is not is refused. In quotation marks \\e\\(dq, \\e\\e, \\en "
      "and "
      "\\et stand for a quotation mark, a backslash, a line end and a tab.\n";
  AppendSection(page, "OPTIONS", kArguments);
  page += ".SH LINES\n";
  for (const LineRule& rule : kLineRules) page += RoffTagged(rule.written, rule.means);
  page += ".SH COMMANDS\n";
  std::vector<std::string_view> told;
  for (const Subject& first : subjects) {
    if (std::find(told.begin(), told.end(), first.name) != told.end()) continue;
    told.push_back(first.name);
    page += ".SS " + RoffText(first.name) + '\n';
    for (const Subject& subject : subjects) {
      if (subject.name != first.name) continue;
      for (const Command& command : subject.commands) AppendCommand(page, command);
    }
  }
  AppendSection(page, "EXIT STATUS", kStatuses);
  AppendSection(page, "FILES", kFiles);
  AppendSection(page, "ENVIRONMENT", kEnvironment);
  return page;
}

}  // namespace tallyfold::console
