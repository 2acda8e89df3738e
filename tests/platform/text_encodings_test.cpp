#include <gtest/gtest.h>

#include <bit>
#include <set>
#include <string>

#include "system/iconv_encodings.h"
#include "system/system_locale.h"

namespace tallyfold {
namespace {

using namespace std::string_literals;

constexpr auto kNone = std::nullopt;

// Text with bytes of zero in it.
#define BYTES(literal) std::string(literal, sizeof(literal) - 1)

TEST(IconvEncodings, OfferEachUnderANameOfItsOwn) {
  const IconvEncodings encodings;
  std::set<std::string> names;
  for (const TextEncoding encoding : encodings.List()) names.insert(encodings.Name(encoding));
  EXPECT_EQ(names.size(), 19u);
  EXPECT_FALSE(names.contains(""));
  EXPECT_EQ(encodings.Name(TextEncoding{0}), "");
}

TEST(IconvEncodings, DecodeWhatIsTextAndNothingElse) {
  const IconvEncodings encodings;
  const struct {
    TextEncoding encoding;
    std::string bytes;
    std::optional<std::string> text;
  } cases[] = {
      {TextEncoding::Ascii, "plain", "plain"},
      {TextEncoding::Ascii, "caf\xE9", kNone},
      {TextEncoding::Utf8, "caf\u00E9 \U0001F600", "caf\u00E9 \U0001F600"},
      {TextEncoding::Utf8, "\xEF\xBB\xBF!Type:Bank", "!Type:Bank"},
      {TextEncoding::Utf8, "caf\xE9", kNone},
      {TextEncoding::Utf8, "\xC3", kNone},
      {TextEncoding::Utf8, "\xC0\x80", kNone},
      {TextEncoding::Utf8, "\xE0\x80\x80", kNone},
      {TextEncoding::Utf8, "\xED\xA0\x80", kNone},
      {TextEncoding::Utf8, "\xF4\x90\x80\x80", kNone},
      {TextEncoding::Utf8, "\xF8\x88\x80\x80\x80", kNone},
      {TextEncoding::Utf8, "", ""},
      {TextEncoding::Latin1, "caf\xE9 \x80", "caf\u00E9 \u0080"},
      {TextEncoding::Latin2,
       "\xB3\xF3"
       "d\xBC",
       "\u0142\u00F3d\u017A"},
      {TextEncoding::Windows1250, "\x9C\xE6", "\u015B\u0107"},
      {TextEncoding::Windows1251, "\xCF\xF0", "\u041F\u0440"},
      {TextEncoding::Windows1252, "\x80 5", "\u20AC 5"},
      {TextEncoding::Windows1252, "\x81", kNone},
      {TextEncoding::Windows1253, "\xC5\xE3", "\u0395\u03B3"},
      {TextEncoding::Windows1254, "\xFE", "\u015F"},
      {TextEncoding::MacRoman, "\xDB \x8E\rx", "\u20AC \u00E9\rx"},
      {TextEncoding::EucJp, "\xC6\xFC", "\u65E5"},
      {TextEncoding::EucJp, "\xC6", kNone},
      {TextEncoding::ShiftJis, "\x93\xFA\\~", "\u65E5\\~"},
      {TextEncoding::Iso2022Jp, "\x1B$BF|\x1B(B!", "\u65E5!"},
      {TextEncoding::Utf16, BYTES("\xFE\xFF\0a\0b"), "ab"},
      {TextEncoding::Utf16,
       BYTES("\xFF\xFE"
             "a\0b\0"),
       "ab"},
      {TextEncoding::Utf16BigEndian, BYTES("\0a\x20\xAC"), "a\u20AC"},
      {TextEncoding::Utf16BigEndian, BYTES("\xFE\xFF\0a"), "a"},
      {TextEncoding::Utf16LittleEndian, BYTES("a\0\x3D\xD8\x00\xDE"), "a\U0001F600"},
      {TextEncoding::Utf16LittleEndian, BYTES("a\0b"), kNone},
      {TextEncoding::Utf16LittleEndian,
       BYTES("\x3D\xD8"
             "a\0"),
       kNone},
      {TextEncoding::Utf32, BYTES("\0\0\xFE\xFF\0\0\0a"), "a"},
      {TextEncoding::Utf32BigEndian, BYTES("\0\1\xF6\0"), "\U0001F600"},
      {TextEncoding::Utf32LittleEndian, BYTES("\0\0\x11\0"), kNone},
      {TextEncoding::Utf32LittleEndian, BYTES("\0\xD8\0\0"), kNone},
      {TextEncoding{2}, "a", kNone},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(encodings.Decode(c.bytes, c.encoding), c.text)
        << encodings.Name(c.encoding) << ' ' << testing::PrintToString(c.bytes);
  }
}

TEST(IconvEncodings, WriteAQuestionMarkForEachCharacterThatIsLacking) {
  const IconvEncodings encodings;
  const bool little = std::endian::native == std::endian::little;
  const struct {
    TextEncoding encoding;
    std::string text;
    std::optional<std::string> bytes;
  } cases[] = {
      {TextEncoding::Ascii, "caf\u00E9 \u20AC\U0001F600.", "caf? ??."},
      {TextEncoding::Ascii, "\u201Cquoted\u201D \u2013 \u00BD", "?quoted? ? ?"},
      {TextEncoding::Ascii, "a\xFF\xC3", "a??"},
      {TextEncoding::Utf8, "caf\u00E9\xFF", "caf\u00E9?"},
      {TextEncoding::Latin1, "\u00E9\u0142\u00E9", "\xE9?\xE9"},
      {TextEncoding::Windows1252, "\u20AC\u03A9", "\x80?"},
      {TextEncoding::MacRoman, "\u00E9\u0416", "\x8E?"},
      {TextEncoding::EucJp, "\u65E5\u00BD", "\xC6\xFC?"},
      {TextEncoding::ShiftJis, "\u65E5\\~\U0001F600", "\x93\xFA\\~?"},
      // The replacement too is written in the state the text is in, which ends where it began.
      {TextEncoding::Iso2022Jp, "\u65E5\U0001F600\u65E5", "\x1B$BF|\x1B(B?\x1B$BF|\x1B(B"},
      {TextEncoding::Utf16, "a",
       little ? BYTES("\xFF\xFE"
                      "a\0")
              : BYTES("\xFE\xFF\0a")},
      {TextEncoding::Utf16, "", little ? "\xFF\xFE"s : "\xFE\xFF"s},
      {TextEncoding::Utf16BigEndian, "a\xED\xA0\x80", BYTES("\0a\0?\0?\0?")},
      {TextEncoding::Utf16LittleEndian, "\U0001F600", BYTES("\x3D\xD8\x00\xDE")},
      {TextEncoding::Utf32, "a",
       little ? BYTES("\xFF\xFE\0\0a\0\0\0") : BYTES("\0\0\xFE\xFF\0\0\0a")},
      {TextEncoding::Utf32BigEndian, "a", BYTES("\0\0\0a")},
      {TextEncoding::Utf32LittleEndian, "a", BYTES("a\0\0\0")},
      {TextEncoding{2}, "a", kNone},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(encodings.Encode(c.text, c.encoding), c.bytes)
        << encodings.Name(c.encoding) << ' ' << testing::PrintToString(c.text);
  }
}

TEST(IconvEncodings, GiveBackLongTexts) {
  const IconvEncodings encodings;
  std::string text;
  std::string lossy;
  for (int i = 0; i < 50'000; ++i) {
    text += i % 3 == 0 ? "\u65E5" : "a";
    lossy += i % 3 == 0 ? "?" : "a";
  }
  for (const TextEncoding encoding :
       {TextEncoding::Utf16, TextEncoding::Utf32, TextEncoding::EucJp, TextEncoding::Iso2022Jp}) {
    EXPECT_EQ(encodings.Decode(encodings.Encode(text, encoding).value_or(""), encoding), text);
  }
  EXPECT_EQ(encodings.Encode(text, TextEncoding::Latin1), lossy);
}

TEST(SystemLocale, PutsDateFormatsIntoCalendarLetters) {
  const struct {
    const char* format;
    const char* expected;
  } cases[] = {
      {"%m/%d/%y", "%m/%d/%y"},
      {"%d.%m.%Y", "%d.%m.%Y"},
      {"%D", "%m/%d/%y"},
      {"%F", "%Y-%m-%d"},
      {"%-d/%-m/%y", "%e/%1m/%y"},
      {"%e. %_m. %Y", "%e. %1m. %Y"},
      {"%Ey\u5E74%Om", "%y\u5E74%m"},
      {"%d %h %Y", "%d %b %Y"},
      {"%d%%%m", "%d%%%m"},
      {"%G-%V", "%m/%d/%y"},
      {"%d.%", "%m/%d/%y"},
      {"", "%m/%d/%y"},
  };
  for (const auto& c : cases) EXPECT_EQ(CalendarDateFormat(c.format), c.expected) << c.format;
}

TEST(SystemLocale, KnowsTheEncodingOfTheLocale) {
  const struct {
    const char* codeset;
    std::int32_t expected;
  } cases[] = {{"UTF-8", 4},        {"ANSI_X3.4-1968", 4}, {"ISO-8859-1", 5},
               {"ISO-8859-15", 12}, {"EUC-JP", 3},         {"GB18030", 4}};
  for (const auto& c : cases) EXPECT_EQ(EncodingOfCodeset(c.codeset), c.expected) << c.codeset;
}

TEST(SystemLocale, GivesThePlainFormsWhereTheLocaleIsMissing) {
  setenv("LC_ALL", "xx_XX.none", 1);
  const SystemLocale locale;
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.ShortDateFormat(), "%m/%d/%y");
  EXPECT_EQ(locale.DecimalSeparator(), ".");
  EXPECT_EQ(locale.ThousandsSeparator(), "");
  EXPECT_EQ(locale.DefaultTextEncoding(), 4);
}

}  // namespace
}  // namespace tallyfold
