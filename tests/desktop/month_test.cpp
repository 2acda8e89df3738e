#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "console/session.h"
#include "desktop/test_window.h"
#include "platform/terminal.h"

namespace tallyfold::desktop {
namespace {

constexpr const char* kQifFile = "/home/user/household.qif";

std::string HouseholdQif() {
  std::ifstream file(TALLYFOLD_EXAMPLES "/household.qif", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A hand at the keyboard: goes by Tab to what has a name, and types.
struct Hand {
  void To(const char* name) {
    for (int i = 0; i < 60 && TestWindow::FocusName() != QLatin1String(name); ++i) {
      TestWindow::Key(Qt::Key_Tab);
    }
    if (TestWindow::FocusName() != QLatin1String(name)) {
      throw std::logic_error(std::string("Tab does not go to ") + name + " but stays at " +
                             TestWindow::FocusName().toStdString());
    }
  }
  void Type(const char* name, const char* text) {
    To(name);
    TestWindow::Type(text);
  }
  void Press(const char* name) {
    To(name);
    TestWindow::Key(Qt::Key_Space);
  }
  void Choose(const char* name, const char* title) {
    To(name);
    auto* pop_up = TestWindow::Find<QComboBox>(name);
    TestWindow::Key(Qt::Key_Home);
    for (int i = 0; i < pop_up->count() && pop_up->currentText() != QLatin1String(title); ++i) {
      TestWindow::Key(Qt::Key_Down);
    }
    if (pop_up->currentText() != QLatin1String(title)) {
      throw std::logic_error(std::string(name) + " does not offer " + title);
    }
  }
  void Tick(const char* name, bool is_ticked) {
    To(name);
    if (TestWindow::Find<QCheckBox>(name)->isChecked() != is_ticked) {
      TestWindow::Key(Qt::Key_Space);
    }
  }
  // A row of a table, counted from its end.
  void RowFromEnd(const char* table, int up) {
    To(table);
    TestWindow::Key(Qt::Key_End);
    for (int i = 0; i < up; ++i) TestWindow::Key(Qt::Key_Up);
  }
  void Order(const char* command) {
    auto* action = test.program->window().findChild<QAction*>(QLatin1String(command));
    if (action == nullptr || !action->isEnabled()) throw std::logic_error(command);
    action->trigger();
    TestWindow::Settle();
  }

  TestWindow& test;
};

// What is typed at the console, and the same done in the window.
struct Step {
  const char* typed;
  void (*done)(Hand& hand);
};

const Step kMonth[] = {
    {R"(debit date=2026-03-02 amount=31.40 to="Corner Market" type=Groceries description="Week 9")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "03/02/26");
       hand.Tick("debitSheet_CheckNumber_Button", false);
       hand.Choose("debitSheet_Type_PopUp", "Groceries");
       hand.Type("debitSheet_Amount_Field", "31.40");
       hand.Type("debitSheet_Description_Field", "Week 9");
       hand.Type("debitSheet_ToFrom_Field", "Corner Market");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(deposit date=2026-03-03 amount=25.00 from=Grandma type=Gift notes="for the school trip")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_Plus, Qt::ControlModifier);
       hand.Type("depositSheet_Date_Field", "03/03/26");
       hand.Choose("depositSheet_Type_PopUp", "Gift");
       hand.Type("depositSheet_Amount_Field", "25");
       hand.Type("depositSheet_ToFrom_Field", "Grandma");
       hand.Type("depositSheet_Notes_Field", "for the school trip");
       hand.Press("depositSheet_OK_Button");
     }},
    // A check with the next number, and from its sheet on to a split.
    {R"(debit date=2026-03-04 amount=12.00 to="Flea market" type=Check check=next
debit date=2026-03-05 type="Debit Card" description=Saturday amount=42.60 split="Meal|Inn|18.60" split="Two books|Harbour Books|rest")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "3/4");
       hand.Tick("debitSheet_CheckNumber_Button", true);
       hand.Choose("debitSheet_Type_PopUp", "Check");
       hand.Type("debitSheet_Amount_Field", "10+2");
       hand.Type("debitSheet_ToFrom_Field", "Flea market");
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "03/05/26");
       hand.Tick("debitSheet_CheckNumber_Button", false);
       hand.Choose("debitSheet_Type_PopUp", "Debit Card");
       hand.Type("debitSheet_Amount_Field", "42.60");
       hand.Press("debitSheet_Split_Button");
       for (const char* text : {"Meal", "Inn", "18.60", "Two books", "Harbour Books"}) {
         TestWindow::Type(text);
         TestWindow::Key(Qt::Key_Tab);
       }
       TestWindow::Key(Qt::Key_Return);
       hand.Press("debitSheet_Split_Rest_Button");
       hand.Type("debitSheet_Description_Field", "Saturday");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(transfer date=2026-03-06 amount=40.00 to=Cash description="Pocket money")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_T, Qt::ControlModifier);
       hand.Type("transferSheet_Date_Field", "03/06/26");
       hand.Choose("transferSheet_Direction_PopUp", "Transfer To");
       hand.Choose("transferSheet_Account_PopUp", "Cash");
       hand.Type("transferSheet_Amount_Field", "40");
       hand.Type("transferSheet_Description_Field", "Pocket money");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(edit 26 amount=15.00 description="A lamp")",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 2);
       TestWindow::Key(Qt::Key_Return);
       hand.Type("debitSheet_Amount_Field", "15");
       hand.Type("debitSheet_Description_Field", "A lamp");
       TestWindow::Key(Qt::Key_Return);
     }},
    {"answer OK\nremove 26",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 2);
       TestWindow::Key(Qt::Key_Delete);
       hand.Press("entryRemoveConfirm_OK_Button");
     }},
    {"clear 23",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 4);
       TestWindow::Key(Qt::Key_Space);
     }},
    // What the bank has is not changed unasked.
    {"answer Change\nedit 23 amount=66.30",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_Return);
       hand.Type("debitSheet_Amount_Field", "66.30");
       TestWindow::Key(Qt::Key_Return);
       EXPECT_EQ(hand.test.program->app().sheets().Current(), Sheet::Debit);
       hand.test.alerts.Answer("Change");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(schedule add debit start=2026-03-07 repeat=weekly until="20 times" amount=25.00 to=Lena description="Pocket money" type=none check=no)",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
       hand.Type("scheduleSheet_Start_Field", "03/07/26");
       hand.Choose("scheduleSheet_Type_PopUp", "None");
       hand.Tick("scheduleSheet_Check_Button", false);
       hand.Type("scheduleSheet_Amount_Field", "25");
       hand.Type("scheduleSheet_Description_Field", "Pocket money");
       hand.Type("scheduleSheet_ToFrom_Field", "Lena");
       hand.Choose("scheduleSheet_Interval_PopUp", "Every Week");
       hand.Choose("scheduleSheet_UntilType_PopUp", "A Number of Times");
       hand.Type("scheduleSheet_Until_Field", "20");
       TestWindow::Key(Qt::Key_Return);
     }},
    {"remind ahead 14 days\nremind mark 1\nremind mark 2\nremind edit 2 amount=2450.50 "
     "date=2026-03-03\nremind commit",
     [](Hand& hand) {
       hand.Order("ScheduleReminderSheet_Open");
       hand.Type("scheduleReminderSheet_LookAhead", "14");
       hand.To("scheduleReminderSheet_Table");
       TestWindow::Key(Qt::Key_Home);
       TestWindow::Key(Qt::Key_Space);
       TestWindow::Key(Qt::Key_Down);
       TestWindow::Key(Qt::Key_Space);
       TestWindow::Type("2450.50");
       // To the day of the same row.
       TestWindow::Key(Qt::Key_Backtab, Qt::ShiftModifier);
       TestWindow::Type("03/03/26");
       TestWindow::Key(Qt::Key_Return);
       EXPECT_EQ(hand.test.program->app().reminder().State().marked, 2U);
       TestWindow::Key(Qt::Key_Return);
     }},
    {"answer OK\nschedule remove 4",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_3, Qt::AltModifier);
       hand.Order("ScheduleRemoveConfirm_Begin");
       hand.Press("scheduleRemoveConfirm_OK_Button");
       TestWindow::Key(Qt::Key_1, Qt::AltModifier);
     }},
    {"import /home/user/household.qif\nunmark 2\ncommit",
     [](Hand& hand) {
       hand.test.panels.Answer(kQifFile);
       TestWindow::Key(Qt::Key_I, Qt::ControlModifier);
       TestWindow::Key(Qt::Key_Return);
       hand.To("import_Table");
       TestWindow::Key(Qt::Key_Home);
       TestWindow::Key(Qt::Key_Down);
       TestWindow::Key(Qt::Key_Space);
       hand.test.alerts.Answer("OK");
       hand.Press("import_OK_Button");
     }},
};

// Reads the month from its steps and keeps what the accounts file held after each.
class Script final : public Terminal {
 public:
  explicit Script(const FakeFileSystem& files) : files_(files) {}

  [[nodiscard]] bool ReadsFromPerson() const override { return false; }
  [[nodiscard]] bool WritesToPerson() const override { return false; }
  [[nodiscard]] std::size_t Width() const override { return 0; }
  std::optional<std::string> ReadLine(std::string_view) override {
    while (lines_.empty()) {
      if (step_ > 0) saved.push_back(files_.Content(TestWindow::kAccountsFile).value_or(""));
      if (step_ == std::size(kMonth)) return std::nullopt;
      std::istringstream typed(std::string(kMonth[step_++].typed) + "\nsave");
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

  std::vector<std::string> saved;
  std::string errors;

 private:
  const FakeFileSystem& files_;
  std::vector<std::string> lines_;
  std::size_t step_ = 0;
};

std::vector<std::string> SavedByTheConsole() {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2026, 2, 22, 12, 0, 0});
  FakeFileSystem files;
  files.AddFile(TestWindow::kAccountsFile, ExampleAccounts());
  files.AddFile(kQifFile, HouseholdQif());
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

TEST(Month, EndsWithTheSameFileByTheKeysOfTheWindowAsAtTheConsole) {
  const std::vector<std::string> saved = SavedByTheConsole();
  ASSERT_EQ(saved.size(), std::size(kMonth));
  TestWindow test(ExampleAccounts());
  test.files.AddFile(kQifFile, HouseholdQif());
  ASSERT_TRUE(test.Launch());
  test.Key(Qt::Key_Down);
  Hand hand{test};
  for (std::size_t i = 0; i < std::size(kMonth); ++i) {
    try {
      kMonth[i].done(hand);
    } catch (const std::exception& error) {
      FAIL() << error.what() << "; " << kMonth[i].typed;
    }
    ASSERT_EQ(test.program->app().sheets().Current(), Sheet::None) << kMonth[i].typed;
    test.Key(Qt::Key_S, Qt::ControlModifier);
    const std::string content = test.files.Content(TestWindow::kAccountsFile).value_or("");
    ASSERT_EQ(FirstDifference(content, saved[i]), "") << kMonth[i].typed;
  }
}

}  // namespace
}  // namespace tallyfold::desktop
