#include "console/values.h"

#include <gtest/gtest.h>

#include <functional>

#include "console/command_error.h"
#include "fakes/fake_ambient.h"

namespace tallyfold::console {
namespace {

// What a reader answers as text: the value, or "!" and the error.
std::string Answer(const std::function<std::string()>& read) {
  try {
    return read();
  } catch (const CommandError& error) {
    return std::string("!") + error.what();
  }
}

TEST(Dates, AreReadInIsoFormOrTheUsersOwn) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2026, 3, 2, 9, 0, 0});
  const auto american = [](std::string_view text) {
    return "!date: expected a date such as 2026-03-31 or 03/31/26, not \"" + std::string(text) +
           '"';
  };
  const auto german = [](std::string_view text) {
    return "!date: expected a date such as 2026-03-31 or 31.03.2026, not \"" + std::string(text) +
           '"';
  };
  struct Case {
    std::string format;
    std::string_view typed;
    std::string read;
  } const cases[] = {
      {"%m/%d/%y", "2026-03-07", "2026-03-07"},
      {"%m/%d/%y", "3/7/26", "2026-03-07"},
      {"%d.%m.%Y", "7.3.2026", "2026-03-07"},
      {"%d.%m.%Y", "2026-03-07", "2026-03-07"},
      {"%m/%d/%y", "today", "2026-03-02"},
      {"%m/%d/%y", "", american("")},
      {"%m/%d/%y", "tomorrow", "2026-03-03"},
      {"%m/%d/%y", "-3", "2026-02-27"},
      {"%m/%d/%y", "+30", "2026-04-01"},
      {"%m/%d/%y", "12/31", "2026-12-31"},
      {"%d.%m.%Y", "31.12.", "2026-12-31"},
      {"%m/%d/%y", "-3x", american("-3x")},
      {"%m/%d/%y", "31/12", american("31/12")},
      {"%m/%d/%y", "2026-02-29", american("2026-02-29")},
      {"%m/%d/%y", "31/12/26", american("31/12/26")},
      {"%d.%m.%Y", "12/31/2026", german("12/31/2026")},
      {"%m/%d/%y", "99999999999-1-1", american("99999999999-1-1")},
  };
  for (const Case& c : cases) {
    ambient.locale.short_date_format = c.format;
    EXPECT_EQ(Answer([&] { return WriteDate(ReadDate(c.typed, "date")); }), c.read) << c.typed;
  }
}

TEST(Amounts, AreReadPlainOrAsTheUserWritesThem) {
  const std::string plain = "!amount: expected an amount such as 1234.50 or 1234,50, not ";
  struct Case {
    std::string_view typed;
    std::string read;
  } const cases[] = {
      {"12", "12.00"},
      {"12.5", "12.50"},
      {"+12.50", "12.50"},
      {"-0.01", "-0.01"},
      {"-0", "0.00"},
      {".5", "0.50"},
      {"5.", "5.00"},
      {"0000000000000000000000000001", "1.00"},
      {"9999999999999.99", "9999999999999.99"},
      {"10000000000000", plain + "\"10000000000000\""},
      {"1234567890123456789012345678901234567890",
       plain + "\"1234567890123456789012345678901234567890\""},
      {"", plain + "\"\""},
      {"-", plain + "\"-\""},
      {".", plain + "\".\""},
      {"1.005", plain + "\"1.005\""},
      {"1,5", "1.50"},
      {"1.234,50", "1234.50"},
      {"1.234.567", "1234567.00"},
      {"-1.234,5 €", "-1234.50"},
      {"1.234", plain + "\"1.234\""},
      {"1.500", plain + "\"1.500\""},
      {"1234.500", plain + "\"1234.500\""},
      {"1,234", plain + "\"1,234\""},
      {"1,234.50", plain + "\"1,234.50\""},
      {"$5", "5.00"},
      {"--5", plain + "\"--5\""},
      {"1e3", plain + "\"1e3\""},
      {"nan", plain + "\"nan\""},
      {"5 ", "5.00"},
      {"5 5", plain + "\"5 5\""},
  };
  FakeAmbient ambient;
  ambient.locale.decimal_separator = ",";
  ambient.locale.thousands_separator = ".";
  for (const Case& c : cases) {
    EXPECT_EQ(Answer([&] { return WriteAmount(ReadAmount(c.typed, "amount")); }), c.read);
  }
  ambient.locale.decimal_separator = ".";
  ambient.locale.thousands_separator = ",";
  EXPECT_EQ(ReadAmount("1,234.50", "amount"), 1234.5);
  EXPECT_EQ(Answer([] { return WriteAmount(ReadAmount("1.234", "amount")); }),
            "!amount: expected an amount such as 1234.50, not \"1.234\"");
  EXPECT_EQ(WriteAmount(-0.001), "0.00");
}

TEST(NumbersAndAnswers, AreReadWhole) {
  struct Case {
    std::string_view typed;
    std::string as_number;  // 0 to 99
    std::string as_yes_no;
  } const cases[] = {
      {"0", "0", "no"},
      {"1", "1", "yes"},
      {"99", "99", "!x: expected yes or no, not \"99\""},
      {"100", "!x: expected a whole number from 0 to 99, not \"100\"",
       "!x: expected yes or no, not \"100\""},
      {"-1", "!x: expected a whole number from 0 to 99, not \"-1\"",
       "!x: expected yes or no, not \"-1\""},
      {"99999999999", "!x: expected a whole number from 0 to 99, not \"99999999999\"",
       "!x: expected yes or no, not \"99999999999\""},
      {"yes", "!x: expected a whole number from 0 to 99, not \"yes\"", "yes"},
      {"off", "!x: expected a whole number from 0 to 99, not \"off\"", "no"},
      {"", "!x: expected a whole number from 0 to 99, not \"\"",
       "!x: expected yes or no, not \"\""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Answer([&] { return WriteNumber(ReadNumber(c.typed, "x", 0, 99)); }), c.as_number);
    EXPECT_EQ(Answer([&] { return WriteYesNo(ReadYesNo(c.typed, "x")); }), c.as_yes_no);
  }
}

TEST(Dates, AreWrittenAsStoredWhateverTheNumber) {
  struct Case {
    DateNumber date;
    std::string_view written;
  } const cases[] = {{20260307, "2026-03-07"},
                     {0, "0000-00-00"},
                     {20040230, "2004-02-30"},
                     {2147483647, "214748-36-47"},
                     {-2147483647 - 1, "-214748-36-48"}};
  for (const Case& c : cases) EXPECT_EQ(WriteDate(c.date), c.written);
}

}  // namespace
}  // namespace tallyfold::console
