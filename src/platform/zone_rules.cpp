#include "platform/zone_rules.h"

#include <algorithm>
#include <cstdint>

namespace tallyfold {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::sys_seconds;

constexpr sys_days kFirstDay = std::chrono::year{-32767} / 1 / 1;
constexpr sys_days kLastDay = std::chrono::year{32767} / 12 / 31;

// The moment at which a clock that shows universal time shows `time`.
sys_seconds AsUniversalTime(const CivilTime& time) {
  const std::int64_t months = std::int64_t{time.year} * 12 + time.month - 1;
  const std::int64_t year = months >= 0 ? months / 12 : (months - 11) / 12;
  if (year < -32767) return kFirstDay;
  if (year > 32767) return kLastDay + days{1} - seconds{1};
  const std::chrono::month month{static_cast<unsigned>(months - year * 12) + 1};
  const sys_days first = std::chrono::year{static_cast<int>(year)} / month / 1;
  return first + days{std::int64_t{time.day} - 1} + std::chrono::hours{time.hour} +
         std::chrono::minutes{time.minute} + seconds{time.second};
}

}  // namespace

CivilTime WallTimeOf(Instant instant, const ZoneOffset& offset) {
  const auto moment = std::chrono::floor<seconds>(instant);
  const sys_seconds shown =
      std::clamp<sys_seconds>(moment + offset(moment), kFirstDay, kLastDay + days{1} - seconds{1});
  const sys_days day = std::chrono::floor<days>(shown);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{shown - day};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count())};
}

Instant InstantOfWallTime(const CivilTime& time, const ZoneOffset& offset) {
  const sys_seconds shown = AsUniversalTime(time);
  const seconds before = offset(shown - days{1});
  const seconds after = offset(shown + days{1});

  // Read with the offset before a change, the moment is the earlier one of an hour that occurs
  // twice; so that reading has the first say.
  if (offset(shown - before) == before) return shown - before;
  if (offset(shown - after) == after) return shown - after;

  // No clock showed that time: it was skipped. The change lies between the two readings.
  sys_seconds old_rule = shown - after;
  sys_seconds new_rule = shown - before;
  while (new_rule - old_rule > seconds{1}) {
    const sys_seconds middle = old_rule + (new_rule - old_rule) / 2;
    (offset(middle) == before ? old_rule : new_rule) = middle;
  }
  return new_rule;
}

seconds NoOffset(sys_seconds) {
  return seconds{0};
}

}  // namespace tallyfold
