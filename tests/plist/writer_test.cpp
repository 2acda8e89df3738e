#include "plist/writer.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "plist/describe.h"
#include "plist/reader.h"

namespace tallyfold::plist {
namespace {

using std::string_view_literals::operator""sv;

constexpr double kInfinite = std::numeric_limits<double>::infinity();

// What the writer makes of one value, without header, footer and line end.
std::string Element(const Value& value) {
  const std::string file = ToXml(value);
  const std::string_view before = "<plist version=\"1.0\">\n";
  const std::size_t start = file.find(before) + before.size();
  return file.substr(start, file.rfind("\n</plist>\n") - start);
}

TEST(Writer, WritesTheFormWithTabs) {
  Dictionary entry;
  entry.Set("date", 20040307);
  entry.Set("amount", -12.0);
  entry.Set("split", Dictionary());
  entry.Set("notes", "");
  Dictionary account;
  account.Set("entries", [&] {
    Array entries;
    entries.Append(entry);
    entries.Append(true);
    return entries;
  }());
  account.Set("a&b", Array());
  account.Set("when", Value::Opaque(Kind::Date, "2004-03-07T00:00:00Z"));
  account.Set("bytes", Value::Opaque(Kind::Data, "\n\tAA==\n\t"));
  EXPECT_EQ(ToXml(account), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>entries</key>
	<array>
		<dict>
			<key>date</key>
			<integer>20040307</integer>
			<key>amount</key>
			<real>-12</real>
			<key>split</key>
			<dict/>
			<key>notes</key>
			<string></string>
		</dict>
		<true/>
	</array>
	<key>a&amp;b</key>
	<array/>
	<key>when</key>
	<date>2004-03-07T00:00:00Z</date>
	<key>bytes</key>
	<data>
	AA==
	</data>
</dict>
</plist>
)");
}

TEST(Writer, WritesTextsSoThatTheyReadBack) {
  const struct {
    std::string_view text;
    std::string_view written;
  } cases[] = {
      {"<a> & \"b\" 'c'", "&lt;a&gt; &amp; \"b\" 'c'"},
      {" \ttabs\nand lines\n", " \ttabs\nand lines\n"},
      {"\r\n\x01\x1F\x7F", "&#13;\n&#1;&#31;&#127;"},
      {"zero\0byte"sv, "zero&#0;byte"},
      {"]]>", "]]&gt;"},
      {"caf\u00E9 \u0080\u009F\u00A0\u20AC\U0001F600",
       "caf\u00E9 &#128;&#159;\u00A0\u20AC\U0001F600"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Element(c.text), "<string>" + std::string(c.written) + "</string>");
    Dictionary dictionary;
    dictionary.Set(c.text, Value::Opaque(Kind::Data, c.text));
    EXPECT_EQ(Read(ToXml(dictionary)).value, Value(dictionary)) << c.written;
  }
}

TEST(Writer, DoesNotLetInvalidTextSpoilTheFile) {
  Dictionary dictionary;
  dictionary.Set("caf\xE9", "\xFF & \xED\xA0\x80");
  const ReadResult result = Read(ToXml(dictionary));
  EXPECT_EQ(Describe(result.value), "{caf\uFFFD:\"\uFFFD & \uFFFD\uFFFD\uFFFD\"}") << result.error;
}

TEST(Writer, WritesNumbersSoThatTheyReadBackTheSame) {
  const struct {
    Value value;
    std::string_view written;
  } cases[] = {
      {std::numeric_limits<std::int64_t>::min(), "<integer>-9223372036854775808</integer>"},
      {std::numeric_limits<std::int64_t>::max(), "<integer>9223372036854775807</integer>"},
      {0.0, "<real>0</real>"},
      {-0.0, "<real>-0</real>"},
      {100000.0, "<real>100000</real>"},
      {-0.07, "<real>-0.07</real>"},
      {1234.5, "<real>1234.5</real>"},
      {0.125, "<real>0.125</real>"},
      {0.1 + 0.2, "<real>0.30000000000000004</real>"},
      {9999999999999.99, "<real>9999999999999.99</real>"},
      {1e15, "<real>1e+15</real>"},
      {1e-7, "<real>1e-07</real>"},
      {std::nan(""), "<real>nan</real>"},
      {kInfinite, "<real>+infinity</real>"},
      {-kInfinite, "<real>-infinity</real>"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Element(c.value), c.written);
    const Value read = Read(ToXml(c.value)).value;
    EXPECT_EQ(read, c.value) << c.written;
    EXPECT_EQ(std::signbit(read.DoubleValue()), std::signbit(c.value.DoubleValue())) << c.written;
  }
}

TEST(Writer, WritesAmountsWithTheirShortestDigits) {
  std::mt19937_64 random(1);
  Array amounts;
  std::string expected;
  for (std::int64_t i = 0; i < 20'000; ++i) {
    const std::int64_t cents = i < 10'000 ? i - 5'000 : static_cast<std::int64_t>(random() >> 13);
    const double amount = static_cast<double>(cents) / 100.0;
    char digits[64];
    char* end = std::to_chars(digits, digits + sizeof digits, amount, std::chars_format::fixed).ptr;
    amounts.Append(amount);
    if (std::fabs(amount) < 1e15) {
      ASSERT_EQ(Element(amount), "<real>" + std::string(digits, end) + "</real>");
    }
  }
  EXPECT_EQ(Read(ToXml(amounts)).value, Value(amounts));
}

TEST(Writer, WritesEveryRealSoThatItReadsBackTheSame) {
  std::mt19937_64 random(2);
  Array reals;
  for (int i = 0; i < 20'000; ++i) reals.Append(std::bit_cast<double>(random()));
  const std::string file = ToXml(reals);
  const Value read = Read(file).value;
  EXPECT_EQ(read, Value(reals));
  EXPECT_EQ(ToXml(read), file);
}

TEST(Writer, HandsOutBlocksOfItsSizeAndAllOfThem) {
  Array array;
  for (int i = 0; i < 600; ++i) array.Append(std::string(static_cast<std::size_t>(i), '<'));
  array.Append(std::string(5 * XmlWriter::kBlockSize, 'x'));
  std::vector<std::size_t> sizes;
  std::string file;
  XmlWriter writer([&](std::string_view block) {
    sizes.push_back(block.size());
    file += block;
  });
  writer.Write(array);
  writer.Finish();
  EXPECT_EQ(Read(file).value, Value(array));
  sizes.pop_back();
  for (const std::size_t size : sizes) {
    EXPECT_LE(size, XmlWriter::kBlockSize);
    EXPECT_GT(size, XmlWriter::kBlockSize - 1024);
  }
}

TEST(Writer, WritesAsDeepAsTheReaderReads) {
  Value value("innermost");
  for (int level = 0; level < kMaximumDepth; ++level) {
    Array array;
    array.Append(std::move(value));
    value = Value(std::move(array));
  }
  EXPECT_EQ(Read(ToXml(value)).value, value);
}

}  // namespace
}  // namespace tallyfold::plist
