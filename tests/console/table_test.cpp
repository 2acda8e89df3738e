#include "console/table.h"

#include <gtest/gtest.h>

namespace tallyfold::console {
namespace {

Table Sample() {
  Table table({{"number", Column::Align::Right}, {"name"}, {"balance", Column::Align::Right}});
  table.Add({"1", "Café\tZoë", "12.50"});
  table.Add({"12", "銀行", "-1.00"});
  table.Add({"3", "a\u0301", ""});
  return table;
}

TEST(Tables, AreTabSeparatedForPrograms) {
  EXPECT_EQ(Sample().TabSeparated(),
            "number\tname\tbalance\n"
            "1\tCafé\\tZoë\t12.50\n"
            "12\t銀行\t-1.00\n"
            "3\ta\u0301\t\n");
  EXPECT_EQ(Table({{"line"}}).TabSeparated(), "line\n");
}

TEST(Tables, AreAlignedForPeopleByWhatCharactersTake) {
  EXPECT_EQ(Sample().Aligned(),
            "number  name       balance\n"
            "     1  Café\\tZoë    12.50\n"
            "    12  銀行         -1.00\n"
            "     3  a\u0301\n");
}

TEST(Tables, FitTheScreenByTheirTextsAlone) {
  Table table(
      {{"number", Column::Align::Right}, {"date"}, {"payee"}, {"balance", Column::Align::Right}});
  table.Add({"1", "2026-03-02", "Café Zoë by the quay", "1234567.50"});
  table.Add({"12", "", "銀行銀行銀行銀行銀行", "-1.00"});
  table.Add({"3", "", "2026-01-01 - 2026", ""});
  EXPECT_EQ(table.Aligned(52), table.Aligned());
  EXPECT_EQ(table.Aligned(49),
            "number  date        payee                 balance\n"
            "     1  2026-03-02  Café Zoë by the…   1234567.50\n"
            "    12              銀行銀行銀行銀行…       -1.00\n"
            "     3              2026-01-01 - 2026\n");
  // Days and amounts are never cut, and what remains of a text says that it is cut.
  Table narrow({{"date"}, {"to"}, {"amount", Column::Align::Right}});
  narrow.Add({"2026-03-02", "Grandma", "-5.00"});
  EXPECT_EQ(narrow.Aligned(10), "date        to   amount\n2026-03-02  Gr…   -5.00\n");
  Table told({{"part"}, {"text", Column::Align::Left, Column::Long::GoesOn}});
  told.Add({"does", "one two three abcdefghijklmnop four"});
  EXPECT_EQ(told.Aligned(14),
            "part  text\ndoes  one two\n      three\n      abcdefgh\n      ijklmnop\n      four\n");
}

TEST(Tables, GiveATerminalNothingThatItWouldNotShow) {
  Table table({{"text"}});
  table.Add({"a\u202Eb\u2028c\u2066d\uFEFF"});
  table.Add({"\xFF\x9B\U000E0001"});
  table.Add({"👩\u200D👧"});
  EXPECT_EQ(table.Aligned(),
            "text\na\\u202eb\\u2028c\\u2066d\\ufeff\n\\xff\\x9b\\U000e0001\n👩\u200D👧\n");
  EXPECT_EQ(Printable("a\u202E\\\x1b"), "a\\u202e\\\\x1b");
  EXPECT_EQ(PrintablePage("a\u2029\n\fb\t"), "a\\u2029\n\fb\\t");
}

TEST(Cells, AreEscapedSoThatNoTextLeavesItsCellOrDrivesATerminal) {
  struct Case {
    std::string_view text;
    std::string_view escaped;
  } const cases[] = {
      {"plain é 銀", "plain é 銀"},
      {"a\tb\nc\rd\\", R"(a\tb\nc\rd\\)"},
      {"\x1b[2J\x7f", R"(\x1b[2J\x7f)"},
      {"\u009b"
       "2J",
       R"(\x9b2J)"},
      {"\xff\xc3", "\xff\xc3"},
      {std::string_view("\0", 1), R"(\x00)"},
  };
  for (const Case& c : cases) EXPECT_EQ(Escaped(c.text), c.escaped);
}

}  // namespace
}  // namespace tallyfold::console
