#include "printing/text_fitting.h"

#include <gtest/gtest.h>

#include "printing/drawn_metric.h"
#include "printing/plain_text.h"

namespace tallyfold {
namespace {

constexpr TextStyle kBody = TextStyle::Body;

TEST(TextsOnPaper, AreShortenedBetweenCharactersAndNeverWiderThanTheirPlace) {
  struct Case {
    std::string_view text;
    double width;
    std::string_view shortened;
  } const cases[] = {
      {"Groceries", 9, "Groceries"},
      {"Groceries", 8, "Groceri…"},
      {"Week 12", 6, "Week…"},  // no blank before the ellipsis
      {"  Bread and butter", 8, "  Bread…"},
      {"Café", 3, "Ca…"},
      {"e\u0301te\u0301s", 2, "e\u0301…"},  // an accent stays with its letter
      {"お茶とパン", 7, "お茶と…"},
      {"お茶とパン", 6, "お茶…"},  // no half of a wide one
      {"\U0001F469\u200D\U0001F4BBxyz", 5, "\U0001F469\u200D\U0001F4BB…"},
      {"abc", 1, "…"},
      {"abc", 0.5, ""},
      {"abc", -3, ""},
      {"", 0, ""},
  };
  const FixedPitchMetric fixed;
  const DrawnMetric drawn;
  for (const Case& c : cases) {
    EXPECT_EQ(Shortened(c.text, c.width, kBody, fixed), c.shortened) << c.text;
    for (double width = 0; width < 60; width += 1.7) {
      EXPECT_LE(drawn.Width(Shortened(c.text, width, kBody, drawn), kBody), width + 1e-6);
    }
  }
}

TEST(TextsOnPaper, AreWholeWhereTheyFitWhateverTheirLettersAloneTake) {
  const DrawnMetric metric;
  const double width = metric.Width("five fifths", kBody);
  EXPECT_EQ(Shortened("five fifths", width, kBody, metric), "five fifths");
  EXPECT_EQ(Shortened("five fifths", width - 1, kBody, metric), "five fift…");
}

TEST(TextsOnPaper, AreWrappedBetweenWordsWithNothingLost) {
  struct Case {
    std::string_view text;
    double width;
    std::vector<std::string> lines;
  } const cases[] = {
      {"", 9, {}},
      {"one", 9, {"one"}},
      {"one two three", 9, {"one two", "three"}},
      {"one two three", 7, {"one two", "three"}},
      {"one  two", 4, {"one", "two"}},
      {"extraordinary", 5, {"extra", "ordin", "ary"}},
      {"an extraordinary day", 6, {"an", "extrao", "rdinar", "y day"}},
      {"  indented words", 10, {"  indented", "words"}},
      {"a\r\nb\nc\rd\u2028e", 9, {"a", "b", "c", "d", "e"}},
      {"a\n\nb\n\n", 9, {"a", "", "b"}},
      {"tab\tand\x07"
       "bell",
       20,
       {"tab and bell"}},
      {"お茶とパン", 4, {"お茶", "とパ", "ン"}},
      {"お茶", 1, {"お", "茶"}},  // at least a character
      {"\xff\xfe", 9, {"\uFFFD\uFFFD"}},
      {"          ", 4, {}},
  };
  const FixedPitchMetric fixed;
  for (const Case& c : cases) {
    EXPECT_EQ(Wrapped(c.text, c.width, kBody, fixed), c.lines) << c.text << " in " << c.width;
  }
}

TEST(TextsOnPaper, AreOneLineOfValidCharacters) {
  EXPECT_EQ(OnOneLine("a\tb\r\nc\x1b[2J\u0085\u2029\xc3"), "a b  c [2J  \uFFFD");
  EXPECT_EQ(OnOneLine("1\u00A0000 ~\x7F."), "1\u00A0000 ~ .");
}

TEST(TextsOnPaper, AreMeasuredWithTheirWidestDigits) {
  const DrawnMetric metric;
  EXPECT_EQ(WidestWidth({"11/11/11"}, kBody, metric), metric.Width("00/00/00", kBody));
  EXPECT_EQ(WidestWidth({"$1.00", "11 May"}, kBody, metric), metric.Width("00 May", kBody));
  EXPECT_EQ(WidestWidth({}, kBody, metric), 0.0);
}

}  // namespace
}  // namespace tallyfold
