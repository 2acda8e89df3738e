#include "plist/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "plist/utf16.h"

namespace tallyfold::plist {
namespace {

using std::string_view_literals::operator""sv;

TEST(Utf8, IsCheckedAndMadeValid) {
  const struct {
    std::string_view text;
    std::size_t valid;
    std::string_view repaired;
  } cases[] = {
      {"", 0, ""},
      {"plain", 5, "plain"},
      {"a\0b"sv, 3, "a\0b"sv},
      {"\x7F\xC2\x80\xDF\xBF", 5, "\x7F\xC2\x80\xDF\xBF"},
      {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", 12,
       "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 8, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
      {"a\x80z", 1, "a\uFFFDz"},                  // begins nothing
      {"a\xC0\xAF", 1, "a\uFFFD\uFFFD"},          // overlong
      {"\xE0\x9F\xBF", 0, "\uFFFD\uFFFD\uFFFD"},  // overlong
      {"\xF0\x8F\xBF\xBF", 0, "\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", 0, "\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", 0, "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond Unicode
      {"\xF5\xFF", 0, "\uFFFD\uFFFD"},
      {"ab\xE2\x82", 2, "ab\uFFFD"},    // broken off at the end
      {"\xF0\x9F\x98!", 0, "\uFFFD!"},  // broken off within
      {"\xC3", 0, "\uFFFD"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.repaired);
    EXPECT_EQ(ValidUtf8Prefix(c.text), c.valid);
    EXPECT_EQ(IsValidUtf8(c.text), c.valid == c.text.size());
    EXPECT_EQ(ToValidUtf8(c.text), c.repaired);
  }
}

TEST(Utf8, IsCheckedWhereverTheFaultLies) {
  for (std::size_t position = 0; position < 200; ++position) {
    std::string text(200, 'x');
    text.replace(100, 2, "\xC3\xA9");
    text[position] = '\xFF';
    EXPECT_EQ(ValidUtf8Prefix(text), position == 101 ? 100 : position);
  }
}

TEST(Utf16, IsConvertedUpToTheFirstFault) {
  const struct {
    std::string_view big_endian;
    std::string_view text;
    bool is_valid;
  } cases[] = {
      {"", "", true},
      {"\0A\x20\xAC\xD8\x3D\xDE\x00"sv, "A\u20AC\U0001F600", true},
      {"\xDB\xFF\xDF\xFF"sv, "\U0010FFFF", true},
      {"\0A\0"sv, "A", false},
      {"\0A\xD8\x3D"sv, "A", false},
      {"\0A\xD8\x3D\0B"sv, "A", false},
      {"\0A\xDE\x00\xD8\x3D"sv, "A", false},
  };
  for (const auto& c : cases) {
    const Utf8Text big = Utf16ToUtf8(c.big_endian, ByteOrder::BigEndian);
    EXPECT_EQ(big.text, c.text);
    EXPECT_EQ(big.is_valid, c.is_valid);
    std::string swapped(c.big_endian);
    for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
    const Utf8Text little = Utf16ToUtf8(swapped, ByteOrder::LittleEndian);
    EXPECT_EQ(little.text, c.text);
    EXPECT_EQ(little.is_valid, c.is_valid);
  }
}

}  // namespace
}  // namespace tallyfold::plist
