#include "model/entry_type.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/fake_ambient.h"
#include "model/plist_literals.h"

namespace tallyfold {
namespace {

TEST(EntryTypes, AreReadQuietlyWhateverIsMissingOrWrong) {
  FakeAmbient ambient;
  const struct {
    std::optional<plist::Dictionary> dictionary;
    const char* name;
    std::int32_t number;
    bool is_check;
    bool is_deposit;
  } cases[] = {{std::nullopt, "", 0, false, false},
               {Dict({{"name", "Bills"}}), "Bills", 0, false, false},
               {Dict({{"name", "Checks"}, {"isCheck", true}, {"isDeposit", 1}, {"number", 4.9}}),
                "Checks", 4, true, true},
               {Dict({{"name", 7}, {"isCheck", "1"}, {"isDeposit", List({})}, {"number", "12 a"}}),
                "", 12, true, false}};
  for (const auto& c : cases) {
    const LDGRAccountEntryType type(c.dictionary);
    EXPECT_EQ(type.GetName(), c.name);
    EXPECT_EQ(type.GetNumber(), c.number);
    EXPECT_EQ(type.GetIsCheck(), c.is_check);
    EXPECT_EQ(type.GetIsDeposit(), c.is_deposit);
    EXPECT_FALSE(type.GetIsTransfer());
  }
  EXPECT_TRUE(ambient.log.Lines().empty());
}

TEST(EntryTypes, StoreAllButTheTransferMark) {
  LDGRAccountEntryType type;
  type.SetName("Transfer");
  type.SetName(std::nullopt);
  type.SetNumber(5);
  type.SetIsDeposit(true);
  type.SetIsTransfer(true);
  const plist::Dictionary dictionary = type.asDictionary();
  EXPECT_EQ(dictionary,
            Dict({{"name", "Transfer"}, {"isCheck", false}, {"isDeposit", true}, {"number", 5}}));
  EXPECT_EQ(KeysOf(dictionary), "name isCheck isDeposit number");
  EXPECT_FALSE(LDGRAccountEntryType(dictionary).GetIsTransfer());
}

TEST(EntryTypes, SortByNameIgnoringCase) {
  EntryTypeList types;
  for (const char* name : {"bills", "Auto", "auto", "AUTO"}) {
    types.push_back(std::make_shared<LDGRAccountEntryType>(Dict({{"name", name}})));
  }
  std::stable_sort(types.begin(), types.end(),
                   [](const auto& a, const auto& b) { return b->NameIsGreaterThan(*a) > 0; });
  std::string order;
  for (const auto& type : types) order += type->GetName() + " ";
  EXPECT_EQ(order, "Auto auto AUTO bills ");
}

}  // namespace
}  // namespace tallyfold
