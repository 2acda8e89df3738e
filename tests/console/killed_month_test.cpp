#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include "app/controller.h"
#include "app/desk.h"
#include "console/session.h"
#include "console/values.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "fakes/file_text.h"
#include "fakes/temporary_folder.h"
#include "platform/line_aids.h"
#include "platform/notification_center.h"
#include "plist/reader.h"
#include "rounds.h"
#include "storage/stepping_calls.h"
#include "system/iconv_encodings.h"
#include "system/posix_file_system.h"

namespace tallyfold::console {
namespace {

// What is typed on one day of the month.
struct Day {
  DateNumber date = 0;
  std::vector<std::string> lines;
};

// Of the transcript, without the lines that are meant to fail.
std::vector<Day> Month() {
  std::vector<Day> days;
  std::ifstream file(TALLYFOLD_TEST_DATA "/../transcripts/month.txt");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("@ today ")) {
      days.push_back({ReadDate(line.substr(8), "today"), {}});
    } else if (line.starts_with("> ") && !line.starts_with("> - ")) {
      days.back().lines.push_back(line.substr(2));
    }
  }
  return days;
}

// An entry a line.
std::string Entries(const AccountList& accounts) {
  std::string lines;
  for (const auto& account : accounts) {
    for (const auto& entry : account->GetEntries()) {
      lines += std::to_string(entry->GetNumber()) + ' ' + std::to_string(entry->GetDate()) + ' ' +
               WriteAmount(entry->GetAmount()) + ' ' + entry->GetDescription() +
               (entry->GetCleared() ? " cleared\n" : "\n");
    }
  }
  return lines;
}

// A process that plays the month and is killed at a moment: between two steps of writing a file, at
// a line that is read, at a line that is shown. What it knows survives it in a journal: "P" and the
// entries before the accounts file is replaced, "S" after that, "E" and the number of moments at
// the end.
class MonthRun final : private Terminal {
 public:
  MonthRun(int killed_at, const std::string& journal)
      : killed_at_(killed_at),
        journal_(open(journal.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600)) {}

  void Play(const std::vector<Day>& month) {
    for (const Day& day : month) {
      const CivilTime date = DateNumberToNSCalendarDate(day.date);
      ambient_.clock.SetLocal({date.year, date.month, date.day, 12, 0, 0});
      lines_ = {day.lines.rbegin(), day.lines.rend()};
      FakeRunLoop loop(&ambient_.clock);
      loop_ = &loop;
      FakeProcessLauncher processes;
      FakeSpeech speech;
      NotificationCenter notifications;
      IconvEncodings encodings;
      PosixFileSystem files(std::make_unique<Calls>(*this));
      const auto advance = [&loop](std::chrono::milliseconds time) { loop.AdvanceBy(time); };
      Session session({*this, files, processes, speech, loop, notifications, encodings, advance,
                       [&](std::chrono::milliseconds time) { return advance(time), true; }, "1.0"});
      if (session.Run() != 0) Note("a command failed");
    }
    Note("E" + std::to_string(moment_));
  }

 private:
  struct Calls final : SteppingCalls {
    explicit Calls(MonthRun& month) : SteppingCalls([&month] { month.Step(); }), run(month) {}
    // What a killed process has written is with the system; the disk can wait.
    int Sync(int /*file_or_folder*/) override { return run.Step(), 0; }
    int Rename(int folder, const std::string& from, const std::string& to,
               unsigned flags) override {
      const bool is_save = to == "Accounts.plist";
      if (is_save) run.Note("P" + Entries(LDGRController::sharedController()->desk().accounts()));
      const int result = SteppingCalls::Rename(folder, from, to, flags);
      run.Step();
      if (is_save && result == 0) run.Note("S");
      return result;
    }
    MonthRun& run;
  };

  void Step() {
    if (++moment_ == killed_at_) kill(getpid(), SIGKILL);
  }
  void Note(std::string text) {
    text += '\0';
    if (write(journal_, text.data(), text.size()) < 0) std::abort();
  }

  bool ReadsFromPerson() const override { return true; }
  bool WritesToPerson() const override { return true; }
  std::optional<std::string> ReadLine(std::string_view /*prompt*/) override {
    Step();
    // Every other line comes after a while, in which the program saves by itself.
    loop_->AdvanceBy(std::chrono::seconds(lines_.size() % 2 == 0 ? 40 : 1));
    if (lines_.empty()) return std::nullopt;
    std::string line = std::move(lines_.back());
    lines_.pop_back();
    return line;
  }
  std::optional<std::string> ReadCommand(std::string_view prompt,
                                         const LineAids& /*aids*/) override {
    return ReadLine(prompt);
  }
  std::size_t Width() const override { return 0; }
  void WriteMeanwhile(std::string_view /*line*/) override { Step(); }
  bool HasLostOutput() const override { return false; }
  std::optional<std::string> ReadSecret(std::string_view /*prompt*/) override { return {}; }
  void Write(std::string_view /*text*/) override { Step(); }
  void WriteError(std::string_view /*text*/) override { Step(); }

  int killed_at_;
  int journal_;
  int moment_ = 0;
  FakeAmbient ambient_;
  FakeRunLoop* loop_ = nullptr;
  std::vector<std::string> lines_;
};

struct Journal {
  std::string saved;  // the entries of the last save that came to its end
  std::string begun;  // of the one that did not
  int saves = 0;
  int moments = 0;
};

Journal ReadJournal(const std::string& path) {
  Journal journal;
  const std::string text = FileText(path);
  for (std::size_t at = 0; at < text.size(); at = text.find('\0', at) + 1) {
    const std::string note = text.c_str() + at;
    if (note[0] == 'P') {
      journal.begun = note.substr(1);
    } else if (note[0] == 'S') {
      journal.saved = journal.begun;
      ++journal.saves;
    } else {
      EXPECT_EQ(note[0], 'E') << note;
      journal.moments = std::stoi(note.substr(1));
    }
  }
  return journal;
}

Journal PlayInOwnProcess(const std::vector<Day>& month, int killed_at, const std::string& home) {
  setenv("HOME", home.c_str(), 1);
  const std::string journal = home + "/journal";
  const pid_t child = fork();
  if (child == 0) {
    MonthRun(killed_at, journal).Play(month);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WIFSIGNALED(status), killed_at > 0);
  return ReadJournal(journal);
}

TEST(Month, KilledAtAnyMomentKeepsEveryEntryOfTheLastSave) {
  const std::string former_home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
  const std::vector<Day> month = Month();
  ASSERT_GE(month.size(), 3U);
  const TemporaryFolder whole;
  const Journal undisturbed = PlayInOwnProcess(month, 0, whole.path());
  EXPECT_GE(undisturbed.saves, 10);  // most of them by itself
  ASSERT_GE(undisturbed.moments, 250);

  std::mt19937 random(20260302);
  std::uniform_int_distribution<int> moments(1, undisturbed.moments);
  int unsaved = 0;
  for (int i = 0; i < Rounds(200); ++i) {
    const int killed_at = moments(random);
    SCOPED_TRACE("killed at " + std::to_string(killed_at));
    const TemporaryFolder home;
    const Journal journal = PlayInOwnProcess(month, killed_at, home.path());
    const std::string file = FileText(home / "Library/Tallyfold/Accounts.plist");
    if (file.empty()) {
      EXPECT_EQ(journal.saves, 0);
      ++unsaved;
      continue;
    }
    const auto read = plist::Read(file);
    AccountList accounts;
    for (const plist::Value& account : read.value.DictionaryValue().Get("accounts").ArrayValue()) {
      accounts.push_back(std::make_shared<LDGRAccount>(account.DictionaryValue()));
    }
    ASSERT_EQ(accounts.size(), 1U);
    const std::string entries = Entries(accounts);
    EXPECT_TRUE(entries == journal.saved || entries == journal.begun) << "found\n"
                                                                      << entries << "saved\n"
                                                                      << journal.saved;
  }
  EXPECT_LT(unsaved, Rounds(200) / 2);
  setenv("HOME", former_home.c_str(), 1);
}

}  // namespace
}  // namespace tallyfold::console
