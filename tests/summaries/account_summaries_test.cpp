#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "summaries/account_summary.h"

namespace tallyfold {
namespace {

using plist::Dictionary;
using plist::Value;

std::shared_ptr<LDGRAccountSummary> Named(std::string_view name) {
  auto summary = std::make_shared<LDGRAccountSummary>();
  summary->setName(name);
  return summary;
}

TEST(AccountSummary, CoversTheCurrentMonthAndEverythingWhenNew) {
  const struct {
    CivilTime now;
    DateNumber start;
    DateNumber end;
  } cases[] = {{{2004, 2, 29, 23, 59, 59}, 20040201, 20040229},
               {{2005, 12, 1}, 20051201, 20051231}};
  for (const auto& test : cases) {
    FakeAmbient ambient;
    ambient.clock.SetLocal(test.now);
    // In the order in which keys are stored.
    const std::pair<const char*, Value> expected[] = {
        {"name", "Untitled Summary"},
        {"dateRangeStyle", 20},
        {"startDate", test.start},
        {"endDate", test.end},
        {"showStyle", 0},
        {"showDebits", true},
        {"showDeposits", true},
        {"showTransfers", true},
        {"showResolved", 2},
        {"showTaxDeductible", 2},
        {"showChecks", 2},
        {"subtotalDescriptions", true},
        {"subtotalTypes", true},
        {"subtotalToFroms", true},
        {"subtotalPeriodStyle", 2},
        {"filter", false},
        {"filterType", 0},
        {"filterData", ""},
    };
    const Dictionary options = LDGRAccountSummary().optionsAsDictionary();
    ASSERT_EQ(options.size(), std::size(expected));
    const auto* item = options.begin();
    for (const auto& [key, value] : expected) {
      EXPECT_EQ(item->key(), key);
      EXPECT_EQ((item++)->value(), value) << key;
    }
  }
}

TEST(AccountSummary, StoresEachOptionUnderItsKeyAndReadsItBack) {
  FakeAmbient ambient;
  LDGRAccountSummary summary;
  summary.setName("Rent");
  summary.setDateRangeStyle(7);
  summary.setStartDate(20040101);
  summary.setEndDate(20041231);
  summary.setShowStyle(3);
  summary.setShowDebits(false);
  summary.setShowDeposits(false);
  summary.setShowTransfers(false);
  summary.setShowResolved(0);
  summary.setShowTaxDeductible(1);
  summary.setShowChecks(4);
  summary.setSubtotalDescriptions(false);
  summary.setSubtotalTypes(false);
  summary.setSubtotalToFroms(false);
  summary.setSubtotalPeriodStyle(5);
  summary.setFilter(true);
  summary.setFilterType(20);
  summary.setFilterData("flat");
  const std::pair<const char*, Value> expected[] = {
      {"name", "Rent"},         {"dateRangeStyle", 7},      {"startDate", 20040101},
      {"endDate", 20041231},    {"showStyle", 3},           {"showDebits", false},
      {"showDeposits", false},  {"showTransfers", false},   {"showResolved", 0},
      {"showTaxDeductible", 1}, {"showChecks", 4},          {"subtotalDescriptions", false},
      {"subtotalTypes", false}, {"subtotalToFroms", false}, {"subtotalPeriodStyle", 5},
      {"filter", true},         {"filterType", 20},         {"filterData", "flat"},
  };
  const Dictionary stored = summary.optionsAsDictionary();
  for (const auto& [key, value] : expected) EXPECT_EQ(stored.Get(key), value) << key;
  EXPECT_EQ(LDGRAccountSummary(stored, nullptr).optionsAsDictionary(), stored);
  EXPECT_TRUE(ambient.log.Take().empty());
}

TEST(AccountSummary, LogsMissingAndWrongOptionsAndKeepsTheirDefaults) {
  FakeAmbient ambient;
  const Dictionary defaults = LDGRAccountSummary().optionsAsDictionary();
  for (const plist::DictionaryItem& item : defaults) {
    const std::string key(item.key());
    Dictionary options = defaults.ShallowCopy();
    options.Remove(key);
    EXPECT_EQ(LDGRAccountSummary(options, nullptr).optionsAsDictionary(), defaults);
    EXPECT_EQ(ambient.log.Take(),
              std::vector<std::string>{"No " + key + " defined for LDGRAccountSummary."});
    if (key == "filterData") continue;  // takes any kind
    options.Set(key, plist::Array());
    EXPECT_EQ(LDGRAccountSummary(options, nullptr).optionsAsDictionary(), defaults);
    EXPECT_EQ(ambient.log.Take(),
              std::vector<std::string>{key + " is in wrong format for LDGRAccountSummary."});
  }
}

TEST(AccountSummaries, OfANewAccountAreTheTwelveWithTheFirstSelected) {
  const struct {
    const char* name;
    std::int32_t style;
    bool debits;
    bool deposits;
    bool transfers;
    std::int32_t tax;
  } expected[] = {
      {" Custom...", 0, true, true, true, 2},
      {"All Entries, Month To Date", 16, true, true, true, 2},
      {"All Entries, Quarter To Date", 17, true, true, true, 2},
      {"All Entries, Year To Date", 18, true, true, true, 2},
      {"Expenses, Month To Date", 16, true, false, false, 2},
      {"Expenses, Quarter To Date", 17, true, false, false, 2},
      {"Expenses, Year To Date", 18, true, false, false, 2},
      {"Income, Month To Date", 16, false, true, false, 2},
      {"Income, Quarter To Date", 17, false, true, false, 2},
      {"Income, Year To Date", 18, false, true, false, 2},
      {"Tax-Deductible, Last Year", 7, true, true, true, 0},
      {"Tax-Deductible, This Year", 11, true, true, true, 0},
  };
  const LDGRAccount account;
  const auto& summaries = account.accountSummaries();
  ASSERT_EQ(summaries.size(), std::size(expected));
  EXPECT_EQ(account.selectedAccountSummary(), summaries[0]);
  for (std::size_t i = 0; i < summaries.size(); ++i) {
    const LDGRAccountSummary& summary = *summaries[i];
    EXPECT_EQ(summary.name(), expected[i].name);
    EXPECT_EQ(summary.dateRangeStyle(), expected[i].style) << summary.name();
    EXPECT_EQ(summary.showDebits(), expected[i].debits) << summary.name();
    EXPECT_EQ(summary.showDeposits(), expected[i].deposits) << summary.name();
    EXPECT_EQ(summary.showTransfers(), expected[i].transfers) << summary.name();
    EXPECT_EQ(summary.showTaxDeductible(), expected[i].tax) << summary.name();
    EXPECT_EQ(summary.account(), &account);
  }
}

TEST(AccountSummaries, KeepAValidSelectionAcrossAddingAndRemoving) {
  LDGRAccount account;
  const auto added = Named("Mine");
  account.addAccountSummary(added);
  account.addAccountSummary(nullptr);
  EXPECT_EQ(account.accountSummaries().back(), added);
  EXPECT_EQ(added->account(), &account);
  account.selectAccountSummary(added.get());
  account.selectAccountSummaryAtIndex(13);
  account.selectAccountSummary(Named("elsewhere").get());
  account.selectAccountSummary(nullptr);
  EXPECT_EQ(account.selectedAccountSummary(), added);
  account.removeAccountSummary(account.accountSummaries()[1].get());
  EXPECT_EQ(account.selectedAccountSummary(), added) << "another one was removed";
  account.removeAccountSummary(added.get());
  EXPECT_EQ(account.selectedAccountSummary(), account.accountSummaries().front());
  EXPECT_EQ(added->account(), nullptr);
  while (!account.accountSummaries().empty()) {
    account.removeAccountSummary(account.accountSummaries().front().get());
  }
  EXPECT_EQ(account.selectedAccountSummary(), nullptr);
  EXPECT_EQ(account.asDictionary().Get("selectedAccountSummary"), Value(0));
  account.addAccountSummary(added);
  EXPECT_EQ(account.selectedAccountSummary(), added);
}

TEST(AccountSummaries, AreStoredWithTheIndexOfTheSelectedOne) {
  LDGRAccount account;
  account.selectAccountSummaryAtIndex(4);
  const Dictionary stored = account.asDictionary();
  EXPECT_EQ(LDGRAccount(stored).selectedAccountSummary()->name(), "Expenses, Month To Date");
  account.setSelectedAccountSummary(Named("not in the list"));
  EXPECT_EQ(account.asDictionary().Get("selectedAccountSummary"), Value(0));
  for (const std::int32_t index : {-1, 12, 2147483647}) {
    Dictionary wrong = stored.ShallowCopy();
    wrong.Set("selectedAccountSummary", index);
    const LDGRAccount read(wrong);
    EXPECT_EQ(read.selectedAccountSummary(), read.accountSummaries()[0]) << index;
  }
}

TEST(AccountSummaries, TellTheirAccountOfChangesAndOutliveIt) {
  std::shared_ptr<LDGRAccountSummary> summary;
  {
    LDGRAccount account;
    summary = account.accountSummaries()[2];
    const auto revision = account.Revision();
    summary->setShowChecks(summary->showChecks());
    EXPECT_EQ(account.Revision(), revision);
    summary->setShowChecks(0);
    EXPECT_NE(account.Revision(), revision);
  }
  EXPECT_EQ(summary->account(), nullptr);
  summary->setShowChecks(1);
}

}  // namespace
}  // namespace tallyfold
