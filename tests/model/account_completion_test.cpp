#include <gtest/gtest.h>

#include <string>

#include "model/account.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

using Kind = EntryFields::Kind;

EntryFields Described(std::int32_t number, std::string_view description, Kind kind = Kind::Debit) {
  return {.number = number, .kind = kind, .description = description};
}

EntryFields Paid(std::int32_t number, std::string_view to_from, Kind kind = Kind::Debit) {
  return {.number = number, .kind = kind, .to_from = to_from};
}

TEST(CompletionLists, OfAllTextsAreSortedAndKeepTheFirstSpelling) {
  LDGRAccount account;
  AddEntries(account, {Described(9, "rent"), Described(1, "Rent"), Described(2, ""),
                       Described(3, "Éclair"), Described(4, "éclair"), Described(5, "Auto"),
                       Described(6, "Pay", Kind::Deposit), Described(7, "Move", Kind::Transfer)});
  EXPECT_EQ(account.DebitDescriptions_All(), (TextList{"Auto", "rent", "Éclair"}));
  EXPECT_EQ(account.DepositDescriptions_All(), TextList{"Pay"});
  EXPECT_EQ(account.TransferDescriptions_All(), TextList{"Move"});
}

TEST(CompletionLists, OfTheLatestTextsHoldOneMoreThanAskedFor) {
  const struct {
    std::int32_t count;
    TextList expected;
  } cases[] = {
      {-3, {"Five"}},
      {0, {"Five"}},
      {1, {"Five", "GROCERIES"}},
      {2, {"Five", "GROCERIES", "One"}},
      {25, {"Five", "GROCERIES", "One", "Zero"}},
  };
  LDGRAccount account;
  AddEntries(account, {Described(1, "One"), Described(4, "GROCERIES"), Described(5, "Five"),
                       Described(2, "Groceries"), Described(3, ""), Described(0, "Zero")});
  for (const auto& test : cases) {
    EXPECT_EQ(account.DebitDescriptions_Some(test.count), test.expected) << test.count;
  }
}

TEST(CompletionLists, OfTheLatestTransfersEndByPositionInstead) {
  const struct {
    std::int32_t count;
    TextList expected;
  } cases[] = {
      // Positions from the newest: "a", "A", "", "b", "c".
      {0, {"a"}}, {1, {"a", "b"}}, {3, {"a", "b"}}, {4, {"a", "b", "c"}}, {25, {"a", "b", "c"}},
  };
  LDGRAccount account;
  account.SetPassword("the lock does not matter here");
  const char* const texts[] = {"c", "b", "", "A", "a"};
  std::int32_t number = 0;
  for (const char* text : texts) {
    account.AddEntry(MakeEntry(Described(++number, text, Kind::Transfer)));
  }
  for (const auto& test : cases) {
    EXPECT_EQ(account.TransferDescriptions_Some(test.count), test.expected) << test.count;
  }
}

TEST(CompletionLists, OfPayeesLeaveSplitEntriesOut) {
  LDGRAccount account;
  AddEntries(account, {Paid(1, "Market"), Paid(2, "Baker"), Paid(3, "Works", Kind::Deposit)});
  account.AddEntry(MakeEntry({.number = 4, .description = "Split", .to_from = "Several"}));
  account.GetEntries().back()->SetSplit(std::make_shared<LDGRAccountEntrySplit>());
  EXPECT_EQ(account.Tos_All(), (TextList{"Baker", "Market"}));
  EXPECT_EQ(account.Tos_Some(25), (TextList{"Baker", "Market"}));
  EXPECT_EQ(account.Froms_All(), TextList{"Works"});
  EXPECT_EQ(account.Froms_Some(25), TextList{"Works"});
  EXPECT_EQ(account.DebitDescriptions_All(), TextList{"Split"});
}

TEST(CompletionLists, AreEmptyWhileTheAccountIsLocked) {
  LDGRAccount account;
  for (const Kind kind : {Kind::Debit, Kind::Deposit, Kind::Transfer}) {
    account.AddEntry(MakeEntry({.kind = kind, .description = "a", .to_from = "b"}));
  }
  account.SetPreferredTos({"own"});
  account.SetPassword("x");
  for (const TextList& list :
       {account.DebitDescriptions_All(), account.DepositDescriptions_All(),
        account.TransferDescriptions_All(), account.Tos_All(), account.Froms_All(),
        account.DebitDescriptions_Some(5), account.DepositDescriptions_Some(5), account.Tos_Some(5),
        account.Froms_Some(5)}) {
    EXPECT_EQ(list, TextList{});
  }
  EXPECT_EQ(account.Tos_Specific(), TextList{"own"});
}

TEST(CompletionLists, FollowTheirStyleAndCount) {
  LDGRAccount account;
  for (std::int32_t i = 0; i < 40; ++i) {
    const std::string text = "text " + std::to_string(i);
    for (const Kind kind : {Kind::Debit, Kind::Deposit, Kind::Transfer}) {
      account.AddEntry(
          MakeEntry({.number = i, .kind = kind, .description = text, .to_from = text}));
    }
  }
  account.SetPreferredDebitDescriptions({"d"});
  account.SetPreferredDepositDescriptions({"e"});
  account.SetPreferredTransferDescriptions({"f"});
  account.SetPreferredTos({"g"});
  account.SetPreferredFroms({"h"});
  const auto lists = [&account] {
    return std::vector<TextList>{account.GetPreferredDebitDescriptions(),
                                 account.GetPreferredDepositDescriptions(),
                                 account.GetPreferredTransferDescriptions(),
                                 account.GetPreferredTos(), account.GetPreferredFroms()};
  };
  const auto sizes = [&lists] {
    std::vector<std::size_t> result;
    for (const TextList& list : lists()) result.push_back(list.size());
    return result;
  };
  using Sizes = std::vector<std::size_t>;
  EXPECT_EQ(sizes(), (Sizes{26, 26, 26, 26, 26})) << "the latest 25 and one more";
  account.SetPreference_Descriptions_SomeSelection(3);
  account.SetPreference_ToFrom_SomeSelection(7);
  EXPECT_EQ(sizes(), (Sizes{4, 4, 4, 8, 8}));
  account.SetPreference_Descriptions_Style(0);
  EXPECT_EQ(sizes(), (Sizes{40, 40, 40, 8, 8}));
  account.SetPreference_Descriptions_Style(2);
  account.SetPreference_ToFrom_Style(2);
  EXPECT_EQ(lists(), (std::vector<TextList>{{"d"}, {"e"}, {"f"}, {"g"}, {"h"}}));
  account.SetPreference_Descriptions_Style(3);
  account.SetPreference_ToFrom_Style(-1);
  EXPECT_EQ(sizes(), (Sizes{0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace tallyfold
