#include "model/entry_type.h"

#include <gtest/gtest.h>

#include "model/plist_literals.h"

namespace tallyfold {
namespace {

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

}  // namespace
}  // namespace tallyfold
