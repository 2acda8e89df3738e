#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "app/controller.h"
#include "app/face/sheet_slot.h"
#include "console/session.h"
#include "desktop/month_steps.h"
#include "desktop/test_window.h"
#include "fakes/file_text.h"
#include "platform/terminal.h"

namespace tallyfold::desktop {
namespace {

std::vector<Step> Month() {
  std::vector<Step> month(EntrySteps().begin(), EntrySteps().end());
  month.insert(month.end(), SettingSteps().begin(), SettingSteps().end());
  return month;
}

// Without what was selected and how tables were arranged, which is looked at and not chosen.
std::string SettingsIn(const std::string& preferences) {
  const auto arranged = preferences.find("<key>accountPreferences<");
  const auto chosen = preferences.find("<key>selectedAccountNumber<");
  if (arranged > chosen || chosen == std::string::npos) return preferences;
  return preferences.substr(0, arranged) + preferences.substr(chosen);
}

// What was written: the accounts, the settings, and what was exported.
std::vector<std::string> Written(const FakeFileSystem& files) {
  const auto content = [&files](const char* path) { return files.Content(path).value_or(""); };
  return {content(TestWindow::kAccountsFile),
          SettingsIn(content("/home/user/Library/Preferences/Quorva/Tallyfold Preferences")),
          content(kMonthExport)};
}

// Reads the month from its steps and keeps what had been written after each.
class Script final : public Terminal {
 public:
  explicit Script(const FakeFileSystem& files) : files_(files) {}

  [[nodiscard]] bool ReadsFromPerson() const override { return false; }
  [[nodiscard]] bool WritesToPerson() const override { return false; }
  [[nodiscard]] std::size_t Width() const override { return 0; }
  std::optional<std::string> ReadLine(std::string_view) override {
    while (lines_.empty()) {
      if (step_ > 0) saved.push_back(Written(files_));
      if (step_ == month_.size()) return std::nullopt;
      std::istringstream typed(std::string(month_[step_++].typed) + "\nsave");
      for (std::string line; std::getline(typed, line);) lines_.push_back(line);
    }
    const std::string line = lines_.front();
    lines_.erase(lines_.begin());
    return line;
  }
  std::optional<std::string> ReadCommand(std::string_view prompt, const LineAids&) override {
    return ReadLine(prompt);
  }
  std::optional<std::string> ReadSecret(std::string_view prompt) override {
    return ReadLine(prompt);
  }
  void Write(std::string_view) override {}
  void WriteError(std::string_view text) override { errors += text; }
  void WriteMeanwhile(std::string_view) override {}
  [[nodiscard]] bool HasLostOutput() const override { return false; }

  std::vector<std::vector<std::string>> saved;
  std::string errors;

 private:
  const FakeFileSystem& files_;
  const std::vector<Step> month_ = Month();
  std::vector<std::string> lines_;
  std::size_t step_ = 0;
};

std::vector<std::vector<std::string>> SavedByTheConsole() {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2026, 2, 22, 12, 0, 0});
  FakeFileSystem files;
  files.AddFile(TestWindow::kAccountsFile, ExampleAccounts());
  files.AddFile(kMonthImport, FileText(TALLYFOLD_EXAMPLES "/household.qif"));
  FakeProcessLauncher processes;
  FakeSpeech speech;
  FakeRunLoop loop(&ambient.clock);
  NotificationCenter notifications;
  IconvEncodings encodings;
  Script script(files);
  console::Session session({script, files, processes, speech, loop, notifications, encodings,
                            [&loop](std::chrono::milliseconds time) { loop.AdvanceBy(time); },
                            [](std::chrono::milliseconds) { return true; },
                            FakeHost().BundleVersion()});
  EXPECT_EQ(session.Run(), 0) << script.errors;
  return script.saved;
}

// The first line that differs, and where; "" for equal texts.
std::string FirstDifference(const std::string& a, const std::string& b) {
  const auto [at, in_b] = std::ranges::mismatch(a, b);
  if (at == a.end() && in_b == b.end()) return "";
  const auto line_at = [](const std::string& text, std::ptrdiff_t place) {
    const auto middle = text.begin() + place;
    const auto start = std::find(std::reverse_iterator(middle), text.rend(), '\n').base();
    return std::string(start, std::find(middle, text.end(), '\n'));
  };
  const std::ptrdiff_t place = at - a.begin();
  return "line " + std::to_string(std::count(a.begin(), at, '\n') + 1) + ": " + line_at(a, place) +
         " / " + line_at(b, place);
}

TEST(Month, EndsWithTheSameFilesByTheKeysOfTheWindowAsAtTheConsole) {
  const std::vector<Step> month = Month();
  const std::vector<std::vector<std::string>> saved = SavedByTheConsole();
  ASSERT_EQ(saved.size(), month.size());
  for (const std::string& content : saved.back()) EXPECT_NE(content, "");
  TestWindow test(ExampleAccounts());
  test.files.AddFile(kMonthImport, FileText(TALLYFOLD_EXAMPLES "/household.qif"));
  ASSERT_TRUE(test.Launch());
  test.Key(Qt::Key_Down);
  Hand hand(test);
  for (std::size_t i = 0; i < month.size(); ++i) {
    try {
      month[i].done(hand);
    } catch (const std::exception& error) {
      FAIL() << error.what() << "; " << month[i].typed;
    }
    ASSERT_EQ(test.program->app().sheets().Current(), Sheet::None) << month[i].typed;
    test.Key(Qt::Key_S, Qt::ControlModifier);
    const std::vector<std::string> written = Written(test.files);
    for (std::size_t file = 0; file < written.size(); ++file) {
      ASSERT_EQ(FirstDifference(written[file], saved[i][file]), "") << month[i].typed;
    }
  }
}

}  // namespace
}  // namespace tallyfold::desktop
