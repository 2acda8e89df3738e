#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "model/case_folding.h"
#include "model/text.h"

namespace tallyfold {
namespace {

TEST(CaselessNeedles, OccurWhateverTheCase) {
  struct Case {
    std::string_view needle;
    std::string_view field;
    bool occurs;
    bool equals;
  };
  const std::string long_text(600, 'x');
  const std::string one_more = long_text + "x";
  const std::string another = long_text + "y";
  const std::array cases = {
      Case{"coffee", "COFFEE", true, true},
      Case{"coffee", "Coffee shop", true, false},
      Case{"Shop", "coffee shop", true, false},
      Case{"coffee", "cofee", false, false},
      Case{"aab", "aaab", true, false},
      Case{"c", "abC", true, false},
      Case{"7", "17", true, false},
      Case{"x", "", false, false},
      Case{"", "x", false, false},
      Case{"", "", false, true},
      Case{"ÉTÉ", "été", true, true},
      Case{"ж", "Жук", true, false},
      Case{"STRASSE", "straße", false, false},
      // A letter that folds to a shorter one.
      Case{"mission", "mi\u017F\u017Fion", true, true},
      Case{"s", "\u017F", true, true},
      Case{"\u017Fa", "xSA", true, false},
      // Bytes in common are not letters in common.
      Case{"\u00BC", "\u00B5", false, false},
      Case{"\u03BC", "\u00B5", true, true},
      // What is no UTF-8 counts by its bytes, and never from within a letter.
      Case{"\xA9", "\u00E9", false, false},
      Case{"\xA9", "x\xA9", true, false},
      Case{"\xC3", "\u00E9", false, false},
      Case{"a\xFF", "bA\xFF", true, false},
      Case{long_text, one_more, true, false},
      Case{another, long_text, false, false},
  };
  for (const Case& c : cases) {
    const CaselessNeedle needle(c.needle);
    EXPECT_EQ(needle.OccursIn(c.field), c.occurs) << c.needle << " in " << c.field;
    EXPECT_EQ(needle.Equals(c.field), c.equals) << c.needle << " is " << c.field;
  }
}

// A text without invalid bytes occurs exactly where its folded form occurs in the folded field.
TEST(CaselessNeedles, OccurWhereTheFoldedTextOccurs) {
  constexpr std::array<std::string_view, 12> kLetters = {
      "a", "A", "b", "s", "S", "\u017F", "é", "É", "\u00B5", "\u03BC", "Ж", "€"};
  std::mt19937 random(1);
  const auto text = [&](std::size_t longest) {
    std::string result;
    for (std::size_t n = random() % (longest + 1); n > 0; --n) {
      result += kLetters[random() % kLetters.size()];
    }
    return result;
  };
  int occurrences = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::string needle = text(4);
    const std::string field = text(12);
    const bool expected =
        !needle.empty() && FoldCase(field).find(FoldCase(needle)) != std::string::npos;
    ASSERT_EQ(CaselessNeedle(needle).OccursIn(field), expected) << needle << " in " << field;
    occurrences += expected ? 1 : 0;
  }
  EXPECT_GT(occurrences, 500);
}

// The search counts on it.
TEST(Folding, ChangesTheSizeOfLongSAlone) {
  for (char32_t letter = 0x80; letter < kFoldingEnd; ++letter) {
    EXPECT_EQ(FoldCodePoint(letter) < 0x80, letter == 0x017F) << static_cast<unsigned>(letter);
  }
}

}  // namespace
}  // namespace tallyfold
