#include "summaries/summary_layout.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "summaries/account_summary.h"

namespace tallyfold {
namespace {

std::string Text(const SummaryLayout& layout) {
  std::ostringstream text;
  const auto& head = layout.head;
  text << head.account << ": " << head.name << ", " << head.range << ' ' << head.first << '-'
       << head.last << ", " << head.start_balance << " to " << head.end_balance << '\n';
  for (const auto& line : layout.periods) {
    text << line.title << ": " << line.amounts.debits << ' ' << line.amounts.deposits << ' '
         << line.amounts.transfers << ' ' << line.amounts.total << ", bar " << line.bar << '\n';
  }
  text << layout.total_title << ": " << layout.total_count << ' ' << layout.total.total << '\n';
  for (const auto& [title, amount] : layout.totals) text << title << ' ' << amount << '\n';
  for (const auto& block : layout.blocks) {
    text << block.title << '\n';
    for (const auto& line : block.lines) {
      text << "  " << line.name << ": " << line.count << ' ' << line.amount << ' ' << line.share
           << '\n';
    }
  }
  text << layout.check_title << ' ' << layout.left_out << '\n';
  return text.str();
}

class SummaryLayoutTest : public testing::Test {
 protected:
  SummaryLayoutTest() {
    account_.SetName("House");
    summary_->setName("Mine");
    summary_->setStartDate(20040301);
    summary_->setEndDate(20040402);
    account_.addAccountSummary(summary_);
  }

  void Add(DateNumber date, const char* description, double amount) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetDate(date);
    entry->SetIsDeposit(amount > 0);
    entry->SetIsTransfer(!(amount > 0));
    entry->SetDescription(description);
    entry->SetAmount(amount);
    account_.AddEntry(std::move(entry));
  }
  SummaryLayout Computed() {
    summary_->Refresh();
    return LayOutSummary(*summary_, "%1m/%e/%Y");
  }

  FakeAmbient ambient_;
  LDGRAccount account_;
  std::shared_ptr<LDGRAccountSummary> summary_ = std::make_shared<LDGRAccountSummary>();
};

TEST_F(SummaryLayoutTest, ReadsFromTheHeadToTheCheck) {
  Add(20040301, "", 0.1);
  Add(20040331, "", 0.2);
  Add(20040302, "zoo", 0.3);
  Add(20040303, "Ape", 0.3);
  Add(20040401, "Rent", -1.8);
  EXPECT_EQ(Text(Computed()),
            "House: Mine, Custom 20040301-20040402, 0 to -0.9\n"
            "March 2004: 0 0.9 0 0.9, bar 0.5\n"
            "April 2004: 0 0 -1.8 -1.8, bar -1\n"
            "Total: 5 -0.9\n"
            "Resolved 0\nUnresolved -0.9\nTax-Deductible 0\nTaxable -0.9\n"
            "By Type\n  Transfer: 1 -1.8 0.666667\n  (none): 4 0.9 0.333333\n"
            "By Description\n  Rent: 1 -1.8 0.666667\n  (none): 2 0.3 0.111111\n"
            "  Ape: 1 0.3 0.111111\n  zoo: 1 0.3 0.111111\n"
            "By To/From\n  (none): 5 -0.9 1\n"
            "Start balance and total give the end balance 0\n");
}

TEST_F(SummaryLayoutTest, SaysWhyTheBalancesDoNotAgree) {
  Add(20040301, "", 5);
  Add(20040302, "", -3);
  summary_->setShowDeposits(false);
  SummaryLayout layout = Computed();
  EXPECT_EQ(layout.check, SummaryLayout::Check::EntriesLeftOut);
  EXPECT_EQ(layout.left_out, 5.0);
  summary_->setEndDate(20040229);
  layout = Computed();
  EXPECT_EQ(layout.check, SummaryLayout::Check::EndsBeforeItStarts);
  EXPECT_EQ(layout.left_out, 0.0);
  EXPECT_TRUE(layout.periods.empty());
}

TEST_F(SummaryLayoutTest, TitlesEachStyleOfPeriod) {
  const struct {
    std::int32_t style;
    const char* first;
    const char* last;
  } cases[] = {{0, "3/1/2004", "4/2/2004"},
               {1, "3/1/2004 - 3/6/2004", "3/28/2004 - 4/2/2004"},
               {2, "March 2004", "April 2004"},
               {3, "Q1 2004", "Q2 2004"},
               {4, "2004", "2004"},
               {5, "3/1/2004 - 4/2/2004", "3/1/2004 - 4/2/2004"},
               {9, "3/1/2004 - 4/2/2004", "3/1/2004 - 4/2/2004"}};
  for (const auto& test : cases) {
    summary_->setSubtotalPeriodStyle(test.style);
    const SummaryLayout layout = Computed();
    EXPECT_EQ(layout.periods.front().title, test.first);
    EXPECT_EQ(layout.periods.back().title, test.last);
  }
}

TEST_F(SummaryLayoutTest, SkipsPeriodsWithoutEntriesWhereThereAreTooMany) {
  Add(0, "", 5);
  Add(20040301, "", 2);
  const struct {
    DateNumber start;
    std::int32_t style;
    std::size_t lines;
    bool says_so;
  } cases[] = {{0, 2, 2, true},          {0, 0, 2, true},
               {20040301, 0, 33, false}, {16701201, 2, 4000, false},
               {16701101, 2, 1, true},   {-2147483647, 0, 2, true}};
  for (const auto& test : cases) {
    summary_->setStartDate(test.start);
    summary_->setEndDate(test.start == 20040301 ? 20040402 : 20040229 + 100);
    summary_->setSubtotalPeriodStyle(test.style);
    const SummaryLayout layout = Computed();
    EXPECT_EQ(layout.periods.size(), test.lines) << test.start;
    EXPECT_EQ(layout.left_out_periods.empty(), !test.says_so) << test.start;
  }
  summary_->setStartDate(0);
  EXPECT_EQ(Computed().periods.front().title, "Before the year 1");
}

TEST_F(SummaryLayoutTest, HasAPlaceForAmountsThatAreNoNumbers) {
  Add(20040301, "x", std::numeric_limits<double>::quiet_NaN());
  Add(20040301, "y", std::numeric_limits<double>::infinity());
  Add(20040301, "z", 1);
  const SummaryLayout layout = Computed();
  std::string names;
  for (const auto& line : layout.blocks[1].lines) {
    names += line.name;
    EXPECT_EQ(line.share, 0.0);
  }
  EXPECT_EQ(names, "yzx");
  EXPECT_EQ(layout.periods[0].bar, 0.0);
}

}  // namespace
}  // namespace tallyfold
