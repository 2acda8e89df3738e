#include "filters/standard_filters.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_ambient.h"
#include "filters/search_filter.h"

namespace tallyfold {
namespace {

// "number name: category" of a search filter, "number name: after before" of one for days, "number
// name: YES" of one for cleared marks.
std::string Line(const LDGRFilter& filter) {
  std::string line = std::to_string(filter.GetNumber()) + " " + filter.GetName() + ":";
  if (filter.GetType() == FilterKind::Search) {
    EXPECT_NE(dynamic_cast<const LDGRSearchFilter*>(&filter), nullptr);
    EXPECT_EQ(filter.GetDataForSetCategory(), plist::Value(""));
    return line + " " + filter.GetCategory().value_or("none");
  }
  for (const plist::Value& rule : filter.objectForKey(filter_category::kDate).ArrayValue()) {
    line += " " + std::to_string(rule.DictionaryValue().Get("data").IntegerValue());
  }
  for (const plist::Value& rule : filter.objectForKey(filter_category::kCleared).ArrayValue()) {
    line += rule.DictionaryValue().Get("data").BooleanValue() ? " YES" : " NO";
  }
  return line;
}

std::string List(const StandardFilters& filters) {
  std::string text;
  for (const auto& filter : filters.Filters()) text += Line(*filter) + "\n";
  return text;
}

TEST(StandardFilters, TakeInTheFirstDayAfterTheirPeriod) {
  FakeAmbient ambient;
  StandardFilters filters;
  EXPECT_EQ(filters.NextAvailableFilterNumber(), 0);
  ambient.clock.SetLocal({2004, 3, 3, 17, 30, 5});
  filters.Filters_Init();
  const std::string search_filters =
      "0 General...: filter_general\n"
      "1 Description...: filter_description\n"
      "2 To/From...: filter_tofrom\n"
      "3 Type...: filter_type\n"
      "4 Split Description...: filter_split_description\n"
      "5 Split To/From...: filter_split_tofrom\n";
  EXPECT_EQ(List(filters), search_filters +
                               "6 Today: 20040302 20040304\n"
                               "7 Yesterday: 20040301 20040303\n"
                               "8 This Week: 20040228 20040308\n"
                               "9 This Month: 20040300 20040402\n"
                               "10 This Quarter: 20040100 20040402\n"
                               "11 This Year: 20040100 20050102\n"
                               "12 Last Week: 20040221 20040230\n"
                               "13 Last Month: 20040200 20040302\n"
                               "14 Last Quarter: 20031000 20040102\n"
                               "15 Last Year: 20030100 20040102\n"
                               "16 Resolved: YES\n"
                               "17 Unresolved: NO\n");

  // The last of a month: periods start from the first, so no month rolls over.
  ambient.clock.SetLocal({2005, 12, 31, 0, 0, 0});
  EXPECT_NE(List(filters).find("Today: 20040302"), std::string::npos);
  filters.Filters_DateFilters_Update();
  EXPECT_EQ(List(filters), search_filters +
                               "6 Today: 20051230 20051232\n"
                               "7 Yesterday: 20051229 20051231\n"
                               "8 This Week: 20051224 20060102\n"
                               "9 This Month: 20051200 20060102\n"
                               "10 This Quarter: 20051000 20060102\n"
                               "11 This Year: 20050100 20060102\n"
                               "12 Last Week: 20051217 20051226\n"
                               "13 Last Month: 20051100 20051202\n"
                               "14 Last Quarter: 20050700 20051002\n"
                               "15 Last Year: 20040100 20050102\n"
                               "16 Resolved: YES\n"
                               "17 Unresolved: NO\n");
  filters.Filters_Init();
  EXPECT_EQ(filters.Filters().size(), 18U);
  EXPECT_EQ(filters.NextAvailableFilterNumber(), 18);
}

TEST(StandardFilters, AreFoundByNumber) {
  FakeAmbient ambient;
  StandardFilters filters;
  filters.Filters_Init();
  struct Case {
    std::int32_t number;
    std::int32_t menu_index;
  };
  for (const Case& c : {Case{-1, -1}, Case{0, 0}, Case{3, 3}, Case{4, 5}, Case{13, 14},
                        Case{14, 16}, Case{15, 17}, Case{16, -1}, Case{17, -1}, Case{18, -1}}) {
    EXPECT_EQ(filters.FilterNumberToMenuIndex(c.number), c.menu_index) << c.number;
    const auto filter = filters.FilterNumberToFilter(c.number);
    EXPECT_EQ(filter != nullptr, c.number >= 0 && c.number < 18) << c.number;
    if (filter == nullptr) continue;
    EXPECT_EQ(filter->GetNumber(), c.number);
  }
  // Of filters that share a number the first is found, and the last has the menu's item.
  filters.Filters()[9]->SetNumber(2);
  EXPECT_EQ(filters.FilterNumberToFilter(2), filters.Filters()[2]);
  EXPECT_EQ(filters.FilterNumberToMenuIndex(2), 10);
}

}  // namespace
}  // namespace tallyfold
