#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_ambient.h"
#include "filters/filter_types.h"
#include "filters/rules_of.h"
#include "filters/search_filter.h"
#include "model/account.h"

namespace tallyfold {
namespace {

class AccountFilterTest : public testing::Test {
 protected:
  AccountFilterTest() { ambient_.clock.SetLocal({2004, 1, 1, 9, 0, 0}); }

  void AddEntry(DateNumber date) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetDate(date);
    account_.AddEntry(std::move(entry));
  }

  FakeAmbient ambient_;
  LDGRAccount account_;
};

TEST_F(AccountFilterTest, MakesAFilterOfEveryType) {
  ambient_.clock.SetLocal({2004, 5, 12, 9, 0, 0});  // a Wednesday
  AddEntry(20030230);                               // a day no calendar has
  AddEntry(20031224);
  struct Case {
    std::int32_t type;
    std::string_view name;
    bool takes_text;
    std::string_view rules;
  };
  const std::vector<Case> cases = {
      {0, "General", true, " general 1 6 'tea'"},
      {10, "Description", true, " description 1 6 'tea'"},
      {11, "To/From", true, " tofrom 1 6 'tea'"},
      {12, "Type", true, " type 1 6 'tea'"},
      {13, "Notes", true, " notes 1 6 'tea'"},
      {14, "Amount", true, " amountstring 1 6 'tea'"},
      {15, "Check Number", true, " checknumberstring 1 6 'tea'"},
      {20, "Through Today", false, " date 1 2 20030229 date 1 0 20040513"},
      {21, "Today", false, " date 1 2 20040511 date 1 0 20040513"},
      {22, "Yesterday", false, " date 1 2 20040510 date 1 0 20040512"},
      {30, "This Week", false, " date 1 2 20040508 date 1 0 20040516"},
      {31, "This Month", false, " date 1 2 20040500 date 1 0 20040532"},
      {32, "This Quarter", false, " date 1 2 20040400 date 1 0 20040631"},
      {33, "This Year", false, " date 1 2 20040100 date 1 0 20041232"},
      {40, "Last Week", false, " date 1 2 20040501 date 1 0 20040509"},
      {41, "Last Month", false, " date 1 2 20040400 date 1 0 20040431"},
      {42, "Last Quarter", false, " date 1 2 20040100 date 1 0 20040332"},
      {43, "Last Year", false, " date 1 2 20030100 date 1 0 20031232"},
      {50, "Week To Date", false, " date 1 2 20040508 date 1 0 20040513"},
      {51, "Month To Date", false, " date 1 2 20040500 date 1 0 20040513"},
      {52, "Quarter To Date", false, " date 1 2 20040400 date 1 0 20040513"},
      {53, "Year To Date", false, " date 1 2 20040100 date 1 0 20040513"},
      {70, "Split To/From", true, " split_tofrom 1 6 'tea'"},
      {71, "Split Description", true, " split_description 1 6 'tea'"},
      {80, "Resolved", false, " cleared 1 1 YES"},
      {81, "Unresolved", false, " cleared 1 1 NO"},
      {90, "Tax-Deductible", false, " taxdeductible 1 1 YES"},
      {91, "Taxable", false, " taxdeductible 1 1 NO"},
      {1, "Untitled Filter", true, " general 1 6 ''"},
      {-9999, "Untitled Filter", true, " general 1 6 ''"},
  };
  for (const Case& c : cases) {
    const auto filter = account_.filterTypeAsLDGRFilter(c.type, "tea");
    EXPECT_EQ(filter->GetName(), c.name) << c.type;
    EXPECT_EQ(dynamic_cast<LDGRSearchFilter*>(filter.get()) != nullptr, c.takes_text) << c.type;
    EXPECT_EQ(RulesOf(*filter), c.rules) << c.type;
  }
  EXPECT_EQ(FilterTypes().size() + 2, cases.size());
  EXPECT_EQ(RulesOf(*account_.filterTypeAsLDGRFilter(10, {})), " description 1 6 ''");
}

TEST_F(AccountFilterTest, ShowsTodayThroughTodayWithoutEntries) {
  EXPECT_EQ(RulesOf(*account_.filterTypeAsLDGRFilter(20, "")),
            RulesOf(*account_.filterTypeAsLDGRFilter(21, "")));
}

TEST_F(AccountFilterTest, CountsDaysByTheCalendarWhereMidnightIsSkipped) {
  ambient_.clock.SetZone(ZoneWithoutAMidnight());
  ambient_.clock.SetLocal({2018, 11, 4, 0, 0, 0});  // taken as 01:00, when the day begins
  EXPECT_EQ(RulesOf(*account_.filterTypeAsLDGRFilter(21, "")),
            " date 1 2 20181103 date 1 0 20181105");
  EXPECT_EQ(RulesOf(*account_.filterTypeAsLDGRFilter(22, "")),
            " date 1 2 20181102 date 1 0 20181104");
  EXPECT_EQ(RulesOf(*account_.filterTypeAsLDGRFilter(30, "")),
            " date 1 2 20181103 date 1 0 20181111");
}

TEST(FilterMenu, OffersEveryTypeOnceAndMarksTheOneInForce) {
  // Tags in the order of the menu, with "|" for a separator and brackets around submenus; after
  // each tag a check mark "+" or a mixed mark "~".
  const auto menu = [](std::int32_t type) {
    const auto text = [type](const FilterMenuItem& item) {
      if (item.is_separator) return std::string("|");
      const MenuMark mark = MarkOfFilterMenuItem(item, type);
      return std::to_string(item.tag) + (mark == MenuMark::On      ? "+"
                                         : mark == MenuMark::Mixed ? "~"
                                                                   : "");
    };
    std::string result;
    for (const FilterMenuItem& item : FilterMenu()) {
      result += " " + text(item);
      if (item.submenu.empty()) continue;
      result += " (";
      for (const FilterMenuItem& child : item.submenu) result += " " + text(child);
      result += " )";
    }
    return result;
  };
  EXPECT_EQ(menu(-9999),
            " 0 10 11 12 13 14 15 -2 ( 70 71 ) | 20 21 22 -3 ( 30 31 32 33 | 40 41 42 43 |"
            " 50 51 52 53 ) | 80 81 | 90 91");
  EXPECT_TRUE(menu(0).starts_with(" 0+ 10 11 "));
  EXPECT_EQ(menu(42),
            " 0 10 11 12 13 14 15 -2 ( 70 71 ) | 20 21 22 -3~ ( 30 31 32 33 | 40 41 42+ 43 |"
            " 50 51 52 53 ) | 80 81 | 90 91");
}

}  // namespace
}  // namespace tallyfold
