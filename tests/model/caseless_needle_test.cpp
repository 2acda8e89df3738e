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
      Case{"ⴀꭰ", "xႠᎠ", true, false},
      Case{"\U00010428", "\U00010400", true, true},
      // Letters that fold to shorter and to longer ones.
      Case{"mission", "mi\u017F\u017Fion", true, true},
      Case{"ok", "10 o\u212A", true, false},
      Case{"gro\u00DF", "GRO\u1E9E", true, true},
      Case{"\u2C65\u2C65", "\u023A\u023A", true, true},
      Case{"\u023A!", "x\u2C65!", true, false},
      Case{"\u2C65\u2C65", "\u023Axx", false, false},
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
  constexpr std::array<std::string_view, 18> kLetters = {
      "a",      "A",      "b", "s", "S",      "\u017F", "k",      "\u212A", "é",
      "\u00B5", "\u03BC", "Ж", "€", "\u023A", "\u2C65", "\u13A0", "\uAB70", "\U00010400"};
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

TEST(Folding, GivesAllCasesOfALetterOneForm) {
  const struct {
    char32_t letter;
    char32_t form;
  } cases[] = {{0x0041, 0x0061},   {0x0061, 0x0061},   {0x00DF, 0x00DF},     {0x0130, 0x0130},
               {0x0131, 0x0131},   {0x0149, 0x0149},   {0x017F, 0x0073},     {0x01C5, 0x01C6},
               {0x0345, 0x03B9},   {0x03A2, 0x03A2},   {0x0531, 0x0561},     {0x10A0, 0x2D00},
               {0x13A0, 0x13A0},   {0xAB70, 0x13A0},   {0x13F8, 0x13F0},     {0x1C88, 0xA64B},
               {0x1E9E, 0x00DF},   {0x1F88, 0x1F80},   {0x1FBE, 0x03B9},     {0x1FD3, 0x0390},
               {0x212B, 0x00E5},   {0x2160, 0x2170},   {0x24B6, 0x24D0},     {0xA7AE, 0x026A},
               {0xFB05, 0xFB06},   {0xFF21, 0xFF41},   {0x10400, 0x10428},   {0x10427, 0x1044F},
               {0x1E921, 0x1E943}, {0x1E9FF, 0x1E9FF}, {0x10FFFF, 0x10FFFF}, {0x110041, 0x110041}};
  for (const auto& c : cases) {
    EXPECT_EQ(FoldCodePoint(c.letter), c.form) << std::hex << static_cast<unsigned>(c.letter);
  }
  std::size_t changed = 0;
  std::size_t told = 0;
  for (char32_t letter = 0; letter <= 0x10FFFF; ++letter) {
    const char32_t form = FoldCodePoint(letter);
    if (form != letter) ++changed;
    ASSERT_EQ(FoldCodePoint(form), form) << std::hex << static_cast<unsigned>(letter);
    if (letter < 0x20000) told += OtherCasesOf(letter).size();
  }
  EXPECT_EQ(changed, 1484U);  // in the Unicode tables
  EXPECT_EQ(told, changed);
}

}  // namespace
}  // namespace tallyfold
