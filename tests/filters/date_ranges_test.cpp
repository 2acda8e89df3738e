#include "filters/date_ranges.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "filters/rules_of.h"
#include "model/date_number.h"

namespace tallyfold {
namespace {

TEST(DateRanges, CoverTheDaysOfTheirMnemonic) {
  struct Case {
    CivilTime now;
    // By mnemonic.
    std::array<DateNumber, 14> first;
    std::array<DateNumber, 14> last;
  };
  const std::array cases = {
      // A Wednesday in a leap year.
      Case{{2004, 3, 3, 17, 30, 5},
           {20040303, 20040302, 20040222, 20040201, 20031001, 20030101, 20040229, 20040301,
            20040101, 20040101, 20040229, 20040301, 20040101, 20040101},
           {20040303, 20040302, 20040228, 20040229, 20031231, 20031231, 20040306, 20040331,
            20040331, 20041231, 20040303, 20040303, 20040303, 20040303}},
      // New Year's Day, a Thursday.
      Case{{2004, 1, 1, 0, 0, 0},
           {20040101, 20031231, 20031221, 20031201, 20031001, 20030101, 20031228, 20040101,
            20040101, 20040101, 20031228, 20040101, 20040101, 20040101},
           {20040101, 20031231, 20031227, 20031231, 20031231, 20031231, 20040103, 20040131,
            20040331, 20041231, 20040101, 20040101, 20040101, 20040101}},
      // A leap day that is a Sunday: a month before is in January, a year before has none.
      Case{{2004, 2, 29, 23, 59, 59},
           {20040229, 20040228, 20040222, 20040101, 20031001, 20030101, 20040229, 20040201,
            20040101, 20040101, 20040229, 20040201, 20040101, 20040101},
           {20040229, 20040228, 20040228, 20040131, 20031231, 20031231, 20040306, 20040229,
            20040331, 20041231, 20040229, 20040229, 20040229, 20040229}},
      // A month before the last of March rolls into March.
      Case{{2005, 3, 31, 12, 0, 0},
           {20050331, 20050330, 20050320, 20050301, 20041001, 20040101, 20050327, 20050301,
            20050101, 20050101, 20050327, 20050301, 20050101, 20050101},
           {20050331, 20050330, 20050326, 20050331, 20041231, 20041231, 20050402, 20050331,
            20050331, 20051231, 20050331, 20050331, 20050331, 20050331}},
      // A quarter before the last of December rolls into October. A Saturday.
      Case{{2005, 12, 31, 12, 0, 0},
           {20051231, 20051230, 20051218, 20051201, 20051001, 20040101, 20051225, 20051201,
            20051001, 20050101, 20051225, 20051201, 20051001, 20050101},
           {20051231, 20051230, 20051224, 20051231, 20051231, 20041231, 20051231, 20051231,
            20051231, 20051231, 20051231, 20051231, 20051231, 20051231}},
  };
  for (const Case& c : cases) {
    for (std::int32_t mnemonic = 0; mnemonic < 14; ++mnemonic) {
      const auto index = static_cast<std::size_t>(mnemonic);
      DateRange range;
      const CivilTime end = DateRangeForMnemonic(static_cast<DateMnemonic>(mnemonic), c.now, range);
      const CivilTime first = DateNumberToNSCalendarDate(c.first[index]);
      CivilTime last = DateNumberToNSCalendarDate(c.last[index]);
      last.hour = 23;
      last.minute = 59;
      last.second = 59;
      EXPECT_EQ(range, (DateRange{first, last}))
          << c.now.year << '-' << c.now.month << '-' << c.now.day << ": " << mnemonic << " gives "
          << NSCalendarDateToDateNumber(range.start) << " to "
          << NSCalendarDateToDateNumber(range.end);
      EXPECT_EQ(end, range.end);
    }
  }
}

TEST(DateRanges, AreLeftAloneByAnUnknownMnemonic) {
  const CivilTime now{2004, 3, 3, 17, 30, 5};
  for (const std::int32_t mnemonic : {14, -1, 99}) {
    DateRange range{{1999, 9, 9}, {2000, 1, 1}};
    EXPECT_EQ(DateRangeForMnemonic(static_cast<DateMnemonic>(mnemonic), now, range), now);
    EXPECT_EQ(range, (DateRange{{1999, 9, 9}, {2000, 1, 1}}));
  }
}

TEST(DateRanges, BecomeRulesThatNoDayIsTooFarFor) {
  constexpr DateNumber kMost = std::numeric_limits<DateNumber>::max();
  constexpr DateNumber kLeast = std::numeric_limits<DateNumber>::min();
  LDGRFilter filter;
  AddDateRangeRules(filter, kLeast, kMost);
  EXPECT_EQ(RulesOf(filter), " date 1 2 -2147483648 date 1 0 2147483647");
}

}  // namespace
}  // namespace tallyfold
