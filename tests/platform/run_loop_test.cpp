#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <vector>

#include "fakes/fake_run_loop.h"
#include "system/poll_run_loop.h"
#include "system/termination_signals.h"

namespace tallyfold {
namespace {

using std::chrono::milliseconds;

// What both run loops must do; `pass` lets so much time go by.
template <typename Loop, typename Pass>
void ExpectOrderOfCalls(Loop& loop, Pass pass) {
  std::vector<std::string> ran;
  const auto note = [&ran](const char* name) { return [&ran, name] { ran.emplace_back(name); }; };
  loop.CallAfter(milliseconds{20}, note("late"));
  loop.CallAfter(milliseconds{10}, note("first of two"));
  loop.CallAfter(milliseconds{10}, [&] {
    ran.emplace_back("second of two");
    loop.CallAfter(milliseconds{5}, note("made on the way"));
  });
  loop.CallAfter(milliseconds{-1}, note("at once"));
  const auto cancelled = loop.CallAfter(milliseconds{10}, note("cancelled"));
  loop.CallAfter(milliseconds{1000}, note("not yet"));
  loop.Cancel(cancelled);
  loop.Cancel(cancelled);
  loop.Cancel(0);
  pass(milliseconds{100});
  EXPECT_EQ(ran, (std::vector<std::string>{"at once", "first of two", "second of two",
                                           "made on the way", "late"}));
}

TEST(FakeRunLoop, RunsCallsInOrderAndMovesTheClockAlong) {
  FakeClock clock;
  FakeRunLoop loop(&clock);
  Instant seen;
  loop.CallAfter(milliseconds{7}, [&] { seen = clock.Now(); });
  ExpectOrderOfCalls(loop, [&](milliseconds time) { loop.AdvanceBy(time); });
  EXPECT_EQ(seen, Instant{milliseconds{7}});
  EXPECT_EQ(clock.Now(), Instant{milliseconds{100}});
  EXPECT_EQ(loop.PendingCalls(), 1u);
}

TEST(PollRunLoop, RunsSkippedDelaysInOrder) {
  PollRunLoop loop;
  ExpectOrderOfCalls(loop, [&](milliseconds time) { loop.SkipDelays(time); });
}

TEST(PollRunLoop, ServesDescriptorsBesideCallsThatNeverEnd) {
  PollRunLoop loop;
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  std::string received;
  auto watch = loop.WatchReadable(ends[0], [&] {
    std::array<char, 16> bytes{};
    const ssize_t size = read(ends[0], bytes.data(), bytes.size());
    if (size > 0) {
      received.append(bytes.data(), static_cast<std::size_t>(size));
    } else {
      loop.Stop();
    }
  });
  // Called again and again without a delay, it must not keep the pipe from being read.
  int calls = 0;
  std::function<void()> again = [&] {
    if (++calls == 3) {
      EXPECT_EQ(write(ends[1], "over", 4), 4);
      close(ends[1]);
    }
    loop.CallAfter(milliseconds{0}, again);
  };
  loop.CallAfter(milliseconds{1}, again);
  loop.Run();
  EXPECT_EQ(received, "over");
  EXPECT_GE(calls, 3);
  close(ends[0]);
}

TEST(PollRunLoop, DoesNotServeAWatchThatEnded) {
  PollRunLoop loop;
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  close(ends[1]);
  PollRunLoop::Watch second;
  int served = 0;
  auto first = loop.WatchReadable(ends[0], [&] {
    ++served;
    second.End();
    loop.CallAfter(milliseconds{0}, [&] { loop.Stop(); });
  });
  second = loop.WatchReadable(ends[0], [&] { served += 100; });
  loop.Run();
  EXPECT_GE(served, 1);
  EXPECT_LT(served, 100);
  close(ends[0]);
}

TEST(TerminationSignals, ArriveThroughTheRunLoopInOrder) {
  PollRunLoop loop;
  std::vector<int> arrived;
  {
    TerminationSignals signals;
    auto watch = loop.WatchReadable(signals.descriptor(), [&] {
      while (const auto number = signals.Take()) arrived.push_back(*number);
      loop.Stop();
    });
    EXPECT_FALSE(signals.Take());
    ASSERT_EQ(raise(SIGTERM), 0);
    ASSERT_EQ(raise(SIGHUP), 0);
    loop.Run();
  }
  EXPECT_EQ(arrived, (std::vector<int>{SIGTERM, SIGHUP}));
  struct sigaction action = {};
  ASSERT_EQ(sigaction(SIGTERM, nullptr, &action), 0);
  EXPECT_TRUE(action.sa_handler == SIG_DFL);
}

TEST(DelayedCall, IsReplacedByStartingAndCancelledByDestroying) {
  FakeRunLoop loop;
  std::string ran;
  {
    DelayedCall call(loop);
    call.Start(milliseconds{10}, [&] { ran += 'a'; });
    call.Start(milliseconds{20}, [&] {
      ran += 'b';
      EXPECT_FALSE(call.IsPending());
      call.Start(milliseconds{5}, [&] { ran += 'c'; });
    });
    loop.AdvanceBy(milliseconds{19});
    EXPECT_EQ(ran, "");
    EXPECT_TRUE(call.IsPending());
    loop.AdvanceBy(milliseconds{1});
    EXPECT_EQ(ran, "b");
    loop.AdvanceBy(milliseconds{5});
    EXPECT_EQ(ran, "bc");
    call.Start(milliseconds{0}, [&] { ran += 'd'; });
  }
  loop.AdvanceBy(milliseconds{100});
  EXPECT_EQ(ran, "bc");
}

TEST(RepeatingTimer, CanBeReadMovedAndStopped) {
  FakeRunLoop loop;
  RepeatingTimer timer(loop);
  std::vector<int> fired;
  timer.SetNextFiring(milliseconds{1});
  EXPECT_FALSE(timer.NextFiring());

  timer.Start(milliseconds{15'000}, [&] { fired.push_back(static_cast<int>(loop.Now().count())); });
  EXPECT_EQ(timer.NextFiring(), milliseconds{15'000});
  loop.AdvanceBy(milliseconds{30'000});
  // A moved firing starts the interval anew.
  timer.SetNextFiring(milliseconds{36'000});
  loop.AdvanceBy(milliseconds{25'000});
  EXPECT_EQ(fired, (std::vector<int>{15'000, 30'000, 36'000, 51'000}));

  // So does one that its own task moves.
  timer.Start(milliseconds{10}, [&] {
    fired.push_back(1);
    timer.SetNextFiring(loop.Now() + milliseconds{100});
  });
  loop.AdvanceBy(milliseconds{109});
  EXPECT_EQ(fired.size(), 5u);
  timer.Start(milliseconds{10}, [&] { timer.Stop(); });
  loop.AdvanceBy(milliseconds{50});
  EXPECT_FALSE(timer.IsValid());
  EXPECT_EQ(loop.PendingCalls(), 0u);
}

}  // namespace
}  // namespace tallyfold
