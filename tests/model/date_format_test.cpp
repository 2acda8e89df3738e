#include "model/date_format.h"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "fakes/fake_ambient.h"
#include "model/typed_day.h"

namespace tallyfold {
namespace {

TEST(DateFormats, WriteEveryLetter) {
  FakeAmbient ambient;
  ambient.localizer.Translate("Mar", "Mär");
  const CivilTime afternoon{2004, 3, 7, 15, 4, 9};
  const struct {
    CivilTime time;
    const char* format;
    const char* text;
  } cases[] = {{afternoon, "%A, %B %e, %Y", "Sunday, March 7, 2004"},
               {afternoon, "%a %d %b %y", "Sun 07 Mär 04"},
               {afternoon, "%1m/%1d/%y", "3/7/04"},
               {afternoon, "%H:%M:%S %I:%M %p", "15:04:09 03:04 PM"},
               {afternoon, "%1H %1I %1M", "15 3 4"},
               {{2004, 12, 31}, "%I %p", "12 AM"},
               {{2004, 12, 31, 12}, "%I %p", "12 PM"},
               {{33, 1, 2}, "%Y-%m-%d %y", "0033-01-02 33"},
               {{-5, 1, 2}, "%Y %y", "-0005 95"},
               {afternoon, "100%% %q %1q %", "100% %q %1q %"},
               {{2004, 13, 0}, "%b %e %Y", "Dec 31 2004"},
               {afternoon, "%Y年%1m月", "2004年3月"}};
  for (const auto& c : cases) EXPECT_EQ(FormatDate(c.time, c.format), c.text);
}

TEST(TypedDays, AreReadInTheUsersFormatOrAsYearMonthDay) {
  FakeAmbient ambient;
  ambient.localizer.Translate("Mar", "mär.");
  constexpr auto kNone = std::nullopt;
  const struct {
    const char* text;
    const char* format;
    std::optional<DateNumber> day;
  } cases[] = {{"2004-03-07", "%m/%d/%y", 20040307},
               {" 2004-3-7 ", "%d.%m.%Y", 20040307},
               {"2004-02-30", "%m/%d/%y", kNone},
               {"2003-02-29", "%m/%d/%y", kNone},
               {"2004-13-01", "%m/%d/%y", kNone},
               {"0000-01-01", "%m/%d/%y", kNone},
               {"2004-03-07x", "%m/%d/%y", kNone},
               {"2004-03", "%m/%d/%y", kNone},
               {"3/7/04", "%m/%d/%y", 20040307},
               {"03-07-2004", "%m/%d/%y", 20040307},
               {"3 7 04", "%m/%d/%y", 20040307},
               {"3/7/24", "%1m/%e/%y", 20240307},
               {"3/7/25", "%1m/%e/%y", 19250307},
               {"3/7/00", "%1m/%e/%y", 20000307},
               {"3/7/4", "%m/%d/%y", 20040307},
               {"3/7/204", "%m/%d/%y", kNone},
               {"3/7/20045", "%m/%d/%y", kNone},
               {"3/7", "%m/%d/%y", kNone},
               {"3//7/04", "%m/%d/%y", kNone},
               {"3/-7/04", "%m/%d/%y", kNone},
               {"3/7/04/", "%m/%d/%y", kNone},
               {"13/7/04", "%m/%d/%y", kNone},
               {"3/32/04", "%m/%d/%y", kNone},
               {"2/29/1900", "%m/%d/%y", kNone},
               {"7.3.24", "%d.%m.%Y", 20240307},
               {"7.3.25", "%d.%m.%Y", 19250307},
               {"7.3.4", "%d.%m.%Y", 20040307},
               {"7.3.204", "%d.%m.%Y", 2040307},
               {"7.3.2004", "%d.%m.%Y", 20040307},
               {"7.3.2004", "%d.%m.%Y.", 20040307},
               {"7. 3. 2004.", "%d.%m.%Y.", 20040307},
               {"MARCH 7, 2004", "%B %e, %Y", 20040307},
               {"sunday, march 7, 2004", "%A, %B %e, %Y", 20040307},
               {"7 MÄR 04", "%d %b %y", 20040307},
               {"7 Mai 04", "%d %b %y", kNone},
               {"20040307", "%Y%m%d", 20040307},
               {"2004年3月7日", "%Y年%1m月%1d日", 20040307},
               {"", "%m/%d/%y", kNone},
               {"", "", kNone},
               {"3/7", "%m/%d", kNone},
               {"3/7/04 12", "%m/%d/%y %H", kNone}};
  ambient.clock.SetLocal({2004, 12, 31});
  for (const auto& c : cases) EXPECT_EQ(ParseDay(c.text, c.format), c.day) << c.text << c.format;
  for (const auto& [text, format, day] : {std::tuple{"3/7/68", "%m/%d/%y", 20680307},
                                          {"3/7/69", "%m/%d/%y", 19690307},
                                          {"3/7/4", "%m/%d/%Y", 40307}}) {
    EXPECT_EQ(ParseDay(text, format, ShortYears::ByFormat), day) << text << format;
  }
}

TEST(TypedDays, AreReadInShortShapesInTheOrderOfTheFormat) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2026, 2, 10});
  const struct {
    const char* text;
    const char* format;
    std::optional<DateNumber> day;
  } cases[] = {{"17", "%m/%d/%y", 20260217},
               {"2/3", "%m/%d/%y", 20260203},
               {"2/3", "%d.%m.%Y", 20260302},
               {"2. 3.", "%d.%m.%Y", 20260302},
               {"0203", "%m/%d/%y", 20260203},
               {"0203", "%d/%m/%y", 20260302},
               {"020327", "%m/%d/%y", 20270203},
               {"20270203", "%Y-%m-%d", 20270203},
               {"02032027", "%m/%d/%y", 20270203},
               {"2/3/27", "%m/%d/%y", 20270203},
               {"2027-02-03", "%m/%d/%y", 20270203},
               {"today", "%m/%d/%y", 20260210},
               {"Yesterday", "%m/%d/%y", 20260209},
               {"tomorrow", "%A", 20260211},
               {"-10", "%m/%d/%y", 20260131},
               {"+0", "%m/%d/%y", 20260210},
               {"+19", "%d.%m.%Y", 20260301},
               {"-", "%m/%d/%y", std::nullopt},
               {"-2/3", "%m/%d/%y", std::nullopt},
               {"+99999999", "%m/%d/%y", std::nullopt},
               {"-999999999", "%m/%d/%y", std::nullopt},
               {"todays", "%m/%d/%y", std::nullopt},
               {"29", "%m/%d/%y", std::nullopt},
               {"31/4", "%d/%m/%y", std::nullopt},
               {"17.", "%d.%m.%Y", 20260217},
               {"2/", "%m/%d/%y", std::nullopt},
               {"/2", "%d/%m/%y", std::nullopt},
               {"203", "%m/%d/%y", std::nullopt},
               {"", "%m/%d/%y", std::nullopt},
               {"/", "%m/%d/%y", std::nullopt},
               {"2/3/4/5", "%m/%d/%y", std::nullopt},
               {"2/2026", "%m/%d/%y", std::nullopt},
               {"x", "%m/%d/%y", std::nullopt},
               {"17", "%m/%y", std::nullopt},
               {"99999999999999999999", "%m/%d/%y", std::nullopt}};
  for (const auto& c : cases) EXPECT_EQ(ReadTypedDay(c.text, c.format, 20260210), c.day) << c.text;
}

TEST(ShortestDateFormats, KeepTheOrderOfTheParts) {
  const struct {
    const char* format;
    const char* shortest;
  } cases[] = {{"%A, %B %e, %Y", "%1m/%e/%y"},
               {"%d %B %Y", "%e/%1m/%y"},
               {"%Y-%m-%d", "%y/%1m/%e"},
               {"%y/%d/%m", "%y/%e/%1m"},
               {"%m.%Y.%d", "%1m/%y/%e"},
               {"%d.%y.%m", "%e/%y/%1m"},
               // Missing parts count as at the end and overwrite one another.
               {"", "//%y"},
               {"%m", "%1m//%y"},
               {"%d", "%e//%y"},
               {"%Y", "%y//%e"},
               {"%m/%d", "%1m/%e/%y"}};
  for (const auto& c : cases) {
    EXPECT_EQ(DateFormatStringToShortestDateFormatString(c.format), c.shortest) << c.format;
  }
}

}  // namespace
}  // namespace tallyfold
