#include "exchange/qif_review.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exchange/commit_review.h"
#include "exchange/qif_import.h"
#include "fakes/fake_ambient.h"

namespace tallyfold {
namespace {

QifReview Review(std::string_view text, LDGRAccount& account) {
  const QifResult result = LDGRQIFImport(text).Parse();
  return QifReview(result, result.entries, account);
}

void Add(LDGRAccount& account, double amount, bool debit, bool deposit, std::string_view to_from,
         std::string_view description, std::int32_t check = -1) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetDate(20040102);
  entry->SetAmount(amount);
  entry->SetIsDebit(debit);
  entry->SetIsDeposit(deposit);
  entry->SetIsTransfer(!debit && !deposit);
  entry->SetToFrom(to_from);
  entry->SetDescription(description);
  entry->SetIsCheck(check >= 0);
  entry->SetCheckNumber(check);
  account.AddEntry(entry);
}

// "" for an entry that is not matched, else the day of what it is matched with.
std::string Days(const QifReview& review) {
  std::string days;
  for (const auto& entry : review.entries()) {
    if (!days.empty()) days += ' ';
    days += entry->GetMatched() ? std::to_string(entry->GetMatched()->GetDate()) : "-";
  }
  return days;
}

TEST(QifReviews, MatchEachEntryOfTheAccountOnce) {
  LDGRAccount account;
  for (const DateNumber day : {20040101, 20040102, 20040105, 20040120}) {
    Add(account, -5, true, false, "x", "y");
    account.GetEntries().back()->SetDate(day);
  }
  QifReview review = Review(
      "D1/2/04\nT-5\nPx\n^\nD1/3/04\nT-5\n^\nD1/3/04\nT-5\n^\nD1/3/04\nT-5\n^\nD1/3/04\nT-6\n^",
      account);
  EXPECT_EQ(review.MarkedCount(), 4U);
  const auto& rows = review.entries();
  EXPECT_TRUE(review.Match(rows[1]) && review.Match(rows[0]) && review.Match(rows[2]));
  EXPECT_EQ(Days(review), "20040101 20040102 20040105 - -");
  EXPECT_FALSE(review.Match(rows[3]) || review.Match(rows[4]));
  EXPECT_EQ(std::to_string(review.MatchedCount()) + std::to_string(review.MarkedCount()), "32");
  review.Unmatch(rows[0]);  // which the account seems to hold
  review.SetMarked(rows[1], true);
  EXPECT_EQ(Days(review), "- - 20040105 - -");
  EXPECT_EQ(review.MarkedCount(), 3U);
  EXPECT_TRUE(review.Match(rows[3]));
  EXPECT_EQ(Days(review), "- - 20040105 20040102 -");
  review.Remove({rows[3]});
  review.ToggleAll();
  EXPECT_EQ(std::to_string(review.MatchedCount()) + std::to_string(review.MarkedCount()), "04");
  review.Match(rows[0]);
  CommitReview(std::move(review), account, false);
  ASSERT_EQ(account.GetEntries().size(), 7U);
  for (const auto& entry : account.GetEntries()) {
    EXPECT_EQ(entry->GetCleared(), entry->GetDate() == 20040102);
    EXPECT_EQ(entry->GetToFrom(), entry->GetCleared() ? "x" : entry->GetToFrom());
  }
}

TEST(QifReviews, MatchManyRowsOfOneAmountAndDayWithoutLookingAtEachOther) {
  constexpr std::size_t kCount = 60'000;
  LDGRAccount account;
  std::string text;
  for (std::size_t i = 0; i < kCount; ++i) {
    Add(account, -5, true, false, "x", "y");
    text += "D1/3/04\nT-5\n^\n";
  }
  QifReview review = Review(text, account);
  for (const auto& entry : review.entries()) ASSERT_TRUE(review.Match(entry));
  EXPECT_EQ(review.MatchedCount(), kCount);
}

std::vector<std::string> NamesOf(const EntryTypeList& types) {
  std::vector<std::string> names;
  for (const auto& type : types) names.push_back(type->GetName());
  return names;
}

TEST(QifReviews, MarkNoEntryThatTheAccountSeemsToHold) {
  struct Case {
    std::string_view name;
    void (*fill)(LDGRAccount&);
    std::string_view record;
    bool is_duplicate;
  };
  const Case cases[] = {
      {"same payee", [](LDGRAccount& a) { Add(a, -5, true, false, "Shop", "x"); },
       "D1/2/04\nT-5\nPShop\n^", true},
      {"same description", [](LDGRAccount& a) { Add(a, -5, true, false, "x", "Bread"); },
       "D1/2/04\nT-5\nPShop\nMBread\n^", true},
      {"same check number", [](LDGRAccount& a) { Add(a, -5, true, false, "x", "y", 7); },
       "D1/2/04\nT-5\nN7\nPa\nMb\n^", true},
      {"other check number", [](LDGRAccount& a) { Add(a, -5, true, false, "x", "y", 8); },
       "D1/2/04\nT-5\nN7\nPa\nMb\n^", false},
      {"nothing else the same", [](LDGRAccount& a) { Add(a, -5, true, false, "x", "y"); },
       "D1/2/04\nT-5\nPa\nMb\n^", false},
      {"other case", [](LDGRAccount& a) { Add(a, -5, true, false, "SHOP", "y"); },
       "D1/2/04\nT-5\nPShop\nMb\n^", false},
      {"other amount", [](LDGRAccount& a) { Add(a, -5.01, true, false, "Shop", "y"); },
       "D1/2/04\nT-5\nPShop\n^", false},
      {"other day", [](LDGRAccount& a) { Add(a, -5, true, false, "Shop", "y"); },
       "D1/3/04\nT-5\nPShop\n^", false},
      {"deposit for debit", [](LDGRAccount& a) { Add(a, -5, false, true, "Shop", "y"); },
       "D1/2/04\nT-5\nPShop\n^", false},
      {"transfer for debit", [](LDGRAccount& a) { Add(a, -5, false, false, "Shop", "y"); },
       "D1/2/04\nT-5\nPShop\n^", true},
      {"transfer for deposit", [](LDGRAccount& a) { Add(a, 5, false, false, "Shop", "y"); },
       "D1/2/04\nT5\nPShop\n^", true},
  };
  for (const Case& each : cases) {
    LDGRAccount account;
    each.fill(account);
    const QifReview review = Review(each.record, account);
    ASSERT_EQ(review.entries().size(), 1U) << each.name;
    EXPECT_EQ(review.MarkedCount(), each.is_duplicate ? 0U : 1U) << each.name;
    const auto match = review.MatchOf(*review.entries()[0]);
    EXPECT_EQ(match && match->reason != QifMatch::Reason::NearDate, each.is_duplicate) << each.name;
  }
}

// However many entries share amount and day, those that match are found and counted.
TEST(QifReviews, CountWhatIsAlikeInTheAccountAndInTheFile) {
  for (const int others : {0, 40}) {
    LDGRAccount account;
    for (int i = 0; i < others; ++i) {
      const std::string number = std::to_string(i);
      Add(account, -5, true, false, "p" + number, "d" + number, 100 + i);
    }
    Add(account, -5, true, false, "Cafe", "x");
    Add(account, -5, false, false, "Cafe", "y");
    const std::string coffee = "D1/2/04\nT-5\nPCafe\n^\n";
    QifReview review = Review(coffee + coffee + coffee + "D1/2/04\nT-5\nPa\nMb\n^\n", account);
    const auto match = review.MatchOf(*review.entries()[1]);
    ASSERT_TRUE(match && match->reason == QifMatch::Reason::ToFrom) << others;
    EXPECT_EQ(match->entry->GetDescription(), "x");
    EXPECT_EQ(match->in_account, 2U);
    EXPECT_EQ(match->in_file, 3U);
    EXPECT_EQ(review.MarkedCount(), 1U);
    review.Remove({review.entries()[0]});
    EXPECT_EQ(review.MatchOf(*review.entries()[1])->in_file, 2U);
    // Alike for one reason, and both alike for another.
    review = Review("D1/2/04\nT-5\nPCafe\nMx\n^\nD1/2/04\nT-5\nPInn\nMx\n^\n", account);
    EXPECT_EQ(review.MatchOf(*review.entries()[0])->in_file, 1U);
    EXPECT_EQ(review.MatchOf(*review.entries()[1])->reason, QifMatch::Reason::Description);
    EXPECT_EQ(review.MatchOf(*review.entries()[1])->in_file, 2U);
    EXPECT_EQ(review.MatchOf(*review.entries()[1])->in_account, 1U);
    if (others == 0) continue;
    EXPECT_EQ(Review("D1/2/04\nT-5\nN107\n^", account).MarkedCount(), 0U);
    EXPECT_EQ(Review("D1/2/04\nT-5\nN107\n^\nD1/2/04\nT-5\nMd8\n^", account).MarkedCount(), 0U);
  }
}

// Two texts that both lack still make a duplicate, but are no reason to name.
TEST(QifReviews, NameNoTextThatBothLackAsTheReason) {
  struct Case {
    std::string_view to_from;
    std::string_view description;
    QifMatch::Reason reason;
  };
  for (const Case& each : {Case{"x", "", QifMatch::Reason::AmountAndDate},
                           Case{"", "Bread", QifMatch::Reason::Description},
                           Case{"Shop", "", QifMatch::Reason::ToFrom}}) {
    LDGRAccount account;
    Add(account, -5, true, false, each.to_from, each.description);
    const std::string_view payee = each.to_from == "x" ? "y" : each.to_from;
    const QifReview review = Review(
        "D1/2/04\nT-5\nP" + std::string(payee) + "\nM" + std::string(each.description) + "\n^",
        account);
    EXPECT_EQ(review.MarkedCount(), 0U);
    EXPECT_EQ(review.MatchOf(*review.entries()[0])->reason, each.reason) << each.to_from;
  }
}

TEST(QifReviews, HintAtEntriesOfTheSameAmountWithinFourDays) {
  LDGRAccount account;
  Add(account, -5, true, false, "x", "y");
  for (const auto& [day, is_near] : {std::pair("12/28/03", false), std::pair("12/29/03", true),
                                     std::pair("1/6/04", true), std::pair("1/7/04", false)}) {
    const QifReview review = Review(std::string("D") + day + "\nT-5\nPa\nMb\n^", account);
    EXPECT_EQ(review.MatchOf(*review.entries()[0]).has_value(), is_near) << day;
    EXPECT_EQ(review.MarkedCount(), 1U) << day;
  }
}

TEST(QifReviews, MakeEntriesOfWhatWasRead) {
  LDGRAccount account;
  std::string ten_lines = "T-10\n";
  for (int i = 0; i < 10; ++i) ten_lines += "Sa\n$1\n";
  const QifReview review = Review(
      "D1/2/04\nT-5\nN12\nPShop\nMBread\nLFood\nC*\n^\nT5\nN12\nLGift\n^"
      "\nT-3\nPx\nSa\nEb\n$1\nSc\nEd\n$2\n^\n" +
          ten_lines + "LCheck\n^",
      account);
  const auto& entries = review.entries();
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_TRUE(entries[0]->IsDebit() && entries[0]->IsCheck() && entries[0]->GetCleared());
  EXPECT_EQ(entries[0]->GetActualType()->GetName(), "Food");
  EXPECT_EQ(entries[0]->GetType(), 7);  // one above the next free number
  EXPECT_TRUE(entries[1]->IsDeposit() && !entries[1]->IsCheck());
  EXPECT_EQ(entries[1]->GetCheckNumber(), 12);
  EXPECT_EQ(entries[1]->GetType(), account.DepositEntryTypeForName("Gift")->GetNumber());
  EXPECT_EQ(entries[2]->GetToFrom(), "Split");
  EXPECT_EQ(entries[2]->GetAmount(), -3.0);
  EXPECT_EQ(entries[2]->GetSplit()->GetDescription(1), "d");
  EXPECT_EQ(entries[3]->GetSplit(), nullptr);  // ten lines are one too many
  EXPECT_EQ(entries[3]->GetAmount(), -10.0);
  EXPECT_EQ(entries[1]->GetNumber(), entries[0]->GetNumber() + 1);
  EXPECT_EQ(review.Total(), -13.0);
}

TEST(QifReviews, AddMarkedEntriesInTheOrderOfMarkingAndTheTypesTheyNeed) {
  struct Case {
    std::string_view name;
    std::vector<std::size_t> toggled;
    bool all_types;
    std::string_view descriptions;
    std::vector<std::string> new_types;
  };
  const Case cases[] = {
      {"all", {}, false, "abc", {"Used"}},
      {"all types", {}, true, "abc", {"Unused", "Unused", "Used"}},
      {"marked again", {0, 0}, false, "bca", {"Used"}},
      {"without the one that needs a type", {0}, false, "bc", {}},
      {"nothing", {0, 1, 2}, false, "", {"Unused", "Unused", "Used"}},
  };
  for (const Case& each : cases) {
    LDGRAccount account;
    account.SetTypes({});
    QifReview review = Review(
        "!Type:Cat\nNUnused\n^\nNUnused\n^\n!Type:Bank\nT1\nMa\nLUsed\n^\nT2\nMb\n^\nT3\nMc\n^\n",
        account);
    for (const std::size_t index : each.toggled) review.Toggle(review.entries()[index]);
    const std::int32_t last = account.GetNumberCount();
    CommitReview(std::move(review), account, each.all_types);
    std::string descriptions;
    for (const auto& entry : account.GetEntries()) {
      descriptions += entry->GetDescription();
      EXPECT_EQ(entry->GetNumber(), last + static_cast<std::int32_t>(descriptions.size()));
    }
    EXPECT_EQ(descriptions, each.descriptions) << each.name;
    EXPECT_EQ(NamesOf(account.GetTypes()), each.new_types) << each.name;
  }
}

TEST(QifReviews, UnmarkWhatHasNoDateThatCouldBeRead) {
  LDGRAccount account;
  QifReview review = Review("D1/2/04\nT1\n^\nDnever\nT2\n^\nT3\n^", account);
  EXPECT_EQ(review.MarkedUndated(), 2U);
  review.entries()[2]->SetDate(20040102);
  review.UnmarkUndated();
  EXPECT_EQ(review.MarkedUndated(), 0U);
  EXPECT_EQ(review.Total(), 4.0);
}

TEST(QifReviews, ToggleAllAtOnceAndForgetRemovedEntries) {
  LDGRAccount account;
  QifReview review = Review("T1\n^\nT2\n^\nT3\n^", account);
  review.ToggleAll();
  EXPECT_EQ(review.MarkedCount(), 0U);
  review.Toggle(review.entries()[2]);
  review.ToggleAll();  // one of three is marked, so all become so
  EXPECT_EQ(review.entriesToImport(), review.entries());
  const auto removed = review.entries()[1];
  for (int time = 0; time < 2; ++time) {
    review.Remove({removed, removed});
    EXPECT_EQ(review.Total(), 4.0);
    EXPECT_EQ(review.MarkedCount(), 2U);
  }
}

}  // namespace
}  // namespace tallyfold
