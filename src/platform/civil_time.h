#pragma once

#include <compare>

namespace tallyfold {

// A date and time of day as read off a calendar and a clock on the wall, without a zone.
// Gregorian throughout; month 1-12, day 1-31, hour 0-23. Holders may carry fields out of range
// until calendar arithmetic normalises them.
struct CivilTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend bool operator==(const CivilTime&, const CivilTime&) = default;
  friend auto operator<=>(const CivilTime&, const CivilTime&) = default;
};

}  // namespace tallyfold
