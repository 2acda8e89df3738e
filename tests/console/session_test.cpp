#include "console/session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "console/command_error.h"
#include "console/entry_options.h"
#include "console/recurrence.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "model/account_schedule.h"
#include "model/display_width.h"
#include "platform/line_aids.h"
#include "platform/notification_center.h"
#include "platform/terminal.h"
#include "system/iconv_encodings.h"

namespace tallyfold::console {
namespace {

// Lines to read, and all that is written, errors behind "!".
class FakeTerminal final : public Terminal {
 public:
  bool ReadsFromPerson() const override { return thinks != nullptr; }
  bool WritesToPerson() const override { return thinks != nullptr; }
  std::optional<std::string> ReadLine(std::string_view /*prompt*/) override {
    if (thinks) thinks();
    if (before_line) before_line(lines.size());
    if (lines.empty()) return std::nullopt;
    const std::string line = lines.front();
    lines.pop_front();
    return line;
  }
  std::optional<std::string> ReadSecret(std::string_view prompt) override {
    return ReadLine(prompt);
  }
  std::optional<std::string> ReadCommand(std::string_view prompt, const LineAids& aids) override {
    for (const std::string& line : aids.Earlier()) earlier += line + '\n';
    return ReadLine(prompt);
  }
  std::size_t Width() const override { return width; }
  bool HasLostOutput() const override { return false; }
  void WriteMeanwhile(std::string_view line) override {
    written += '\n' + std::string(line) + "\n> ";
  }
  void Write(std::string_view text) override { written += text; }
  void WriteError(std::string_view text) override { written += '!' + std::string(text); }

  std::deque<std::string> lines;
  std::string written;
  std::size_t width = 0;
  // What was offered before each line.
  std::string earlier;
  // A person's time before each line; none where no person types.
  std::function<void()> thinks;
  // Called with the number of lines that are left, whoever types them.
  std::function<void(std::size_t)> before_line;
};

// The computer a session runs on.
struct Computer {
  int Run(std::deque<std::string> lines) {
    terminal.lines = std::move(lines);
    terminal.written.clear();
    Session session({terminal, files, processes, speech, loop, notifications, encodings,
                     [this](std::chrono::milliseconds time) { loop.AdvanceBy(time); },
                     [this](std::chrono::milliseconds time) { return Wait(time); }, "1.0"});
    return session.Run();
  }

  // The voice takes its time for each text.
  bool Wait(std::chrono::milliseconds time) {
    loop.AdvanceBy(time);
    if (speech.IsBusy() && ++waits % 50 == 0) speech.Finish();
    return true;
  }

  FakeAmbient ambient;
  FakeTerminal terminal;
  FakeFileSystem files;
  FakeProcessLauncher processes;
  FakeSpeech speech;
  FakeRunLoop loop{&ambient.clock};
  int waits = 0;
  NotificationCenter notifications;
  IconvEncodings encodings;
};

TEST(Sessions, RefuseLinesOfAnyLengthBeyondTheLongest) {
  Computer computer;
  const std::string longest(Terminal::kLongestLine, '#');
  EXPECT_EQ(computer.Run({longest, longest + '#', "accounts"}), 1);
  EXPECT_EQ(computer.terminal.written,
            "!error: line 2: the line is longer than 1048576 bytes\n"
            "!error: nothing further was saved\n");
  EXPECT_TRUE(computer.files.Changes().empty());
}

TEST(Sessions, OfferAPersonWhatWasTypedButNoPassword) {
  Computer computer;
  const std::string file = "/home/user/Library/Tallyfold/Console History";
  computer.terminal.thinks = [] {};
  ASSERT_EQ(computer.Run({"account add Cash", "unlock first", "lock and key",
                          "account edit password=second again=second", "unlcok third", "accounts"}),
            0);
  EXPECT_EQ(computer.files.Content(file), "account add Cash\nlock and key\naccounts\n");
  EXPECT_EQ(computer.files.Mode(file), 0600U);
  EXPECT_NE(computer.terminal.earlier.find("unlcok third\n"), std::string::npos);

  computer.terminal.earlier.clear();
  ASSERT_EQ(computer.Run({"password secret"}), 0);
  EXPECT_TRUE(computer.terminal.earlier.starts_with("account add Cash\n"));
  EXPECT_EQ(computer.files.Content(file), std::nullopt);
  computer.terminal.earlier.clear();
  ASSERT_EQ(computer.Run({"unlock secret", "accounts", "lock", ""}), 0);
  EXPECT_EQ(computer.terminal.earlier, "accounts\n");
  EXPECT_EQ(computer.files.Content(file), std::nullopt);
}

TEST(Sessions, TellOfEverySubjectInAScreen) {
  Computer computer;
  computer.terminal.thinks = [] {};
  computer.terminal.width = 80;
  ASSERT_EQ(computer.Run({"help"}), 0);
  std::string_view rest = computer.terminal.written;
  rest.remove_prefix(rest.find('\n') + 1);  // the greeting
  // The prompt stands in the last of 24 lines.
  EXPECT_LT(std::count(rest.begin(), rest.end(), '\n'), 24);
  for (; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1)) {
    EXPECT_LE(DisplayWidth(rest.substr(0, rest.find('\n'))), 80U) << rest;
  }
}

TEST(Sessions, LeaveEveryTimerThatWaitsForAnIdleUserAlone) {
  Computer computer;
  std::deque<std::string> lines = {"account add Cash"};
  for (int i = 0; i < 20; ++i) lines.push_back("debit amount=1");
  lines.push_back("- debit amount=x");
  lines.push_back("nonsense");
  // A minute of skipped delays, in which changed accounts would be saved in front of a person.
  EXPECT_EQ(computer.Run(lines), 1);
  EXPECT_EQ(computer.files.Content("/home/user/Library/Tallyfold/Accounts.plist"), std::nullopt);
}

TEST(Sessions, LetAScriptHearAReadingToItsEnd) {
  Computer computer;
  ASSERT_EQ(computer.Run({"account add Cash", "debit amount=1 date=2026-03-01",
                          "debit amount=2 date=2026-03-02", "debit amount=3 date=2026-03-03",
                          "speak all", "filter"}),
            0);
  std::string said;
  for (const std::string& text : computer.speech.Heard()) {
    said += text == "(stop)" ? "-" : text.substr(text.find("-") + 1, 1);
  }
  const std::size_t first = said.find('1');
  ASSERT_NE(first, std::string::npos) << said;
  EXPECT_TRUE(said.substr(first).starts_with("123-")) << said;
}

TEST(Sessions, SayWhatCouldNotBeSavedAtTheEndWhereAnythingIsLost) {
  const std::string why = " could not be saved: making the new file: Input/output error";
  const std::string accounts = "the accounts" + why;
  const std::string preferences = "the preferences" + why;
  const std::string both = "!error: " + accounts + "\n!error: " + preferences + '\n';
  const struct {
    bool has_files;
    std::string line;
    int status;
    std::string error;
  } cases[] = {
      {true, "account add More", 1, both},
      {false, "accounts", 0, ""},
      {false, "- save", 0, "!error: line 2: " + accounts + ", and " + preferences + '\n'},
      {false, "account add Cash", 1, both},
      {false, "preference backupInterval 30", 1, "!error: " + preferences + '\n'},
  };
  for (const auto& c : cases) {
    Computer computer;
    ASSERT_EQ(computer.Run({c.has_files ? "account add Cash" : "# nothing"}), 0);
    computer.terminal.before_line = [&](std::size_t left) {
      if (left != 1) return;
      computer.files.FailOn("/home/user/Library/Tallyfold/Accounts.plist");
      computer.files.FailOn("/home/user/Library/Preferences/Quorva/Tallyfold Preferences");
    };
    EXPECT_EQ(computer.Run({"accounts", c.line}), c.status) << c.line;
    const std::string& written = computer.terminal.written;
    EXPECT_EQ(written.substr(std::min(written.find('!'), written.size())), c.error) << c.line;
  }
}

TEST(Sessions, KeepInMemoryWhatCouldNotBeSavedAtALock) {
  Computer computer;
  EXPECT_EQ(computer.Run({"account add Cash", "password x"}), 0);
  computer.terminal.before_line = [&](std::size_t left) {
    if (left == 5) computer.files.FailOn("/home/user/Library/Tallyfold/Accounts.plist");
  };
  const std::string why = "making the new file: Input/output error";
  EXPECT_EQ(computer.Run(
                {"unlock x", "debit amount=1", "- lock", "unlock x", "show 1", "- lock", "quit"}),
            1);
  const std::string& written = computer.terminal.written;
  EXPECT_NE(written.find("!error: line 3: locked, but the accounts could not be saved: " + why +
                         "; what is not saved stays in memory"),
            std::string::npos)
      << written;
  EXPECT_NE(written.find("amount\t-1.00"), std::string::npos) << written;
  EXPECT_TRUE(
      written.ends_with("!error: what changed in the accounts since they were saved is "
                        "lost, since a locked application writes nothing: " +
                        why + '\n'))
      << written;
  computer.terminal.before_line = nullptr;
  computer.files.StopFailingOn("/home/user/Library/Tallyfold/Accounts.plist");
  EXPECT_EQ(computer.Run({"unlock x", "debit amount=1", "lock", "quit"}), 0);
  EXPECT_EQ(computer.Run({"quit"}), 0);
}

TEST(Sessions, TellWhatTheyKeptOfOthersAtOnceAndAtTheNextStart) {
  Computer computer;
  const std::string file = "/home/user/Library/Tallyfold/Accounts.plist";
  EXPECT_EQ(computer.Run({"account add Cash"}), 0);
  computer.terminal.before_line = [&](std::size_t left) {
    if (left == 2) computer.files.AddFile(file, "theirs");
  };
  EXPECT_EQ(computer.Run({"accounts", "save", "accounts"}), 0);
  computer.terminal.before_line = nullptr;
  std::string kept;
  for (const std::string& name : computer.files.List("/home/user/Library/Tallyfold")) {
    if (name.find(".kept-") != std::string::npos) kept = "/home/user/Library/Tallyfold/" + name;
  }
  EXPECT_EQ(computer.files.Content(kept), "theirs");
  const std::string told = '!' + file +
                           " had been changed by someone else before it was saved; what it held "
                           "is kept as " +
                           kept + '\n';
  EXPECT_NE(computer.terminal.written.find(told), std::string::npos) << computer.terminal.written;
  const std::string told_later = "!When " + file +
                                 " was saved the last time, someone else had changed it; what it "
                                 "held is kept as " +
                                 kept + '\n';
  for (const bool is_next : {true, false}) {
    EXPECT_EQ(computer.Run({"accounts"}), 0);
    EXPECT_EQ(computer.terminal.written.find(told_later) == 0, is_next)
        << computer.terminal.written;
  }
}

TEST(Sessions, EndACommandForWhichThereIsNoMemoryAndGoOn) {
  Computer computer;
  EXPECT_EQ(computer.Run({"account add Cash"}), 0);
  computer.terminal.before_line = [&](std::size_t left) {
    if (left == 3) computer.files.WhileWriting([] { throw std::bad_alloc(); });
    if (left == 2) {
      computer.files.WhileWriting([] { throw std::runtime_error("Too many open files"); });
    }
  };
  const std::string save = "saveas /home/user/copy";
  EXPECT_EQ(computer.Run({"select Cash", "- " + save, "- " + save, save}), 0);
  EXPECT_EQ(computer.terminal.written,
            "!error: line 2: there is not enough memory for this\n"
            "!error: line 3: Too many open files\n");
  EXPECT_TRUE(computer.files.Content("/home/user/copy"));
}

TEST(Sessions, SaveNothingWhenTheLaunchRunsOutOfMemory) {
  Computer computer;
  EXPECT_EQ(computer.Run({"account add Cash"}), 0);
  const std::string file = "/home/user/Library/Tallyfold/Accounts.plist";
  const auto before = computer.files.Content(file);
  // The launch makes the first backup.
  computer.files.WhileWriting([] { throw std::bad_alloc(); });
  EXPECT_EQ(computer.Run({"- accounts", "account add More"}), 1);
  EXPECT_EQ(computer.terminal.written, "!error: line 1: there is not enough memory for this\n");
  EXPECT_EQ(computer.files.Content(file), before);
}

TEST(Sessions, TellAPersonOnceWhatHasFallenDue) {
  Computer computer;
  computer.ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
  ASSERT_EQ(computer.Run(
                {"account add Cash", "schedule add debit start=2004-03-01 repeat=weekly amount=5"}),
            0);
  computer.terminal.thinks = [&] { computer.loop.AdvanceBy(std::chrono::seconds(20)); };
  ASSERT_EQ(computer.Run({"# the launch comes with the first command", "save", "", "", "save", "",
                          "remind commit", "", "quit"}),
            0);
  const std::string notice = "\n1 scheduled entry is due; remind lists what there is.\n> ";
  const std::string& written = computer.terminal.written;
  const std::size_t first = written.find(notice);
  EXPECT_NE(first, std::string::npos) << written;
  EXPECT_EQ(written.find(notice, first + 1), std::string::npos) << written;
  EXPECT_NE(written.find("2004-03-01"), std::string::npos) << written;
}

TEST(SplitLines, AreReadWithBarsOfTheirOwn) {
  struct Case {
    std::string_view text;
    SplitRow row;
  } const cases[] = {
      {"Food|Corner Market|12.5", {"Food", "Corner Market", 12.5}},
      {"||0", {"", "", 0.0}},
      {R"(a\|b|c\\|-1)", {"a|b", "c\\", -1.0}},
      {R"(a\b|c|1)", {"ab", "c", 1.0}},
  };
  for (const Case& c : cases) EXPECT_EQ(ReadSplitRow(c.text), c.row) << c.text;
  for (const std::string_view bad : {"", "a", "a|1", "a|b|", "a|b|1|2", R"(a|b\|1)", R"(a|b|1\)"}) {
    EXPECT_THROW((void)ReadSplitRow(bad), CommandError) << bad;
  }
}

TEST(Recurrences, AreWrittenAsTheyAreRead) {
  for (const std::string_view text :
       {"once", "daily", "weekly", "fortnightly", "monthly", "yearly", "month-end", "quarterly",
        "quarter-end", "10 days", "2 weeks", "3 months", "4 years", "1 quarters"}) {
    LDGRAccountSchedule schedule;
    const Interval interval = ReadInterval(text);
    schedule.SetRepeatIntervalType(interval.type);
    schedule.SetRepeatInterval(interval.every);
    EXPECT_EQ(IntervalText(schedule), text);
  }
  for (const std::string_view text : {"forever", "12 times", "2026-12-31"}) {
    LDGRAccountSchedule schedule;
    const Until until = ReadUntil(text);
    schedule.SetRepeatUntilType(until.type);
    schedule.SetRepeatUntil(until.value);
    EXPECT_EQ(UntilText(schedule), text);
  }
  LDGRAccountSchedule odd;
  odd.SetRepeatIntervalType(7);
  odd.SetRepeatUntilType(-1);
  EXPECT_EQ(IntervalText(odd) + UntilText(odd), "??");
}

}  // namespace
}  // namespace tallyfold::console
