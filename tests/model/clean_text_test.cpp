#include "model/clean_text.h"

#include <gtest/gtest.h>

namespace tallyfold {
namespace {

TEST(TextFromOutside, IsMadeValidAndLosesControlCharacters) {
  struct Case {
    std::string_view bytes;
    std::string_view clean;
  } const cases[] = {
      {"", ""},
      {"Zoë 銀 \U0001F600\t\r\n", "Zoë 銀 \U0001F600\t\r\n"},
      {std::string_view("a\0b\x1b\x7f\u0085c", 8), "abc"},
      {"a\xFFz", "a\uFFFDz"},
      {"\xC3", "\uFFFD"},                                // cut short
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // half a surrogate pair
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last character
  };
  for (const Case& c : cases) EXPECT_EQ(CleanText(c.bytes), c.clean);
}

}  // namespace
}  // namespace tallyfold
