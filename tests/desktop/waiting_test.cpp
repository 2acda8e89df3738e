#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QTimer>

#include "desktop/main_window.h"
#include "desktop/progress_bar.h"
#include "desktop/test_window.h"
#include "platform/progress.h"

namespace tallyfold::desktop {
namespace {

using std::chrono::milliseconds;

// Notes which widgets of the window are painted.
class PaintWatch final : public QObject {
 public:
  PaintWatch() { QCoreApplication::instance()->installEventFilter(this); }

  QStringList painted;

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted.append(receiver->objectName());
    return false;
  }
};

QString SentenceOf(const TestWindow& test) {
  return test.program->window().findChild<QLabel*>(QStringLiteral("notice_Label"))->text();
}

TEST(Waiting, IsShownAfterHalfASecondAndPaintsNothingElse) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  ProgressBar& bar = *test.program->window().pieces().progress;
  bool has_looked_at_events = false;
  QTimer::singleShot(0, &bar, [&] { has_looked_at_events = true; });
  {
    LongOperation operation(LongWork::Saving, 100);
    struct Case {
      int milliseconds_later;
      std::uint64_t done;
      double part;  // 0 for a bar that is not shown
      const char* painted;
    } const cases[] = {
        {0, 10, 0.0, ""},     {499, 20, 0.0, ""},   {1, 30, 0.3, "bar and sentence"},
        {10, 40, 0.3, ""},    {40, 50, 0.5, "bar"}, {0, 60, 0.5, ""},
        {0, 100, 1.0, "bar"},
    };
    for (const Case& each : cases) {
      PaintWatch watch;
      test.ambient.clock.Advance(milliseconds(each.milliseconds_later));
      LongOperation::Reached(LongWork::Saving, each.done);
      EXPECT_EQ(bar.isVisible(), each.part > 0.0) << each.done;
      EXPECT_EQ(bar.Part(), each.part) << each.done;
      EXPECT_EQ(watch.painted.count(bar.objectName()), each.painted[0] == 'b') << each.done;
      EXPECT_EQ(watch.painted.count(QStringLiteral("notice_Label")),
                std::string(each.painted) == "bar and sentence")
          << each.done;
      EXPECT_EQ(watch.painted.count(QStringLiteral("entry_Table")), 0) << each.done;
      EXPECT_EQ(watch.painted.count(QStringLiteral("accounts_Table")), 0) << each.done;
    }
    EXPECT_EQ(SentenceOf(test).toStdString(), "Saving the accounts...");
  }
  // What follows at once is the same wait.
  {
    const LongOperation next(LongWork::Loading, 100);
    EXPECT_EQ(bar.Part(), 0.0);
    EXPECT_EQ(SentenceOf(test).toStdString(), "Loading the accounts...");
  }
  EXPECT_FALSE(has_looked_at_events);
  TestWindow::Settle();
  EXPECT_FALSE(bar.isVisible());
  EXPECT_EQ(SentenceOf(test).toStdString(), "");
  // A new wait.
  const LongOperation later(LongWork::Saving, 100);
  LongOperation::Reached(LongWork::Saving, 99);
  EXPECT_FALSE(bar.isVisible());
}

TEST(Waiting, OfTheLaunchIsShownInAWindowThatIsPainted) {
  TestWindow test(ExampleAccounts());
  // Half a second for each hundredth of the file.
  class SlowClock final : public Clock {
   public:
    explicit SlowClock(FakeClock& clock) : clock_(clock) {}
    [[nodiscard]] Instant Now() const override {
      clock_.Advance(milliseconds(500));
      return clock_.Now();
    }
    [[nodiscard]] CivilTime LocalTime(Instant instant) const override {
      return clock_.LocalTime(instant);
    }
    [[nodiscard]] Instant InstantOf(const CivilTime& time) const override {
      return clock_.InstantOf(time);
    }

   private:
    FakeClock& clock_;
  } slow(test.ambient.clock);
  PaintWatch watch;
  {
    const ScopedAmbient ambient({.clock = &slow});
    EXPECT_TRUE(test.program->Launch());
  }
  EXPECT_GT(watch.painted.count(QStringLiteral("progress_Bar")), 5);
  const auto tabs = watch.painted.indexOf(QStringLiteral("main_TabView"));
  EXPECT_TRUE(tabs >= 0 && tabs < watch.painted.indexOf(QStringLiteral("progress_Bar")));
  // Nothing is said of accounts that are not there yet.
  for (const char* page : {"empty_Page", "noAccount_Page", "locked_Page"}) {
    EXPECT_EQ(watch.painted.count(QLatin1String(page)), 0) << page;
  }
  TestWindow::Settle();
  EXPECT_FALSE(test.program->window().pieces().progress->isVisible());
}

}  // namespace
}  // namespace tallyfold::desktop
