#include "model/text.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/clean_text.h"

namespace tallyfold {
namespace {

TEST(Texts, CompareIgnoringCaseByCodePoint) {
  const struct {
    const char* a;
    const char* b;
    int order;
  } cases[] = {{"", "", 0},
               {"a", "", 1},
               {"Auto", "auto", 0},
               {"auto", "BILLS", -1},
               {"Bill", "bills", -1},
               {"a10", "a9", -1},
               {"_", "A", -1},
               {"[", "A", -1},
               {"ÄRGER", "ärger", 0},
               {"Œuvre", "œUVRE", 0},
               {"Ÿ", "ÿ", 0},
               {"ŽIŽEK", "žižek", 0},
               {"ΣΊΣΥΦΟΣ", "σίσυφος", 0},
               {"Ёлка", "ёЛКА", 0},
               {"Ґ", "ґ", 0},
               {"ԱԲ", "աբ", 0},
               {"VIỆT", "việt", 0},
               {"\u212B", "å", 0},
               {"\U00010401", "\U00010428", 1},
               {"z", "ä", -1},
               {"İ", "i", 1},
               {"straße", "STRASSE", 1},
               {"\u00E9", "e\u0301", 1},
               {"€", "é", 1},
               {"\U0001F600", "\uFFFD", 1},
               // Invalid UTF-8 comes after all letters, by its bytes.
               {"\xC3", "\xC3\xA9", 1},
               {"\xFF", "\xFE", 1},
               {"a\xC3", "A\xC3", 0},
               {"\xED\xA0\x80", "\xED\xA0\x80", 0},
               {"\xC0\xAF", "/", 1}};
  for (const auto& c : cases) {
    EXPECT_EQ(CompareIgnoringCase(c.a, c.b), c.order) << c.a << " and " << c.b;
    EXPECT_EQ(CompareIgnoringCase(c.b, c.a), -c.order) << c.b << " and " << c.a;
    EXPECT_EQ(FoldCase(c.a) == FoldCase(c.b), c.order == 0) << c.a << " and " << c.b;
  }
}

TEST(Texts, FoldWithoutLosingAByte) {
  EXPECT_EQ(FoldCase("Ünïcode ÀÞ×÷ß Ωmega Жук 東京 \xC3 \xE6\x9D"),
            "ünïcode àþ×÷ß ωmega жук 東京 \xC3 \xE6\x9D");
}

TEST(EnglishLists, JoinWithCommasAndTheWordAnd) {
  FakeAmbient ambient;
  EXPECT_EQ(StringsToEnglishList({}), "");
  EXPECT_EQ(StringsToEnglishList({"Food"}), "Food");
  EXPECT_EQ(StringsToEnglishList({"Food", "Rent"}), "Food and Rent");
  ambient.localizer.Translate("and", "und");
  EXPECT_EQ(StringsToEnglishList({"Food", "Rent", "Travel"}), "Food, Rent und Travel");
}

TEST(Messages, TakeTheirTextOnce) {
  EXPECT_EQ(MessageWithText("No %@ found for %@.", "date"), "No date found for %@.");
  EXPECT_EQ(MessageWithText("No date.", "x"), "No date.");
}

TEST(TextFromOutside, IsMadeValidAndLosesControlCharacters) {
  struct Case {
    std::string_view bytes;
    std::string_view clean;
  } const cases[] = {
      {"", ""},
      {"Zoë 銀 \U0001F600\t\r\n", "Zoë 銀 \U0001F600\t\r\n"},
      {std::string_view("a\0b\x1b\x7f\u0085c", 8), "abc"},
      {"a\xFFz", "a\uFFFDz"},
      {"a\uFFFE\uFFFF\U0001FFFEz", "a\U0001FFFEz"},      // the first two are no characters
      {"\xC3", "\uFFFD"},                                // cut short
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // half a surrogate pair
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last character
  };
  for (const Case& c : cases) EXPECT_EQ(CleanText(c.bytes), c.clean);
}

}  // namespace
}  // namespace tallyfold
