#include "plist/reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/message.h"
#include "plist/describe.h"
#include "plist/writer.h"

namespace tallyfold::plist {
namespace {

using std::string_view_literals::operator""sv;

std::string Repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

std::string InPlist(std::string_view content) {
  return "<plist version=\"1.0\">" + std::string(content) + "</plist>";
}

TEST(Reader, TakesEveryElementAndWayToWriteIt) {
  const struct {
    std::string_view content;
    std::string_view value;
  } cases[] = {
      {"<true/>", "true"},
      {"<false />", "false"},
      {"<true> </true>", "true"},
      {"<integer>20040307</integer>", "20040307"},
      {"<integer>-1</integer>", "-1"},
      {"<integer>\n +7\t</integer>", "7"},
      {"<integer>0x1F</integer>", "31"},
      {"<integer>-0X10</integer>", "-16"},
      {"<integer>9223372036854775807</integer>", "9223372036854775807"},
      {"<integer>-9223372036854775808</integer>", "-9223372036854775808"},
      {"<integer>9223372036854775808</integer>", "9223372036854775807"},
      {"<integer>0xFFFFFFFFFFFFFFFF</integer>", "9223372036854775807"},
      {"<integer>000000000000000000000001</integer>", "1"},
      {"<real>5</real>", "5.0"},
      {"<real>-12.34</real>", "-12.34"},
      {"<real>0.29</real>", "0.29"},
      {"<real>9007199254740993.0</real>", "9007199254740992.0"},
      {"<real>1234567890123456.78</real>", "1234567890123456.8"},
      {"<real> +.5e-3 </real>", "5e-04"},
      {"<real>-0</real>", "-0.0"},
      {"<real>4.9e-324</real>", "5e-324"},
      {"<real>-1e-400</real>", "-0.0"},
      {"<real>12345e-99999999999999999999</real>", "0.0"},
      {"<real>NaN</real>", "nan"},
      {"<real>inf</real>", "inf"},
      {"<real>-Infinity</real>", "-inf"},
      {"<string/>", "\"\""},
      {"<string></string>", "\"\""},
      {"<string>  two\n\tlines </string>", "\"  two\n\tlines \""},
      {"<string>a\r\nb\rc\r</string>", "\"a\nb\nc\n\""},
      {"<string>&lt;&gt;&amp;&quot;&apos;</string>", "\"<>&\"'\""},
      {"<string>&#13;&#xa;&#x1F600;&#1;&#233;</string>", "\"\r\n\U0001F600\x01\u00E9\""},
      {"<string>&#0;</string>", "\"\0\""sv},
      {"<string>\x01 raw \x0B</string>", "\"\x01 raw \x0B\""},
      {"<string>a<!-- < & --><?x?>b<![CDATA[<&amp;]]]\r\n>]]>c</string>", "\"ab<&amp;]]]\n>c\""},
      {"<string xml:space='pre>serve' >x</string >", "\"x\""},
      {"<date>2004-03-07T00:00:00Z</date>", "date(2004-03-07T00:00:00Z)"},
      {"<data>\n\tAAECAw==\n\t</data>", "data(\n\tAAECAw==\n\t)"},
      {"<data/>", "data()"},
      {"<array/>", "[]"},
      {"<array><!-- nothing --></array>", "[]"},
      {"<array><array/><dict/> <integer>1</integer></array>", "[[],{},1]"},
      {"<dict><key>a</key><true/><key/><string>no name</string></dict>", "{a:true,:\"no name\"}"},
      {"<dict><key>a&amp;</key><true/><key>b</key><dict><key>a&amp;</key><true/></dict></dict>",
       "{a&:true,b:{a&:true}}"},
      // Of a repeated key the last value stands, in the first one's place.
      {"<dict><key>a</key><integer>1</integer><key>b</key><integer>2</integer>"
       "<key>a</key><dict><key>b</key><true/><key>b</key><false/></dict></dict>",
       "{a:{b:false},b:2}"},
  };
  for (const auto& c : cases) {
    const ReadResult result = Read(InPlist(c.content));
    EXPECT_TRUE(result.ok) << c.content << ": " << result.error;
    EXPECT_EQ(Describe(result.value), c.value) << c.content;
    EXPECT_EQ(result.line, 0U);
  }
}

TEST(Reader, TakesFilesWithAndWithoutDecoration) {
  const std::string_view cases[] = {
      "<plist><true/></plist>",
      "\xEF\xBB\xBF<plist><true/></plist>\n",
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!-- - -->\n<!DOCTYPE plist PUBLIC \"a>b[\" "
      "'c'>\n<?pi <plist>?><plist version='1.0'>\n<true/>\n</plist>\n<!-- the end -->\n ",
      "<?xml version='1.0' encoding = 'utf-8' standalone='yes'?><plist><true/></plist>",
      "<?xml version='1.0' encoding='UTF-16'?><plist><true/></plist>",
      "<?xml version='1.0' encoding='us-ascii'?><plist><true/></plist>",
      "<?xml version='1.0'?><plist title=\" encoding='x'\"><true/></plist>",
      "\xFE\xFF\0<\0p\0l\0i\0s\0t\0>\0<\0t\0r\0u\0e\0/\0>\0<\0/\0p\0l\0i\0s\0t\0>"sv,
      "\xFF\xFE<\0p\0l\0i\0s\0t\0>\0<\0t\0r\0u\0e\0/\0>\0<\0/\0p\0l\0i\0s\0t\0>\0"sv,
  };
  for (const std::string_view file : cases) {
    const ReadResult result = Read(file);
    EXPECT_EQ(Describe(result.value), "true") << file << ": " << result.error;
  }
}

TEST(Reader, RefusesWhatIsNoPropertyListAndSaysWhereAndWhy) {
  const struct {
    std::string_view file;
    std::size_t line;
    std::string_view error;
  } cases[] = {
      {"", 1, "ends before"},
      {" \n\n", 3, "ends before"},
      {"bplist00\xD4", 1, "binary"},
      {"bplist00", 1, "binary"},
      {"{ a = 1; }", 1, "text outside"},
      {"\0\0\0\0"sv, 1, "text outside"},
      {"<dict/>", 1, "<plist> is expected"},
      {"\n<plist/>", 2, "without a value"},
      {"<plist>\n</plist>", 2, "without a value"},
      {"<plist>\n<true/>\n<true/></plist>", 3, "second value"},
      {"<plist>\n<key>a</key></plist>", 2, "<key> where"},
      {"<plist>\n<set/></plist>", 2, "do not have"},
      {"<plist>\n<plist><true/></plist></plist>", 2, "do not have"},
      {"<plist><true/>\n</dict>", 2, "</plist> is expected and not the end of \"dict\""},
      {"<plist><true/>\n</plist", 2, "</plist> is expected"},
      {"<plist><true/></plist>\n\n<plist/>", 3, "after the end"},
      {"<plist><true/></plist>\n<?pi?>", 2, "after the end"},
      {"<plist><true/></plist>\n<!-- ", 2, "unfinished comment"},
      {"<plist>\r\n<array>\rtext\n</array></plist>", 3, "text outside"},
      {"<plist><array>\n&lt;</array></plist>", 2, "text outside"},
      {"<plist><array>\n<![CDATA[ ]]></array></plist>", 2, "an element is expected"},
      {"<plist><array>\n<true/>\n</dict></plist>", 3, "</array> is expected"},
      {"<plist><array>\n<true/>", 2, "ends before"},
      {"<plist><dict>\n<true/></dict></plist>", 2, "without a key"},
      {"<plist><dict>\n<key>a</key>\n</dict></plist>", 3, "without a value"},
      {"<plist><dict>\n<key>a</key><key>b</key></dict></plist>", 2, "<key> where"},
      {"<plist>\n<true>1</true></plist>", 2, "text outside"},
      {"<plist>\n<true x></true></plist>", 2, "not well formed"},
      {"<plist>\n<true x=1></true></plist>", 2, "without quotes"},
      {"<plist>\n<true x='></true></plist>", 2, "unfinished attribute"},
      {"<plist>\n<string", 2, "within a tag"},
      {"<plist>\n<", 2, "within a tag"},
      {"<plist>\n<string>a\nb", 3, "within <string>"},
      {"<plist><string>\n<b>x</b></string></plist>", 2, "</string> is expected"},
      {"<plist><string>\n&nbsp;</string></plist>", 2, "\"&nbsp;\""},
      {"<plist><string>\n& </string></plist>", 2, "begins no reference"},
      {"<plist><string>\n&", 2, "begins no reference"},
      {"<plist><string>\n&#xD800;</string></plist>", 2, "no character"},
      {"<plist><string>\n&#1114112;</string></plist>", 2, "no character"},
      {"<plist><string>\n&#99999999999;</string></plist>", 2, "no character"},
      {"<plist><string>\n&#;</string></plist>", 2, "no character"},
      {"<plist><string>\n&#-5;</string></plist>", 2, "no character"},
      {"<plist><string>\n\0</string></plist>"sv, 2, "zero byte"},
      {"<plist><string>\n<![CDATA[\0]]></string></plist>"sv, 2, "zero byte"},
      {"<plist><string>\n<![CDATA[", 2, "unfinished character data"},
      {"<plist><string>\n\xC3(</string></plist>", 2, "not UTF-8"},
      {"<plist><true/></plist>\n<!-- \xED\xA0\x80 -->", 2, "not UTF-8"},
      {"\xFE\xFF\0<\0\n\xD8\x00\0<"sv, 2, "not UTF-16"},
      {"\xFF\xFE<\0\n\0<"sv, 2, "not UTF-16"},
      {"<plist>\n<integer></integer></plist>", 2, "integer"},
      {"<plist>\n<integer/></plist>", 2, "integer"},
      {"<plist>\n<integer>-</integer></plist>", 2, "integer"},
      {"<plist>\n<integer>+-1</integer></plist>", 2, "integer"},
      {"<plist>\n<integer>1 2</integer></plist>", 2, "integer"},
      {"<plist>\n<integer>1.5</integer></plist>", 2, "integer"},
      {"<plist>\n<integer>0x</integer></plist>", 2, "integer"},
      {"<plist>\n<integer>18446744073709551616</integer></plist>", 2, "64 bits"},
      {"<plist>\n<integer>-9223372036854775809</integer></plist>", 2, "64 bits"},
      {"<plist>\n<integer>0x10000000000000000</integer></plist>", 2, "64 bits"},
      {"<plist>\n<real></real></plist>", 2, "real"},
      {"<plist>\n<real/></plist>", 2, "real"},
      {"<plist>\n<real>1,5</real></plist>", 2, "real"},
      {"<plist>\n<real>-</real></plist>", 2, "real"},
      {"<plist>\n<real>--1</real></plist>", 2, "real"},
      {"<plist>\n<real>nan(1)</real></plist>", 2, "real"},
      {"<plist>\n<real>1e999</real></plist>", 2, "real"},
      {"<plist>\n<real>0.0001e99999999999999999999</real></plist>", 2, "real"},
      {"<?xml version='1.0' encoding=\"ISO-8859-1\"?>\n<plist><string>\xE9</string></plist>", 1,
       "\"ISO-8859-1\""},
      {"<?xml version='1.0' encoding='UTF-8x'?><plist><true/></plist>", 1, "\"UTF-8x\""},
      {"<!DOCTYPE plist [\n<!ENTITY a 'x'>]>\n<plist><true/></plist>", 1, "declarations"},
      {"<!DOCTYPE plist>\n<!DOCTYPE plist>\n<plist><true/></plist>", 2, "an element is expected"},
      {"\n<!ENTITY a 'x'>\n<plist><true/></plist>", 2, "entity declaration"},
      {"\n<!DOCTYPE plist '", 2, "unfinished document type"},
      {"\n<?xml version", 2, "unfinished processing instruction"},
  };
  for (const auto& c : cases) {
    const ReadResult result = Read(c.file);
    EXPECT_FALSE(result.ok) << c.file;
    EXPECT_TRUE(result.value.IsNone());
    EXPECT_EQ(result.line, c.line) << c.file << ": " << result.error;
    const std::string error = Message(result.error, result.details);
    EXPECT_NE(error.find(c.error), std::string::npos) << c.file << ": " << error;
  }
}

TEST(Reader, TakesUpTo512Levels) {
  const struct {
    std::string_view opening;
    std::string_view closing;
  } cases[] = {{"<array>", "</array>"}, {"<dict><key>a</key>\n", "</dict>"}};
  for (const auto& c : cases) {
    const auto nested = [&c](int levels) {
      return Repeated(c.opening, levels - 1) + "<array/>" + Repeated(c.closing, levels - 1);
    };
    EXPECT_TRUE(Read(InPlist(nested(512))).ok);
    for (const int levels : {513, 1'000'000}) {
      const ReadResult result = Read(InPlist(nested(levels)));
      EXPECT_FALSE(result.ok);
      EXPECT_EQ(result.error, "more than 512 levels");
      EXPECT_EQ(result.line, c.opening.ends_with('\n') ? 513U : 1U);
    }
  }
}

TEST(Reader, TakesManyKeysAndManyRepetitions) {
  constexpr int kCount = 100'000;
  std::string content = "<dict>";
  for (int i = 0; i < 2 * kCount; ++i) {
    content +=
        "<key>" + std::to_string(i % kCount) + "</key><integer>" + std::to_string(i) + "</integer>";
  }
  const ReadResult result = Read(InPlist(content + "</dict>"));
  const Dictionary dictionary = result.value.DictionaryValue();
  ASSERT_EQ(dictionary.size(), std::size_t{kCount});
  EXPECT_EQ(dictionary.begin()[5].key(), "5");
  for (int i = kCount - 1; i >= 0; --i) {
    ASSERT_EQ(dictionary.Get(std::to_string(i)), Value(i + kCount));
  }
}

// A key that comes again is guessed from the keys before; the guess must not take what is no key.
TEST(Reader, ReadsKeysThatAreGuessedAsStrictlyAsOthers) {
  const auto twice = [](std::string_view again) {
    return InPlist(
        "<array><dict><key>first</key><true/><key>a&lt;long key</key><true/></dict>"
        "<dict><key>first</key><true/><key>" +
        std::string(again) + "</key><false/></dict></array>");
  };
  EXPECT_EQ(Describe(Read(twice("a&lt;long key")).value),
            "[{first:true,a<long key:true},{first:true,a<long key:false}]");
  EXPECT_FALSE(Read(twice("a<long key")).ok);
}

std::string SmallFile() {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist SYSTEM \"x\">\n"
         "<plist version=\"1.0\">\n<dict>\n\t<key>caf\xC3\xA9</key>\n\t<string>a &amp; long text, "
         "&#13; here<![CDATA[<]]></string>\n\t<key>n</key>\n\t<array><integer>-5</integer>"
         "<real>0.5</real><true/><date>x</date><data>AA==</data><!-- c --></array>\n"
         "\t<key>n</key>\n\t<dict/>\n</dict>\n</plist>\n";
}

TEST(Reader, RefusesEveryTruncatedFile) {
  const std::string file = SmallFile();
  ASSERT_TRUE(Read(file).ok);
  for (std::size_t size = 0; size + 1 < file.size(); ++size) {
    // A copy of just that size lets the sanitizer see a read beyond it.
    const std::string part(file, 0, size);
    EXPECT_FALSE(Read(part).ok) << part;
  }
}

TEST(Reader, TakesOrRefusesEveryFileWithOneWrongBit) {
  const std::string file = SmallFile();
  for (std::size_t bit = 0; bit < file.size() * 8; ++bit) {
    std::string damaged = file;
    damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
    const ReadResult result = Read(damaged);
    if (result.ok) {
      EXPECT_EQ(Read(ToXml(result.value)).value, result.value) << damaged;
    } else {
      EXPECT_GE(result.line, 1U);
      EXPECT_FALSE(result.error.empty());
    }
  }
}

}  // namespace
}  // namespace tallyfold::plist
