#include "filters/filter.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/fake_ambient.h"
#include "filters/search_filter.h"
#include "model/account.h"
#include "model/current_account.h"

namespace tallyfold {
namespace {

namespace fc = filter_category;
using Logic = FilterLogic;
using Qualifier = FilterQualifier;
using Lines = std::vector<std::string>;

std::shared_ptr<LDGRAccountEntry> Entry(std::int32_t number, std::string_view description,
                                        double amount, DateNumber date) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetNumber(number);
  entry->SetDescription(description);
  entry->SetAmount(amount);
  entry->SetDate(date);
  return entry;
}

std::string Numbers(const EntryList& entries) {
  std::string numbers;
  for (const auto& entry : entries) {
    numbers += (numbers.empty() ? "" : " ") + std::to_string(entry->GetNumber());
  }
  return numbers;
}

using Pass = int (LDGRFilter::*)(EntryList&) const;
constexpr std::array kPasses = {
    std::pair{fc::kGeneral, Pass{&LDGRFilter::Filter_General}},
    std::pair{fc::kDescription, Pass{&LDGRFilter::Filter_Description}},
    std::pair{fc::kDate, Pass{&LDGRFilter::Filter_Date}},
    std::pair{fc::kAmount, Pass{&LDGRFilter::Filter_Amount}},
    std::pair{fc::kAmountString, Pass{&LDGRFilter::Filter_AmountString}},
    std::pair{fc::kType, Pass{&LDGRFilter::Filter_Type}},
    std::pair{fc::kCheck, Pass{&LDGRFilter::Filter_Check}},
    std::pair{fc::kCheckNumber, Pass{&LDGRFilter::Filter_CheckNumber}},
    std::pair{fc::kCheckNumberString, Pass{&LDGRFilter::Filter_CheckNumberString}},
    std::pair{fc::kCleared, Pass{&LDGRFilter::Filter_Cleared}},
    std::pair{fc::kToFrom, Pass{&LDGRFilter::Filter_ToFrom}},
    std::pair{fc::kSplitDescription, Pass{&LDGRFilter::Filter_SplitDescription}},
    std::pair{fc::kSplitToFrom, Pass{&LDGRFilter::Filter_SplitToFrom}},
    std::pair{fc::kNotes, Pass{&LDGRFilter::Filter_Notes}},
    std::pair{fc::kTaxDeductible, Pass{&LDGRFilter::Filter_TaxDeductible}},
};

// Six entries, no two alike, and the account whose types name theirs.
class FilterTest : public testing::Test {
 protected:
  FilterTest() {
    auto groceries = std::make_shared<LDGRAccountEntryType>();
    groceries->SetName("Groceries");
    groceries->SetNumber(40);
    account_.SetTypes({groceries});

    entries_ = {
        Entry(1, "Coffee shop", -12.5, 20040229), Entry(2, "COFFEE", 112.5, 20040301),
        Entry(3, "Tea", -99.7, 20040301),         Entry(4, "Rent", 1250.0, 20040302),
        Entry(5, "Split", -100.4, 20040303),      Entry(6, "Transfer out", 99.6, 20040304),
    };
    entries_[0]->SetType(40);
    entries_[0]->SetToFrom("Café Ünal");
    entries_[1]->SetCleared(true);
    entries_[1]->SetType(7);  // of no account
    entries_[2]->SetIsCheck(true);
    entries_[2]->SetCheckNumber(1042);
    entries_[2]->SetNotes("paid with the rent");
    entries_[3]->SetTaxDeductible(true);
    entries_[3]->SetCheckNumber(1042);  // left from when it was a check
    auto split = std::make_shared<LDGRAccountEntrySplit>();
    split->SetDescription("Milk and tea", 0);
    split->SetToFrom("Dairy", 9);
    entries_[4]->SetSplit(split);
    entries_[4]->SetIsDebit(true);  // of 0.00, what its split adds up to
    entries_[5]->SetIsTransfer(true);
  }

  FakeAmbient ambient_;
  LDGRAccount account_;
  ScopedCurrentAccount current_{&account_};
  EntryList entries_;
};

TEST_F(FilterTest, KeepsWhatARuleMatchesOrTheOthers) {
  constexpr auto kEvery = "1 2 3 4 5 6";
  struct Case {
    std::string_view category;
    Qualifier qualifier;
    plist::Value data;
    std::string matching;
    std::string others;
  };
  const std::vector<Case> cases = {
      {fc::kDescription, Qualifier::Contains, "coffee", "1 2", "3 4 5 6"},
      {fc::kDescription, Qualifier::Is, "coffee", "2", "1 3 4 5 6"},
      {fc::kToFrom, Qualifier::Contains, "CAFÉ Ü", "1", "2 3 4 5 6"},
      {fc::kNotes, Qualifier::Contains, "Rent", "3", "1 2 4 5 6"},
      {fc::kType, Qualifier::Contains, "gro", "1", "2 3 4 5 6"},
      {fc::kType, Qualifier::Is, "transfer", "6", "1 2 3 4 5"},
      {fc::kGeneral, Qualifier::Contains, "tea", "3 5", "1 2 4 6"},
      {fc::kGeneral, Qualifier::Contains, "rent", "3 4", "1 2 5 6"},
      {fc::kGeneral, Qualifier::Contains, "transfer", "6", "1 2 3 4 5"},
      {fc::kGeneral, Qualifier::Contains, "dairy", "5", "1 2 3 4 6"},
      {fc::kGeneral, Qualifier::Is, "groceries", "1", "2 3 4 5 6"},
      {fc::kGeneral, Qualifier::Is, "milk and tea", "5", "1 2 3 4 6"},
      {fc::kGeneral, Qualifier::Is, "paid with the rent", "", kEvery},  // notes: contents alone
      // Entries without a split, and those that are no checks, go whatever the logic.
      {fc::kSplitDescription, Qualifier::Contains, "TEA", "5", ""},
      {fc::kSplitDescription, Qualifier::Contains, "tee", "", "5"},
      {fc::kSplitToFrom, Qualifier::Is, "dairy", "5", ""},
      {fc::kCheckNumberString, Qualifier::Contains, "04", "3", ""},
      {fc::kCheckNumberString, Qualifier::Is, "104", "", "3"},
      {fc::kAmountString, Qualifier::Contains, "12.5", "1 2", "3 4 5 6"},
      {fc::kAmountString, Qualifier::Is, "1,250.00", "4", "1 2 3 5 6"},
      {fc::kAmountString, Qualifier::Contains, "-", "1 3", "2 4 5 6"},
      {fc::kAmountString, Qualifier::Contains, ",", "", kEvery},
      {fc::kAmount, Qualifier::GreaterThan, 112.09, "2 4", "1 3 5 6"},
      {fc::kAmount, Qualifier::GreaterThan, 112.1, "4", "1 2 3 5 6"},
      {fc::kAmount, Qualifier::LessThan, -12.09, "1 3", "2 4 5 6"},
      {fc::kAmount, Qualifier::LessThan, "", "1 3", "2 4 5 6"},
      {fc::kAmount, Qualifier::Is, "-99.5", "3", "1 2 4 5 6"},
      {fc::kAmount, Qualifier::Is, 99.9, "6", "1 2 3 4 5"},
      {fc::kAmount, Qualifier::Is, 100.0, "", kEvery},  // 99.6 is just too far
      {fc::kAmount, Qualifier::Is, 112.1, "", kEvery},  // and so is 112.5
      {fc::kDate, Qualifier::Before, 20040301, "1", "2 3 4 5 6"},
      {fc::kDate, Qualifier::On, 20040301, "2 3", "1 4 5 6"},
      {fc::kDate, Qualifier::After, "20040302", "5 6", "1 2 3 4"},
      {fc::kCheck, Qualifier::On, true, "3", "1 2 4 5 6"},
      {fc::kCleared, Qualifier::Contains, false, "1 3 4 5 6", "2"},
      {fc::kTaxDeductible, Qualifier::On, 1, "4", "1 2 3 5 6"},
      // A comparison the category does not know, and data of a wrong kind, match nothing.
      {fc::kDescription, Qualifier::On, "coffee", "", kEvery},
      {fc::kDate, Qualifier::Contains, 20040301, "", kEvery},
      {fc::kAmount, static_cast<Qualifier>(5), 99.7, "", kEvery},
      {fc::kDescription, Qualifier::Contains, 12, "", kEvery},
      {fc::kGeneral, Qualifier::Contains, plist::Array(), "", kEvery},
      {fc::kDate, Qualifier::After, plist::Dictionary(), "", kEvery},
      {fc::kAmount, Qualifier::LessThan, plist::Array(), "", kEvery},
      {fc::kCleared, Qualifier::On, plist::Array(), "", kEvery},
      // Not applied at all: an empty text, no data, check numbers as numbers.
      {fc::kDescription, Qualifier::Is, "", kEvery, kEvery},
      {fc::kSplitToFrom, Qualifier::Contains, "", kEvery, kEvery},
      {fc::kDate, Qualifier::After, {}, kEvery, kEvery},
      {fc::kCheckNumber, Qualifier::Is, 1042, kEvery, kEvery},
  };
  for (const Case& c : cases) {
    for (const Logic logic : {Logic::KeepMatching, Logic::KeepOthers}) {
      LDGRFilter filter;
      ASSERT_TRUE(filter.AddRuleForCategory(c.category, logic, c.qualifier, c.data));
      const std::string kept = logic == Logic::KeepMatching ? c.matching : c.others;
      EXPECT_EQ(Numbers(filter.Filter(entries_)), kept)
          << c.category << ' ' << static_cast<int>(c.qualifier) << ' ' << c.data.StringValue();
      // One pass alone does all of it, the others nothing.
      for (const auto& [category, pass] : kPasses) {
        EntryList left = entries_;
        EXPECT_EQ((filter.*pass)(left), 0);
        EXPECT_EQ(Numbers(left), category == c.category ? kept : kEvery) << category;
      }
    }
  }
  EXPECT_EQ(Numbers(entries_), kEvery);
}

TEST_F(FilterTest, HoldsAllRulesTogether) {
  LDGRFilter filter;
  EXPECT_EQ(Numbers(filter.Filter(entries_)), Numbers(entries_));
  EXPECT_TRUE(filter.Filter({}).empty());
  filter.AddRuleForCategory(fc::kDate, Logic::KeepMatching, Qualifier::After, 20040229);
  filter.AddRuleForCategory(fc::kDate, Logic::KeepMatching, Qualifier::Before, 20040302);
  EXPECT_EQ(Numbers(filter.Filter(entries_)), "2 3");
  filter.AddRuleForCategory(fc::kCheck, Logic::KeepOthers, Qualifier::On, true);
  EXPECT_EQ(Numbers(filter.Filter(entries_)), "2");
  EXPECT_FALSE(filter.AddRuleForCategory(std::nullopt, Logic::KeepOthers, Qualifier::On, true));
  EXPECT_FALSE(filter.AddRuleForCategory("name", Logic::KeepOthers, Qualifier::On, true));
  EXPECT_FALSE(filter.AddRuleForCategory("filter_payee", Logic::KeepOthers, Qualifier::On, true));
}

TEST_F(FilterTest, EndsAListAtARuleWithoutData) {
  const auto kept = [&](const plist::Value& middle) {
    plist::Dictionary settings;
    plist::Array rules;
    for (const char* text : {"coffee", "shop"}) {
      plist::Dictionary rule;
      rule.Set("logic", 5);
      rule.Set("qualifier", 6.0);
      rule.Set("data", text);
      rules.Append(rule);
      if (rules.size() == 1) rules.Append(middle);
    }
    settings.Set(fc::kDescription, rules);
    return Numbers(LDGRFilter(settings).Filter(entries_));
  };
  plist::Dictionary harmless;
  harmless.Set("data", "coffee");
  EXPECT_EQ(kept(harmless), "1");  // logic 0, and a qualifier for dates
  EXPECT_EQ(kept(plist::Dictionary()), "1 2");
  EXPECT_EQ(kept("no dictionary"), "1 2");
  harmless.Set("data", "");
  EXPECT_EQ(kept(harmless), "1 2");
}

TEST_F(FilterTest, WritesAmountsAsTheUserDoes) {
  struct Case {
    std::string_view decimal;
    std::string_view thousands;
    double amount;
    std::string_view text;
    bool found;
  };
  const std::vector<Case> cases = {
      {",", ".", 1250.0, "1.250,0", true}, {",", ".", 1250.0, "1250.00", false},
      {".", "", 1250.0, "1250.00", true},  {".", "", 1250.0, "1,250.00", false},
      {"٫", "٬", -0.5, "-0٫50", true},     {".", ",", -0.004, "-", false},
      {".", ",", 1e15, "1,0", true},
  };
  for (const Case& c : cases) {
    ambient_.locale.decimal_separator = c.decimal;
    ambient_.locale.thousands_separator = c.thousands;
    plist::Dictionary record;
    record.Set("amount", c.amount);
    LDGRFilter filter;
    filter.AddRuleForCategory(fc::kAmountString, Logic::KeepMatching, Qualifier::Contains, c.text);
    EXPECT_EQ(filter.Filter({std::make_shared<LDGRAccountEntry>(record)}).size(), c.found ? 1U : 0U)
        << c.text;
  }
}

// Gives every list a rule whose data is the list's own key.
template <typename Filter>
std::shared_ptr<Filter> WithRulesEverywhere() {
  auto filter = std::make_shared<Filter>();
  for (const plist::DictionaryItem& item : filter->asDictionary()) {
    if (item.value().IsArray()) {
      filter->AddRuleForCategory(item.key(), Logic::KeepMatching, Qualifier::Is, item.key());
    }
  }
  return filter;
}

// For each list "=" where its rule is as WithRulesEverywhere() made it, "-" where it is gone, else
// the rule's data. The lists: general, description, date, check, check number, its text, amount,
// its text, type, to/from, cleared, split description, split to/from, tax-deductible, notes.
std::string DataOf(const LDGRFilter& filter) {
  std::string texts;
  for (const plist::DictionaryItem& item : filter.asDictionary()) {
    if (!item.value().IsArray()) continue;
    const plist::Value data = filter.GetDataForCategory(item.key());
    const std::string_view text = data.StringValue();
    texts += text == item.key() ? "=" : text.empty() ? "-" : text;
  }
  return texts;
}

TEST_F(FilterTest, ReadsBackResetsAndFillsDifferentLists) {
  const auto filter = WithRulesEverywhere<LDGRFilter>();
  ASSERT_EQ(DataOf(*filter), "===============");
  EXPECT_EQ(DataOf(*LDGRFilter::FilterWithDictionary(filter->asDictionary())), "====--=-=======");
  filter->SetData(plist::Value());
  EXPECT_EQ(DataOf(*filter), "===============");
  filter->SetData("x");
  EXPECT_EQ(DataOf(*filter), "xx-x==x=xxxxx==");
  filter->RemoveAllRules();
  EXPECT_EQ(DataOf(*filter), "----==-=-----==");
  filter->RemoveRulesForCategory(fc::kNotes);
  filter->RemoveRulesForCategory(std::nullopt);
  filter->RemoveRulesForCategory("name");
  EXPECT_EQ(DataOf(*filter), "----==-=-----=-");
  EXPECT_TRUE(filter->SetRuleForCategory(fc::kType, Logic::KeepMatching, Qualifier::Is, "y"));
  EXPECT_EQ(DataOf(*filter), "----==-=y----=-");
  EXPECT_EQ(filter->GetDataForSetCategory(), plist::Value("y"));
  EXPECT_FALSE(filter->SetRuleForCategory("other", Logic::KeepMatching, Qualifier::Is, "y"));
  EXPECT_EQ(filter->GetCategory(), "other");
  EXPECT_EQ(filter->GetDataForSetCategory(), plist::Value(""));
}

TEST_F(FilterTest, CopiesRulesWhereASearchFilterSharesThem) {
  const auto source = WithRulesEverywhere<LDGRSearchFilter>();
  source->SetCategory(fc::kNotes);
  const auto copy = LDGRFilter::FilterWithFilter(source.get());
  copy->SetData("x");
  EXPECT_EQ(DataOf(*copy), "xx-x--x-xxxxx==");
  EXPECT_EQ(DataOf(*source), "===============");

  const auto sharing = LDGRSearchFilter::FilterWithFilter(source.get());
  EXPECT_EQ(sharing->GetCategory(), fc::kNotes);
  sharing->SetData("x");
  EXPECT_EQ(DataOf(*sharing), "xx-x--x-xxxxx==");
  EXPECT_EQ(DataOf(*source), "xx=x==x=xxxxx==");  // the rules are shared, the lists are not
  sharing->SetRuleForCategory(fc::kType, Logic::KeepMatching, Qualifier::Is, "y");
  EXPECT_EQ(DataOf(*sharing), "--------y----==");
  EXPECT_EQ(DataOf(*source), "xx=x==x=xxxxx==");

  EXPECT_EQ(LDGRFilter::FilterWithFilter(nullptr), nullptr);
  EXPECT_EQ(LDGRFilter::FilterWithDictionary(std::nullopt), nullptr);
  EXPECT_EQ(LDGRSearchFilter::FilterWithFilter(nullptr), nullptr);
}

TEST_F(FilterTest, LogsMalformedDictionariesAndKeepsTheDefaults) {
  ambient_.localizer.Translate("Untitled Filter", "Filtre sans titre");
  plist::Dictionary malformed;
  const LDGRFilter defaults;
  for (const plist::DictionaryItem& item : defaults.asDictionary()) {
    malformed.Set(item.key(), 3);
  }
  malformed.Set("category", 4);
  malformed.Set("number", "12");
  const LDGRFilter filter(malformed);
  Lines lines;
  for (const char* key :
       {"name", "filter_general", "filter_description", "filter_notes", "filter_date",
        "filter_amount", "filter_type", "filter_check", "filter_tofrom", "filter_cleared",
        "filter_taxdeductible", "filter_split_tofrom", "filter_split_description"}) {
    lines.push_back(std::string(key) + " in LDGRFilter is in the wrong format.");
  }
  EXPECT_EQ(ambient_.log.Take(), lines);
  EXPECT_EQ(filter.GetName(), "Filtre sans titre");
  EXPECT_EQ(static_cast<int>(filter.GetType()), 3);
  EXPECT_EQ(filter.GetCategory(), std::nullopt);
  EXPECT_EQ(filter.objectForKey("category"), plist::Value(4));
  EXPECT_EQ(filter.GetNumber(), 12);
  EXPECT_EQ(DataOf(filter), "---------------");
  EXPECT_EQ(Numbers(filter.Filter(entries_)), Numbers(entries_));

  const LDGRFilter none{std::nullopt};
  EXPECT_EQ(none.asDictionary().size(), 17U);
  EXPECT_EQ(none.GetNumber(), -1);
  EXPECT_TRUE(ambient_.log.Take().empty());
}

}  // namespace
}  // namespace tallyfold
