#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/current_account.h"
#include "summaries/account_summary.h"

namespace tallyfold {
namespace {

constexpr auto kDebit = LDGRAccountEntry::kDebit;
constexpr auto kDeposit = LDGRAccountEntry::kDeposit;
constexpr auto kTransfer = LDGRAccountEntry::kTransfer;

struct Row {
  DateNumber date;
  std::int32_t flags;
  double amount;
  const char* description = "";
  const char* to_from = "";
  std::int32_t type = -1;
  bool cleared = false;
};

class SummaryComputation : public testing::Test {
 protected:
  SummaryComputation() {
    ambient_.clock.SetLocal({2004, 3, 31, 12, 0, 0});
    summary_.setAccount(&account_);
    summary_.setDateRangeStyle(20);
  }
  ~SummaryComputation() override { summary_.setAccount(nullptr); }

  void Add(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
      plist::Dictionary record = LDGRAccountEntry().asDictionary();
      record.Set("number", account_.NextAvailableNumber());
      record.Set("date", row.date);
      record.Set("entryFlags", row.flags);
      record.Set("amount", row.amount);
      record.Set("description", row.description);
      record.Set("toFrom", row.to_from);
      record.Set("type", row.type);
      record.Set("cleared", row.cleared);
      account_.AddEntry(std::make_shared<LDGRAccountEntry>(record));
    }
  }

  SummaryResult Over(DateNumber start, DateNumber end) {
    summary_.setStartDate(start);
    summary_.setEndDate(end);
    return summary_.Summary();
  }

  // "0101-0131:3 ..." for three entries in January; the year where it is not 2004.
  static std::string Periods(const SummaryResult& result) {
    std::string text;
    const auto day = [](DateNumber date) {
      const std::string number = std::to_string(date);
      return number.starts_with("2004") ? number.substr(4) : number;
    };
    for (const PeriodSubtotals& period : result.subtotals) {
      text += (text.empty() ? "" : " ") + day(period.start_date) + '-' + day(period.end_date) +
              ':' + std::to_string(period.count);
    }
    return text;
  }

  static std::string Text(const Subtotals& subtotals) {
    std::string text;
    for (const Subtotal& each : subtotals) {
      text += std::string(each.name) + ' ' + std::to_string(each.count) + ' ' +
              std::to_string(std::lround(each.amount * 100)) + ';';
    }
    return text;
  }

  FakeAmbient ambient_;
  LDGRAccount account_;
  LDGRAccountSummary summary_;
};

TEST_F(SummaryComputation, FollowsTheCalendarWithoutChangingTheAccount) {
  const struct {
    CivilTime now;
    std::int32_t style;
    DateNumber start;
    DateNumber end;
  } cases[] = {
      {{2004, 3, 1}, 2, 20040301, 20040301},    {{2004, 3, 1}, 3, 20040229, 20040229},
      {{2004, 3, 3}, 4, 20040222, 20040228},    {{2004, 3, 31}, 5, 20040301, 20040331},
      {{2004, 3, 15}, 5, 20040201, 20040229},   {{2004, 5, 31}, 6, 20040101, 20040331},
      {{2004, 2, 29}, 7, 20030101, 20031231},   {{2004, 1, 3}, 8, 20031228, 20040103},
      {{2004, 2, 29}, 9, 20040201, 20040229},   {{2004, 12, 31}, 10, 20041001, 20041231},
      {{2004, 2, 29}, 11, 20040101, 20041231},  {{2004, 2, 29}, 15, 20040229, 20040229},
      {{2004, 2, 1}, 16, 20040201, 20040201},   {{2004, 6, 30}, 17, 20040401, 20040630},
      {{2004, 12, 31}, 18, 20040101, 20041231}, {{2004, 3, 1}, 0, 20031231, 20050230},
      {{2004, 3, 1}, 1, 20031231, 20040301},    {{2004, 3, 1}, 20, 20010101, 20010102},
      {{2004, 3, 1}, 12, 20010101, 20010102},   {{2004, 3, 1}, 14, 20010101, 20010102},
      {{2004, 3, 1}, 19, 20010101, 20010102},   {{2004, 3, 1}, -1, 20010101, 20010102},
  };
  Add({{20040102, kDebit, -1}, {20050230, kDebit, -1}, {20031231, kDebit, -1}});
  for (const auto& test : cases) {
    ambient_.clock.SetLocal(test.now);
    summary_.setDateRangeStyle(test.style);
    summary_.setStartDate(20010101);
    summary_.setEndDate(20010102);
    const auto revision = account_.Revision();
    summary_.updateDateRange();
    EXPECT_EQ(summary_.startDate(), test.start) << test.style;
    EXPECT_EQ(summary_.endDate(), test.end) << test.style;
    EXPECT_EQ(account_.Revision(), revision);
  }
  account_.SetEntries({});
  for (const std::int32_t style : {0, 1}) {
    summary_.setDateRangeStyle(style);
    EXPECT_EQ(Periods(summary_.Summary()), "0301-0301:0") << "today only, without entries";
  }
}

TEST_F(SummaryComputation, CutsTheRangeIntoThePeriodsOfTheCalendar) {
  // Of the entries on 30 February and 1 March one is dated on a day that does not exist.
  Add({{20040115, kDebit, -1},
       {20040131, kDebit, -1},
       {20040201, kDebit, -1},
       {20040230, kDebit, -1},
       {20040301, kDebit, -1},
       {20040331, kDebit, -1},
       {20040401, kDebit, -1},
       {20041231, kDebit, -1}});
  const struct {
    std::int32_t style;
    DateNumber start;
    DateNumber end;
    const char* periods;
  } cases[] = {
      {0, 20040131, 20040201, "0131-0131:1 0201-0201:1"},
      {1, 20040131, 20040208, "0131-0131:1 0201-0207:1 0208-0208:0"},
      {1, 20040201, 20040207, "0201-0207:1"},
      {1, 20040202, 20040206, "0202-0206:0"},
      {2, 20040115, 20040310, "0115-0131:2 0201-0229:1 0301-0310:2"},
      {2, 20040116, 20040229, "0116-0131:1 0201-0229:1"},
      {3, 20040116, 20040401, "0116-0331:5 0401-0401:1"},
      {4, 20031231, 20050101, "20031231-20031231:0 0101-1231:8 20050101-20050101:0"},
      {5, 20040131, 20040331, "0131-0331:5"},
      {6, 20040131, 20040331, "0131-0331:5"},
      {-1, 20040131, 20040331, "0131-0331:5"},
      {2, 20040230, 20040230, "0301-0301:1"},
      {2, 20040231, 20040301, "0302-0302:1"},
      {0, 20040131, 20040130, ""},
      {2, 20041231, 20040101, ""},
      {4, 20040000, 20061231,
       "20031130-20031231:0 0101-1231:8 20050101-20051231:0 "
       "20060101-20061231:0"},
  };
  for (const auto& test : cases) {
    summary_.setSubtotalPeriodStyle(test.style);
    EXPECT_EQ(Periods(Over(test.start, test.end)), test.periods)
        << test.style << ' ' << test.start << ' ' << test.end;
  }
}

TEST_F(SummaryComputation, NeedsBoundedWorkForAnyRange) {
  Add({{20040229, kDebit, -1}, {99991231, kDebit, -2}, {2147483646, kDebit, -4}});
  summary_.setSubtotalPeriodStyle(0);
  EXPECT_EQ(Over(1'01'01, 20041231).subtotals.size(), 731'946U) << "every day until then";
  EXPECT_FALSE(summary_.Summary().leaves_out_empty_periods);
  EXPECT_EQ(Periods(Over(-2147483647 - 1, 2147483647)).substr(0, 31),
            "0229-0229:1 99991231-99991231:1");
  const SummaryResult all = Over(-2147483647 - 1, 2147483647);
  EXPECT_EQ(all.subtotals.size(), 3U);
  EXPECT_TRUE(all.leaves_out_empty_periods);
  EXPECT_EQ(all.whole.total, -7.0);
}

TEST_F(SummaryComputation, HasOnePeriodForAllDaysBeforeTheYear1) {
  Add({{0, kDebit, -1}, {1231, kDebit, -2}, {1'01'00, kDebit, -4}, {1'01'01, kDebit, -8}});
  const struct {
    std::int32_t style;
    DateNumber start;
    DateNumber end;
    const char* periods;
  } cases[] = {
      {2, 0, 1'03'01, "0-1231:3 10101-10131:1 10201-10228:0 10301-10301:0"},
      {1, 0, 1'01'08, "0-1231:3 10101-10106:1 10107-10108:0"},
      {0, 1231, 1'01'01, "1231-1231:2 10101-10101:1"},
      {0, 1'01'00, 1'01'01, "1231-1231:1 10101-10101:1"},
      {4, -8870, 0, "-8870-0:1"},
      {3, 1229, 1231, "1229-1231:1"},
      {5, 0, 1'03'01, "0-10301:4"},
  };
  for (const auto& test : cases) {
    summary_.setSubtotalPeriodStyle(test.style);
    EXPECT_EQ(Periods(Over(test.start, test.end)), test.periods) << test.style << ' ' << test.start;
  }
  Add({{20040331, kDebit, -16}});
  summary_.setDateRangeStyle(0);
  summary_.setSubtotalPeriodStyle(2);
  EXPECT_EQ(summary_.Summary().subtotals.size(), 1U + 2003 * 12 + 3);
}

TEST_F(SummaryComputation, CountsTheEntriesThatEveryRestrictionKeeps) {
  Add({{20040301, kDebit | LDGRAccountEntry::kCheck, -1, "Rent", "Bank", 0, true},
       {20040302, kDebit | LDGRAccountEntry::kTaxDeductible, -2, "Gift", "Rental"},
       {20040303, kDeposit, 4, "Pay", "Work"},
       {20040304, kTransfer, -8, "Savings", "House"},
       {20040305, 0, 16, "of no kind"},
       {20040401, kDebit, -32, "too late"}});
  using Set = std::function<void(LDGRAccountSummary&)>;
  const auto text = [](std::int32_t type) -> Set {
    return [type](LDGRAccountSummary& s) {
      s.setFilter(true);
      s.setFilterType(type);
      s.setFilterData("rent");
    };
  };
  const struct {
    Set set;
    double total;
  } cases[] = {
      {[](auto&) {}, -7},
      {[](auto& s) { s.setShowDebits(false); }, -4},
      {[](auto& s) { s.setShowDeposits(false); }, -11},
      {[](auto& s) { s.setShowTransfers(false); }, 1},
      {[](auto& s) { s.setShowResolved(0); }, -1},
      {[](auto& s) { s.setShowResolved(1); }, -6},
      {[](auto& s) { s.setShowResolved(7); }, -7},
      {[](auto& s) { s.setShowTaxDeductible(0); }, -2},
      {[](auto& s) { s.setShowTaxDeductible(1); }, -5},
      {[](auto& s) { s.setShowChecks(0); }, -1},
      {[](auto& s) { s.setShowChecks(1); }, -6},
      {text(0), -3},
      {text(1), -1},
      {text(2), -1},
      {text(3), -2},
      {text(10), 0},
      {text(11), 0},
      {text(20), -2},
      {text(4), -7},
      {[](auto& s) { s.setFilterData("rent"); }, -7},
      {[](auto& s) { s.setFilter(true); }, -7},
  };
  account_.GetTypes().front()->SetName("Rent and more");
  account_.GetEntries()[0]->SetType(account_.GetTypes().front()->GetNumber());
  account_.GetEntries()[1]->SetNotes("for renting");
  const plist::Dictionary defaults = summary_.optionsAsDictionary();
  LDGRAccount selected;
  const ScopedCurrentAccount current(&account_);
  for (const auto& test : cases) {
    summary_.setOptionsFromDictionary(defaults);
    test.set(summary_);
    EXPECT_EQ(Over(20040301, 20040331).whole.total, test.total) << &test - cases;
  }
  text(1)(summary_);
  const ScopedCurrentAccount other(&selected);
  EXPECT_EQ(Over(20040301, 20040331).whole.total, 0) << "types are those of the selected account";
}

TEST_F(SummaryComputation, AddsThePeriodsUpAndKeepsTheBalancesOfTheWholeAccount) {
  account_.SetStartingBalance(100);
  const std::int32_t food = account_.GetTypes().front()->GetNumber();
  const std::string type = account_.GetTypes().front()->GetName();
  Add({{20040215, kDebit, -5, "Lunch", "Café", food, true},
       {20040110, kDebit, -1, "Lunch", "Diner", food},
       {20040120, kDeposit, 20, "Pay", "", 4711, true},
       {20040131, kTransfer, -2, "Lunch", "Savings", food},
       {20031231, kDebit, -50},
       {20040301, kDebit | kTransfer, -9, "lunch", "Café"}});
  const SummaryResult result = Over(20040101, 20040229);
  EXPECT_EQ(Periods(result), "0101-0131:3 0201-0229:1");
  EXPECT_EQ(Text(result.subtotals[0].types_subtotals), type + " 1 -100; 1 2000;Transfer 1 -200;");
  EXPECT_EQ(Text(result.whole.types_subtotals), type + " 2 -600; 1 2000;Transfer 1 -200;");
  EXPECT_EQ(Text(result.subtotals[1].descriptions_subtotals), "Lunch 1 -500;");
  EXPECT_EQ(Text(result.whole.descriptions_subtotals), "Lunch 3 -800;Pay 1 2000;");
  EXPECT_EQ(Text(result.whole.to_from_subtotals),
            "Diner 1 -100; 1 2000;Savings 1 -200;Café 1 -500;");
  const PeriodSubtotals& whole = result.whole;
  EXPECT_EQ((std::vector{whole.total, whole.debits_total, whole.deposits_total,
                         whole.transfers_total, whole.resolved_total, whole.unresolved_total,
                         whole.tax_deductible_total, whole.taxable_total}),
            (std::vector{12.0, -6.0, 20.0, -2.0, 15.0, -3.0, 0.0, 12.0}));
  EXPECT_EQ(result.start_balance, 50.0);
  EXPECT_EQ(result.end_balance, 62.0);

  summary_.setShowResolved(1);
  summary_.setSubtotalTypes(false);
  const SummaryResult unresolved = Over(20040101, 20040229);
  EXPECT_EQ(unresolved.whole.total, -3.0);
  EXPECT_EQ(unresolved.end_balance, 62.0) << "counts every entry";
  EXPECT_TRUE(unresolved.whole.types_subtotals.empty());
  EXPECT_EQ(summary_.entries().front()->GetDate(), 20040110) << "by date";
  EXPECT_EQ(Over(20040301, 20040301).whole.count, 2U) << "once as a debit, once as a transfer";
  const auto between = summary_.SubtotalEntries(account_.GetEntries(), 20040110, 20040120);
  EXPECT_EQ(between.total, 19.0);
  EXPECT_EQ(between.end_date, 20040120);
  EXPECT_EQ(Text(between.descriptions_subtotals), "Lunch 1 -100;Pay 1 2000;");
  summary_.setAccount(nullptr);
  EXPECT_EQ(Over(20040101, 20040229).whole.count, 0U);
}

}  // namespace
}  // namespace tallyfold
