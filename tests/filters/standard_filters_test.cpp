#include "filters/standard_filters.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_ambient.h"
#include "filters/rules_of.h"
#include "filters/search_filter.h"

namespace tallyfold {
namespace {

// "number name: rules", a line for each.
std::string List(const StandardFilters& filters) {
  std::string text;
  for (const auto& filter : filters.Filters()) {
    const bool is_search = dynamic_cast<const LDGRSearchFilter*>(filter.get()) != nullptr;
    EXPECT_EQ(filter->GetType() == FilterKind::Search, is_search);
    EXPECT_EQ(filter->GetCategory().has_value(), is_search);
    text += std::to_string(filter->GetNumber()) + " " + filter->GetName() + ":" + RulesOf(*filter) +
            "\n";
  }
  return text;
}

TEST(StandardFilters, TakeInTheFirstDayAfterTheirPeriod) {
  FakeAmbient ambient;
  StandardFilters filters;
  EXPECT_EQ(filters.NextAvailableFilterNumber(), 0);
  ambient.clock.SetLocal({2004, 3, 3, 17, 30, 5});
  filters.Filters_Init();
  const std::string search_filters =
      "0 General...: general 1 6 ''\n"
      "1 Description...: description 1 6 ''\n"
      "2 To/From...: tofrom 1 6 ''\n"
      "3 Type...: type 1 6 ''\n"
      "4 Split Description...: split_description 1 6 ''\n"
      "5 Split To/From...: split_tofrom 1 6 ''\n";
  EXPECT_EQ(List(filters), search_filters +
                               "6 Today: date 1 2 20040302 date 1 0 20040304\n"
                               "7 Yesterday: date 1 2 20040301 date 1 0 20040303\n"
                               "8 This Week: date 1 2 20040228 date 1 0 20040308\n"
                               "9 This Month: date 1 2 20040300 date 1 0 20040402\n"
                               "10 This Quarter: date 1 2 20040100 date 1 0 20040402\n"
                               "11 This Year: date 1 2 20040100 date 1 0 20050102\n"
                               "12 Last Week: date 1 2 20040221 date 1 0 20040230\n"
                               "13 Last Month: date 1 2 20040200 date 1 0 20040302\n"
                               "14 Last Quarter: date 1 2 20031000 date 1 0 20040102\n"
                               "15 Last Year: date 1 2 20030100 date 1 0 20040102\n"
                               "16 Resolved: cleared 1 1 YES\n"
                               "17 Unresolved: cleared 1 1 NO\n");

  // The last of a month: periods start from the first, so no month rolls over.
  ambient.clock.SetLocal({2005, 12, 31, 0, 0, 0});
  EXPECT_NE(List(filters).find("Today: date 1 2 20040302"), std::string::npos);
  filters.Filters_DateFilters_Update();
  EXPECT_EQ(List(filters), search_filters +
                               "6 Today: date 1 2 20051230 date 1 0 20051232\n"
                               "7 Yesterday: date 1 2 20051229 date 1 0 20051231\n"
                               "8 This Week: date 1 2 20051224 date 1 0 20060102\n"
                               "9 This Month: date 1 2 20051200 date 1 0 20060102\n"
                               "10 This Quarter: date 1 2 20051000 date 1 0 20060102\n"
                               "11 This Year: date 1 2 20050100 date 1 0 20060102\n"
                               "12 Last Week: date 1 2 20051217 date 1 0 20051226\n"
                               "13 Last Month: date 1 2 20051100 date 1 0 20051202\n"
                               "14 Last Quarter: date 1 2 20050700 date 1 0 20051002\n"
                               "15 Last Year: date 1 2 20040100 date 1 0 20050102\n"
                               "16 Resolved: cleared 1 1 YES\n"
                               "17 Unresolved: cleared 1 1 NO\n");
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
