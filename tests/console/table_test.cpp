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
