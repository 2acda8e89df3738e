#include "app/shell/idle_watch.h"

#include <gtest/gtest.h>

#include <utility>

#include "app/shell/application.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"

namespace tallyfold {
namespace {

using std::chrono::seconds;
using Texts = std::vector<std::string>;

struct IdleTest : IdleWatch::Host {
  IdleTest() {
    ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
    observation = notifications.Observe(kUserInputNotification,
                                        [this](const void*) { watch.userInputNotification(); });
    watch.ReplaceScheduleReminderTimer();
  }

  std::optional<std::chrono::milliseconds> TimeSinceLastEvent() const override {
    return application.TimeSinceLastEvent();
  }
  void DayChanged() override { Note("new day"); }
  bool SheetIsOpen() const override { return sheet; }
  bool ModalWindowIsUp() const override { return modal; }
  bool AccountsWantSaving() const override { return wants_saving; }
  bool Accounts_Save() override { return Note("save"); }
  bool SchedulesCanBeEvaluated() const override { return can_evaluate; }
  void OfferDueOccurrences(bool by_timer) override { Note(by_timer ? "offer" : "offer now"); }
  void StopSpeech() override { Note("silence"); }
  bool Note(const std::string& what) {
    log.push_back(std::to_string(std::chrono::duration_cast<seconds>(loop.Now()).count()) + " " +
                  what);
    return true;
  }

  FakeAmbient ambient;
  FakeRunLoop loop{&ambient.clock};
  NotificationCenter notifications;
  LDGRApplication application{notifications, loop};
  bool sheet = false;
  bool modal = false;
  bool wants_saving = false;
  bool can_evaluate = true;
  Texts log;
  IdleWatch watch{loop, *this};
  NotificationCenter::Observation observation;
};

TEST(Events, AreInputOrMereActivity) {
  FakeAmbient ambient;
  NotificationCenter notifications;
  FakeRunLoop loop;
  LDGRApplication application(notifications, loop);
  Texts heard;
  const auto mouse = notifications.Observe(kMouseDownNotification, [&](const void* object) {
    EXPECT_EQ(object, &application);
    heard.emplace_back("mouse");
  });
  const auto input = notifications.Observe(kUserInputNotification, [&](const void* object) {
    EXPECT_EQ(object, &application);
    heard.emplace_back("input");
  });
  using Type = EventType;
  EXPECT_EQ(application.lastEventTimestamp(), 0.0);
  for (const Type type :
       {Type::LeftMouseDown, Type::LeftMouseUp, Type::RightMouseDown, Type::RightMouseUp,
        Type::OtherMouseDown, Type::OtherMouseUp, Type::LeftMouseDragged, Type::RightMouseDragged,
        Type::OtherMouseDragged, Type::KeyDown, Type::MouseMoved, Type::KeyUp, Type::ModifierChange,
        Type::ScrollWheel, Type::Other}) {
    ambient.clock.Advance(std::chrono::milliseconds(1500));
    heard.clear();
    const double before = application.lastEventTimestamp();
    application.sendEvent(type);
    EXPECT_EQ(heard, type == Type::LeftMouseDown ? (Texts{"mouse", "input"})
                     : type <= Type::KeyDown     ? Texts{"input"}
                                                 : Texts{});
    EXPECT_EQ(application.lastEventTimestamp(), before + 1.5);
  }
}

TEST(IdleWatch, TicksEveryFifteenSecondsAndAfterInputLater) {
  IdleTest test;
  test.loop.AdvanceBy(seconds(30));
  EXPECT_EQ(test.log, (Texts{"15 offer", "30 offer"}));

  test.log.clear();
  test.loop.AdvanceBy(seconds(5));
  test.application.sendEvent(EventType::KeyDown);  // at 35: the tick of 45 waits until 50
  test.loop.AdvanceBy(seconds(30));
  EXPECT_EQ(test.log, (Texts{"35 silence", "50 offer", "65 offer"}));

  test.log.clear();
  test.loop.AdvanceBy(seconds(10));
  test.application.sendEvent(EventType::MouseMoved);  // at 75: moves no timer, but counts
  test.loop.AdvanceBy(seconds(20));
  EXPECT_EQ(test.log, Texts{"95 offer"});
}

TEST(IdleWatch, WaitsForSheetsAndModalWindowsAlsoWhenAskedDirectly) {
  IdleTest test;
  test.application.sendEvent(EventType::MouseMoved);
  test.watch.Schedules_Evaluate();  // directly: no matter how recent the last event
  EXPECT_EQ(test.log, Texts{"0 offer now"});

  test.log.clear();
  test.loop.AdvanceBy(seconds(10));
  test.sheet = true;
  test.watch.Schedules_Evaluate();  // starts the interval anew
  test.sheet = false;
  test.modal = true;
  test.loop.AdvanceBy(seconds(15));  // at 25
  test.modal = false;
  test.loop.AdvanceBy(seconds(15));
  EXPECT_EQ(test.log, Texts{"40 offer"});

  test.log.clear();
  test.can_evaluate = false;
  test.loop.AdvanceBy(seconds(15));
  EXPECT_TRUE(test.log.empty());
}

TEST(IdleWatch, SavesWhatChangedAtTheFirstIdleTick) {
  IdleTest test;
  test.wants_saving = true;
  test.watch.Schedules_Evaluate();
  EXPECT_EQ(test.log, Texts{"0 offer now"});
  test.log.clear();
  test.application.sendEvent(EventType::KeyUp);
  test.loop.AdvanceBy(seconds(14));
  test.application.sendEvent(EventType::KeyUp);
  test.loop.AdvanceBy(seconds(16));
  EXPECT_EQ(test.log, (Texts{"30 save", "30 offer"}));
}

TEST(IdleWatch, GoesOnWhenTheWallClockIsSetBack) {
  IdleTest test;
  test.application.sendEvent(EventType::KeyDown);
  test.ambient.clock.SetLocal({2004, 3, 7, 8, 0, 0});
  test.wants_saving = true;
  test.loop.AdvanceBy(seconds(15));
  EXPECT_EQ(test.log, (Texts{"0 silence", "15 save", "15 offer"}));
}

TEST(IdleWatch, AnnouncesEachNewDayOnceAtATickOrAfterInput) {
  IdleTest test;
  test.sheet = true;  // a new day waits for nothing
  test.ambient.clock.SetLocal({2004, 3, 7, 23, 59, 50});
  test.loop.AdvanceBy(seconds(60));
  EXPECT_EQ(std::exchange(test.log, {}), Texts{"15 new day"});

  test.ambient.clock.SetLocal({2004, 3, 8, 23, 59, 59});
  test.loop.AdvanceBy(seconds(2));
  test.application.sendEvent(EventType::KeyDown);
  test.application.sendEvent(EventType::KeyDown);
  EXPECT_EQ(std::exchange(test.log, {}), (Texts{"62 silence", "62 silence"}));
  test.loop.FinishEvent();
  EXPECT_EQ(std::exchange(test.log, {}), Texts{"62 new day"});

  // Also a day that comes once more, because the clock was put right.
  test.ambient.clock.SetLocal({2004, 3, 8, 12, 0, 0});
  test.loop.AdvanceBy(seconds(30));
  EXPECT_EQ(test.log, Texts{"77 new day"});
}

}  // namespace
}  // namespace tallyfold
