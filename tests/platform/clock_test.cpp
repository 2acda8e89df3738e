#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "fakes/fake_ambient.h"
#include "fakes/fake_clock.h"
#include "system/system_clock.h"

namespace tallyfold {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year;

struct ZoneCase {
  const char* what;
  CivilTime wall;
  Instant instant;
  // What the clock shows at `instant`, where that is not `wall`.
  std::optional<CivilTime> shown = std::nullopt;
};

// In the zone of ZoneWithoutAMidnight.
const ZoneCase kZoneCases[] = {
    {"standard time", {2018, 11, 3, 12, 0, 0}, sys_days{year{2018} / 11 / 3} + hours{15}},
    {"summer time",
     {2018, 11, 4, 12, 30, 5},
     sys_days{year{2018} / 11 / 4} + hours{14} + minutes{30} + seconds{5}},
    {"last second before the gap",
     {2018, 11, 3, 23, 59, 59},
     sys_days{year{2018} / 11 / 4} + hours{3} - seconds{1}},
    {"a midnight that does not exist",
     {2018, 11, 4, 0, 0, 0},
     sys_days{year{2018} / 11 / 4} + hours{3},
     CivilTime{2018, 11, 4, 1, 0, 0}},
    {"the middle of the gap",
     {2018, 11, 4, 0, 30, 0},
     sys_days{year{2018} / 11 / 4} + hours{3},
     CivilTime{2018, 11, 4, 1, 0, 0}},
    {"the end of the gap", {2018, 11, 4, 1, 0, 0}, sys_days{year{2018} / 11 / 4} + hours{3}},
    {"the earlier of two",
     {2019, 2, 16, 23, 30, 0},
     sys_days{year{2019} / 2 / 17} + hours{1} + minutes{30}},
    {"after the repeated hour", {2019, 2, 17, 0, 0, 0}, sys_days{year{2019} / 2 / 17} + hours{3}},
    {"fields out of range roll",
     {2018, 14, 31, 25, -1, 60},
     sys_days{year{2019} / 3 / 4} + hours{4},
     CivilTime{2019, 3, 4, 1, 0, 0}},
};

void ExpectZoneCases(const Clock& clock) {
  for (const ZoneCase& c : kZoneCases) {
    EXPECT_EQ(clock.InstantOf(c.wall), c.instant) << c.what;
    EXPECT_EQ(clock.LocalTime(c.instant), c.shown.value_or(c.wall)) << c.what;
  }
}

TEST(FakeClock, FollowsItsZone) {
  ExpectZoneCases(FakeClock(ZoneWithoutAMidnight()));
}

TEST(SystemClock, FollowsTheZoneOfTheProcess) {
  // The rules of the fake zone: southern summer from November to February, changed at midnight.
  // NOLINTNEXTLINE(concurrency-mt-unsafe): tests run on one thread
  ASSERT_EQ(setenv("TZ", "XST3XDT,M11.1.0/0,M2.3.0/0", 1), 0);
  const SystemClock clock;
  ExpectZoneCases(clock);
  EXPECT_EQ(clock.LocalTime(clock.InstantOf({1901, 1, 1, 0, 0, 0})),
            (CivilTime{1901, 1, 1, 0, 0, 0}));
  unsetenv("TZ");
  tzset();
}

TEST(Clocks, SurviveTimesFarAway) {
  const SystemClock system;
  const FakeClock fake;
  for (const Clock* clock :
       {static_cast<const Clock*>(&system), static_cast<const Clock*>(&fake)}) {
    EXPECT_EQ(clock->LocalTime(Instant::max()).year, 32767);
    EXPECT_EQ(clock->LocalTime(Instant::min()).year, -32767);
    EXPECT_LT(clock->InstantOf({-2147483647 - 1, -2147483647 - 1, 1, 0, 0, 0}), Instant{});
    EXPECT_GT(clock->InstantOf({2147483647, 2147483647, 1, 0, 0, 0}), Instant{});
  }
}

TEST(Ambient, KeepsTheFormerServicesForThoseNotReplaced) {
  EXPECT_EQ(LocalizedText("Locked"), "Locked");
  EXPECT_EQ(CurrentLocale().ThousandsSeparator(), ",");
  EXPECT_EQ(CurrentClock().LocalNow(), (CivilTime{1970, 1, 1, 0, 0, 0}));
  {
    FakeAmbient outer;
    outer.localizer.Translate("Locked", "Gesperrt");
    {
      FakeLog inner_log;
      const ScopedAmbient inner({&inner_log, nullptr, nullptr, nullptr});
      Log("inside");
      EXPECT_EQ(LocalizedText("Locked"), "Gesperrt");
      EXPECT_EQ(inner_log.Lines(), std::vector<std::string>{"inside"});
    }
    Log("outside");
    EXPECT_EQ(outer.log.Take(), std::vector<std::string>{"outside"});
  }
  Log("nowhere");
  EXPECT_EQ(LocalizedText("Locked"), "Locked");
}

}  // namespace
}  // namespace tallyfold
