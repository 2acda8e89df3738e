#include "console/values.h"

#include <gtest/gtest.h>

#include <functional>

#include "console/command_error.h"
#include "platform/ambient.h"

namespace tallyfold::console {
namespace {

class Locale final : public UserLocale {
 public:
  explicit Locale(std::string format) : format_(std::move(format)) {}
  std::string ShortDateFormat() const override { return format_; }
  std::string DecimalSeparator() const override { return ","; }
  std::string ThousandsSeparator() const override { return "."; }
  std::int32_t DefaultTextEncoding() const override { return 4; }

 private:
  std::string format_;
};

// What a reader answers as text: the value, or "!" and the error.
std::string Answer(const std::function<std::string()>& read) {
  try {
    return read();
  } catch (const CommandError& error) {
    return std::string("!") + error.what();
  }
}

TEST(Dates, AreReadInIsoFormAndInTheUsersOrder) {
  struct Case {
    std::string format;
    std::string_view typed;
    std::string read;
  } const cases[] = {
      {"%m/%d/%y", "2026-03-07", "2026-03-07"},   {"%m/%d/%y", "3/7/26", "2026-03-07"},
      {"%m/%d/%y", "03/07/2026", "2026-03-07"},   {"%m/%d/%y", "12/31/69", "1969-12-31"},
      {"%m/%d/%y", "12/31/68", "2068-12-31"},     {"%d.%m.%Y", "7.3.2026", "2026-03-07"},
      {"%d.%m.%Y", "7.3.26", "2026-03-07"},       {"%Y-%m-%d", "26-3-7", "2026-03-07"},
      {"%A, %e %B %Y", "7-3-2026", "2026-03-07"}, {"%m/%d/%y", "2024-02-29", "2024-02-29"},
      {"%m/%d/%y", "0001-01-01", "0001-01-01"},
  };
  for (const Case& c : cases) {
    Locale locale(c.format);
    const ScopedAmbient ambient({.locale = &locale});
    EXPECT_EQ(Answer([&] { return WriteDate(ReadDate(c.typed, "date")); }), c.read) << c.typed;
  }
}

TEST(Dates, ThatAreNoneAreRefusedWithWhatWasExpected) {
  const std::string_view bad[] = {
      "",        "tomorrow",    "2026-02-29",  "2026-13-01", "2026-00-10",      "2026-01-32",
      "2026-1",  "2026-01-01 ", "2026-01-01x", "0000-01-01", "10000-01-01",     "31/12/26",
      "2/29/26", "3/7",         "3//7/26",     "-3/7/26",    "99999999999-1-1", "1/99999999999/26",
  };
  for (const std::string_view text : bad) {
    EXPECT_EQ(
        Answer([&] { return WriteDate(ReadDate(text, "date")); }),
        "!date: expected a date such as 2026-03-31 or 3/31/26, not \"" + std::string(text) + "\"");
  }
  Locale locale("%d.%m.%Y");
  const ScopedAmbient ambient({.locale = &locale});
  EXPECT_EQ(Answer([] { return WriteDate(ReadDate("x", "from")); }),
            "!from: expected a date such as 2026-03-31 or 31/3/26, not \"x\"");
}

TEST(Amounts, AreReadPlainWhateverTheLocale) {
  const std::string plain = "!amount: expected an amount such as 1234.50, not ";
  const std::string below = "!amount: expected an amount below 10000000000000.00, not ";
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
      {"10000000000000", below + "\"10000000000000\""},
      {"1234567890123456789012345678901234567890",
       below + "\"1234567890123456789012345678901234567890\""},
      {"", plain + "\"\""},
      {"-", plain + "\"-\""},
      {".", plain + "\".\""},
      {"1.005", plain + "\"1.005\""},
      {"1,5", plain + "\"1,5\""},
      {"1,234.50", plain + "\"1,234.50\""},
      {"$5", plain + "\"$5\""},
      {"--5", plain + "\"--5\""},
      {"1e3", plain + "\"1e3\""},
      {"nan", plain + "\"nan\""},
      {"5 ", plain + "\"5 \""},
  };
  Locale locale("%m/%d/%y");
  const ScopedAmbient ambient({.locale = &locale});
  for (const Case& c : cases) {
    EXPECT_EQ(Answer([&] { return WriteAmount(ReadAmount(c.typed, "amount")); }), c.read);
  }
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
