#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_ambient.h"
#include "filters/filter_types.h"
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

// The rules of every list as "list logic qualifier data;".
std::string Rules(const LDGRFilter& filter) {
  std::string text;
  for (const plist::DictionaryItem& item : filter.asDictionary()) {
    for (const plist::Value& value : item.value().ArrayValue()) {
      const plist::Dictionary rule = value.DictionaryValue();
      const plist::Value& data = rule.Get("data");
      text.append(item.key()).append(" ");
      text += std::to_string(rule.Get("logic").IntegerValue()) + " ";
      text += std::to_string(rule.Get("qualifier").IntegerValue()) + " ";
      text += data.IsString() ? "'" + std::string(data.StringValue()) + "'"
              : data.kind() == plist::Kind::Boolean
                  ? std::string(data.BooleanValue() ? "YES" : "NO")
                  : std::to_string(data.IntegerValue());
      text += ";";
    }
  }
  return text;
}

TEST_F(AccountFilterTest, MakesAFilterOfEveryType) {
  AddEntry(20030230);  // a day no calendar has
  AddEntry(20031224);
  struct Case {
    std::int32_t type;
    std::string_view name;
    bool takes_text;
    std::string_view rules;
  };
  const std::vector<Case> cases = {
      {0, "General", true, "filter_general 1 6 'tea';"},
      {10, "Description", true, "filter_description 1 6 'tea';"},
      {11, "To/From", true, "filter_tofrom 1 6 'tea';"},
      {12, "Type", true, "filter_type 1 6 'tea';"},
      {13, "Notes", true, "filter_notes 1 6 'tea';"},
      {14, "Amount", true, "filter_amountstring 1 6 'tea';"},
      {15, "Check Number", true, "filter_checknumberstring 1 6 'tea';"},
      {20, "Through Today", false, "filter_date 1 2 20030229;filter_date 1 0 20040102;"},
      {21, "Today", false, "filter_date 1 2 20040100;filter_date 1 0 20040102;"},
      {22, "Yesterday", false, "filter_date 1 2 20031230;filter_date 1 0 20031232;"},
      {30, "This Week", false, "filter_date 1 2 20031227;filter_date 1 0 20040104;"},
      {31, "This Month", false, "filter_date 1 2 20040100;filter_date 1 0 20040132;"},
      {32, "This Quarter", false, "filter_date 1 2 20040100;filter_date 1 0 20040332;"},
      {33, "This Year", false, "filter_date 1 2 20040100;filter_date 1 0 20041232;"},
      {40, "Last Week", false, "filter_date 1 2 20031220;filter_date 1 0 20031228;"},
      {41, "Last Month", false, "filter_date 1 2 20031200;filter_date 1 0 20031232;"},
      {42, "Last Quarter", false, "filter_date 1 2 20031000;filter_date 1 0 20031232;"},
      {43, "Last Year", false, "filter_date 1 2 20030100;filter_date 1 0 20031232;"},
      {50, "Week To Date", false, "filter_date 1 2 20031227;filter_date 1 0 20040102;"},
      {51, "Month To Date", false, "filter_date 1 2 20040100;filter_date 1 0 20040102;"},
      {52, "Quarter To Date", false, "filter_date 1 2 20040100;filter_date 1 0 20040102;"},
      {53, "Year To Date", false, "filter_date 1 2 20040100;filter_date 1 0 20040102;"},
      {70, "Split To/From", true, "filter_split_tofrom 1 6 'tea';"},
      {71, "Split Description", true, "filter_split_description 1 6 'tea';"},
      {80, "Resolved", false, "filter_cleared 1 1 YES;"},
      {81, "Unresolved", false, "filter_cleared 1 1 NO;"},
      {90, "Tax-Deductible", false, "filter_taxdeductible 1 1 YES;"},
      {91, "Taxable", false, "filter_taxdeductible 1 1 NO;"},
      {1, "Untitled Filter", true, "filter_general 1 6 '';"},
      {-9999, "Untitled Filter", true, "filter_general 1 6 '';"},
  };
  for (const Case& c : cases) {
    const auto filter = account_.filterTypeAsLDGRFilter(c.type, "tea");
    EXPECT_EQ(filter->GetName(), c.name) << c.type;
    EXPECT_EQ(dynamic_cast<LDGRSearchFilter*>(filter.get()) != nullptr, c.takes_text) << c.type;
    EXPECT_EQ(Rules(*filter), c.rules) << c.type;
  }
  EXPECT_EQ(FilterTypes().size() + 2, cases.size());
  EXPECT_EQ(Rules(*account_.filterTypeAsLDGRFilter(10, {})), "filter_description 1 6 '';");
}

TEST_F(AccountFilterTest, ShowsTodayThroughTodayWithoutEntries) {
  EXPECT_EQ(Rules(*account_.filterTypeAsLDGRFilter(20, "")),
            Rules(*account_.filterTypeAsLDGRFilter(21, "")));
}

TEST_F(AccountFilterTest, CountsDaysByTheCalendarWhereMidnightIsSkipped) {
  ambient_.clock.SetZone(ZoneWithoutAMidnight());
  ambient_.clock.SetLocal({2018, 11, 4, 0, 0, 0});  // taken as 01:00, when the day begins
  EXPECT_EQ(Rules(*account_.filterTypeAsLDGRFilter(21, "")),
            "filter_date 1 2 20181103;filter_date 1 0 20181105;");
  EXPECT_EQ(Rules(*account_.filterTypeAsLDGRFilter(22, "")),
            "filter_date 1 2 20181102;filter_date 1 0 20181104;");
  EXPECT_EQ(Rules(*account_.filterTypeAsLDGRFilter(30, "")),
            "filter_date 1 2 20181103;filter_date 1 0 20181111;");
}

TEST_F(AccountFilterTest, KeepsAFilterForEachRegister) {
  for (const DateNumber date : {20031231, 20040101, 20040102}) AddEntry(date);
  account_.setEntryFilterType(21);
  account_.setReconcileFilterType(99);
  EXPECT_EQ(account_.entryFilteredEntries().size(), 1U);
  EXPECT_EQ(account_.reconcileFilteredEntries().size(), 3U);
  account_.setReconcileFilterType(10);
  account_.setReconcileFilterData(12);  // of a kind no description is
  EXPECT_EQ(account_.reconcileFilter()->GetName(), "Description");
  EXPECT_TRUE(account_.reconcileFilteredEntries().empty());
  account_.setReconcileFilterData({});
  EXPECT_EQ(account_.reconcileFilteredEntries().size(), 3U);
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
