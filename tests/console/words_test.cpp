#include "console/words.h"

#include <gtest/gtest.h>

namespace tallyfold::console {
namespace {

// Words as one text that tells plain words from options: "a|key=text".
std::string Shown(const Line& line) {
  if (!line.error.empty()) return "error: " + line.error;
  std::string shown = line.may_fail ? "(may fail)" : "";
  for (const Word& word : line.words) {
    if (!shown.empty() && shown.back() != ')') shown += '|';
    shown += word.IsOption() ? word.key + "=<" + word.text + ">" : '<' + word.text + '>';
  }
  return shown;
}

TEST(Words, AreTakenApartAsTyped) {
  const std::string not_closed = "error: a quotation mark is not closed";
  const std::string bad_escape =
      R"(error: a backslash between quotation marks must be \" or \\ or \n or \t)";
  struct Case {
    std::string_view typed;
    std::string words;
  } const cases[] = {
      {"", ""},
      {" \t ", ""},
      {"register", "<register>"},
      {"  select\t 3  ", "<select>|<3>"},
      {"select Joint\r", "<select>|<Joint>"},
      {"\xEF\xBB\xBFselect Joint", "<select>|<Joint>"},
      {"select \"Joint  account\"", "<select>|<Joint  account>"},
      {"select Joint\" \"account", "<select>|<Joint account>"},
      {R"(debit notes="say \"so\"\n\\ \t.")", "<debit>|notes=<say \"so\"\n\\ \t.>"},
      {R"(saveas a\b)", R"(<saveas>|<a\b>)"},
      {"debit amount=12.50 to=\"Corner Market\"", "<debit>|amount=<12.50>|to=<Corner Market>"},
      {"edit 3 notes=", "<edit>|<3>|notes=<>"},
      {"edit 3 notes=\"\" \"\"", "<edit>|<3>|notes=<>|<>"},
      {"a b=c=d", "<a>|b=<c=d>"},
      {"select \"a=b\"", "<select>|<a=b>"},
      {"select a\"=\"b", "<select>|<a=b>"},
      {"select a.b=c =d", "<select>|<a.b=c>|<=d>"},
      {"Überweisung an=Zoë", "<Überweisung>|an=<Zoë>"},
      {"# a comment with an open \"", ""},
      {"#3", ""},
      {"save # now \"", "<save>"},
      {"save #now", "<save>"},
      {"clear #3 #12 #3rd", "<clear>|<#3>|<#12>"},
      {"clear #3-#7 #8-9 #3-", "<clear>|<#3-#7>|<#8-9>"},
      {"clear #3-#", "<clear>"},
      {"clear \"#x\" a#b #", "<clear>|<#x>|<a#b>"},
      {"-remove 9", "(may fail)<remove>|<9>"},
      {" - remove -9", "(may fail)<remove>|<-9>"},
      {"-", "(may fail)"},
      {"select \"Joint", not_closed},
      {"select \"Joint\\", bad_escape},
      {"select \"\\x41\"", bad_escape},
      {"- select \"", not_closed},
      {"select a\xFF\x01z\x7F", "<select>|<a\xEF\xBF\xBDz>"},
  };
  for (const Case& c : cases) EXPECT_EQ(Shown(ReadWords(c.typed)), c.words) << c.typed;
  EXPECT_TRUE(ReadWords("- select \"").may_fail);
}

TEST(Words, AreQuotedSoThatTheyReadBack) {
  for (const std::string_view text : {"", "Joint", "a \"b\" \\ c\n\t#=", "-x", "#3"}) {
    const Line line = ReadWords("x " + Quoted(text));
    ASSERT_EQ(line.words.size(), 2U) << text;
    EXPECT_EQ(line.words[1], (Word{"", std::string(text)}));
  }
}

}  // namespace
}  // namespace tallyfold::console
